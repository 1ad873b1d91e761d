// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureDhcp.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"

#include <QApplication>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString ADDRESS = u"IP Address"_s;
const QString SUBNETMASK = u"Subnetmask"_s;
const QString GATEWAY = u"Default Gateway"_s;
const QString NOT_VALID = u"Not valid settings of network"_s;
const QString UNKNOWN_ERROR = u"Exec failed, unknown error"_s;

const QList<QUuid> READS{USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP, USB_REQ_NUBO_CMD_GET_INFRA_ADDRESS,
                         USB_REQ_NUBO_CMD_GET_INFRA_SUBNETMASK, USB_REQ_NUBO_CMD_GET_INFRA_GATEWAY};
const QList<QUuid> WRITES{USB_NUBO_CMD_SET_INFRA_USE_DHCP, USB_NUBO_CMD_SET_INFRA_ADDRESS,
                          USB_NUBO_CMD_SET_INFRA_SUBNETMASK, USB_NUBO_CMD_SET_INFRA_GATEWAY};

const QString SET_DHCP_ON = u"USB_NUBO_CMD_SET_INFRA_USE_DHCP bool true"_s;
const QString SET_ADDRESS = u"USB_NUBO_CMD_SET_INFRA_ADDRESS QString 10.0.0.7"_s;
const QString SET_SUBNETMASK = u"USB_NUBO_CMD_SET_INFRA_SUBNETMASK QString 255.0.0.0"_s;
const QString SET_GATEWAY = u"USB_NUBO_CMD_SET_INFRA_GATEWAY QString 10.0.0.1"_s;

}  // namespace

/// The sub-page of the DHCP setting and the static addresses.
class InfrastructureDhcpTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_bench.reset(); }

    void valuesAreReadInAChain();
    void pollingReadsToo();
    void theDhcpChoiceFollowsTheCamera();
    void backLeavesWithoutWriting();
    void returnIsDecision();
    void nothingChangedLeavesAtOnce();
    void whatChangedIsWritten_data();
    void whatChangedIsWritten();
    void thePageIsLeftWhenAllWritesHaveSucceeded();
    void aFailedWriteKeepsThePageAndIsWrittenAgain();
    void writingDoesNotChangeWhatWasRead();
    void settingsThatAreNotValidAreNotWritten_data();
    void settingsThatAreNotValidAreNotWritten();
    void aFailureIsShownEachTime_data();
    void aFailureIsShownEachTime();
    void failuresOfOneDecisionAreToldInTurn();
    void othersMessagesAreIgnored();

private:
    void readFromCamera(bool useDhcp);

    std::optional<PageBench<ClWidgetInfrastructureDhcp>> m_bench;
    QList<int> m_left;
};

void InfrastructureDhcpTest::init() {
    m_bench.emplace();
    m_left.clear();
    connect(&m_bench->page, &ClWidgetInfrastructureDhcp::sigChangePage, this,
            [this](int page) { m_left.append(page); });
}

void InfrastructureDhcpTest::readFromCamera(bool useDhcp) {
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, useDhcp);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"192.168.0.20"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK, u"255.255.255.0"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_GATEWAY, u"192.168.0.1"_s);
    m_bench->takeSent();
}

void InfrastructureDhcpTest::valuesAreReadInAChain() {
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{u"USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP"_s});
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, false);
    QCOMPARE(m_bench->takeSent(), QStringList{u"USB_REQ_NUBO_CMD_GET_INFRA_ADDRESS"_s});
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"192.168.0.20"_s);
    QCOMPARE(m_bench->user.edit(ADDRESS).text(), u"192.168.0.20"_s);
    QCOMPARE(m_bench->takeSent(), QStringList{u"USB_REQ_NUBO_CMD_GET_INFRA_SUBNETMASK"_s});
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK, u"255.255.255.0"_s);
    QCOMPARE(m_bench->user.edit(SUBNETMASK).text(), u"255.255.255.0"_s);
    QCOMPARE(m_bench->takeSent(), QStringList{u"USB_REQ_NUBO_CMD_GET_INFRA_GATEWAY"_s});
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_GATEWAY, u"192.168.0.1"_s);
    QCOMPARE(m_bench->user.edit(GATEWAY).text(), u"192.168.0.1"_s);
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void InfrastructureDhcpTest::pollingReadsToo() {
    m_bench->page.showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{u"USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP"_s});
}

void InfrastructureDhcpTest::theDhcpChoiceFollowsTheCamera() {
    for (const bool useDhcp : {true, true, false, true, false}) {
        m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, useDhcp);
        QCOMPARE(m_bench->user.isChecked(u"ON"_s), useDhcp);
        QCOMPARE(m_bench->user.isChecked(u"OFF"_s), !useDhcp);
        QCOMPARE(m_bench->user.edit(ADDRESS).isEnabled(), !useDhcp);
    }
}

void InfrastructureDhcpTest::backLeavesWithoutWriting() {
    readFromCamera(false);
    m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
    m_bench->user.click(u"Back"_s);
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void InfrastructureDhcpTest::returnIsDecision() {
    readFromCamera(false);
    m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
    for (const QString& caption : {ADDRESS, SUBNETMASK, GATEWAY}) {
        QTest::keyClick(&m_bench->user.edit(caption), Qt::Key_Return);
        QCOMPARE(m_bench->takeSent(), QStringList{SET_ADDRESS});
    }
}

void InfrastructureDhcpTest::nothingChangedLeavesAtOnce() {
    for (const bool useDhcp : {false, true}) {
        m_left.clear();
        readFromCamera(useDhcp);
        m_bench->user.click(u"Decision"_s);
        QCOMPARE(m_left, QList<int>{0});
        QCOMPARE(m_bench->takeSent(), QStringList());
    }
}

void InfrastructureDhcpTest::whatChangedIsWritten_data() {
    QTest::addColumn<bool>("dhcp");
    QTest::addColumn<bool>("address");
    QTest::addColumn<bool>("subnetmask");
    QTest::addColumn<bool>("gateway");
    for (unsigned int bits = 1; bits < 16; ++bits) {
        QTest::addRow("%u", bits) << ((bits & 1) != 0) << ((bits & 2) != 0) << ((bits & 4) != 0)
                                  << ((bits & 8) != 0);
    }
}

void InfrastructureDhcpTest::whatChangedIsWritten() {
    QFETCH(const bool, dhcp);
    QFETCH(const bool, address);
    QFETCH(const bool, subnetmask);
    QFETCH(const bool, gateway);
    readFromCamera(false);
    QStringList expected;
    QList<QUuid> commands;
    const auto change = [&](const QString& caption, const QString& text, const QString& written,
                            const QUuid& command) {
        m_bench->user.type(caption, text);
        QCOMPARE(m_bench->user.edit(caption).text(), text);
        expected.append(written);
        commands.append(command);
    };
    if (address) {
        change(ADDRESS, u"10.0.0.7"_s, SET_ADDRESS, WRITES[1]);
    }
    if (subnetmask) {
        change(SUBNETMASK, u"255.0.0.0"_s, SET_SUBNETMASK, WRITES[2]);
    }
    if (gateway) {
        change(GATEWAY, u"10.0.0.1"_s, SET_GATEWAY, WRITES[3]);
    }
    if (dhcp) {
        // The addresses are written all the same.
        m_bench->user.click(u"ON"_s);
        expected.prepend(SET_DHCP_ON);
        commands.prepend(WRITES[0]);
    }
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(), expected);
    for (const QUuid& command : std::as_const(commands)) {
        QVERIFY(m_left.isEmpty());
        m_bench->succeed(command);
    }
    QCOMPARE(m_left, QList<int>{0});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void InfrastructureDhcpTest::thePageIsLeftWhenAllWritesHaveSucceeded() {
    readFromCamera(true);
    m_bench->user.click(u"OFF"_s);
    m_bench->user.type(GATEWAY, u"10.0.0.1"_s);
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(),
             (QStringList{u"USB_NUBO_CMD_SET_INFRA_USE_DHCP bool false"_s, SET_GATEWAY}));
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_GATEWAY);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    m_bench->succeed(USB_REQ_NUBO_CMD_GET_INFRA_ADDRESS);
    m_bench->succeed(QUuid());
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_USE_DHCP);
    QCOMPARE(m_left, QList<int>{0});
}

void InfrastructureDhcpTest::aFailedWriteKeepsThePageAndIsWrittenAgain() {
    readFromCamera(false);
    m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
    m_bench->user.type(GATEWAY, u"10.0.0.1"_s);
    m_bench->user.click(u"Decision"_s);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_ADDRESS);
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_GATEWAY, 0xFFFB);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Parameter setting failed"_s});
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->user.edit(GATEWAY).text(), u"10.0.0.1"_s);

    m_bench->takeSent();
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_ADDRESS, SET_GATEWAY}));
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_ADDRESS);
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_GATEWAY);
    QCOMPARE(m_left, QList<int>{0});
}

void InfrastructureDhcpTest::writingDoesNotChangeWhatWasRead() {
    readFromCamera(false);
    m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
    m_bench->user.click(u"Decision"_s);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_ADDRESS);
    m_bench->takeSent();

    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(), QStringList{SET_ADDRESS});
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"10.0.0.7"_s);
    m_bench->takeSent();
    m_left.clear();
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(m_left, QList<int>{0});
}

void InfrastructureDhcpTest::settingsThatAreNotValidAreNotWritten_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("text");
    for (const QString& caption : {ADDRESS, GATEWAY}) {
        for (const char* text : {"", "10.0.0.", "10.0.0.0", "10.0.0.255", "10.0.0.07"}) {
            QTest::addRow("%s %s", qPrintable(caption), text)
                << caption << QString::fromLatin1(text);
        }
    }
    for (const char* text : {"", "255.255.255.", "255.255.240.0", "255.0.255.0", "10.0.0.1"}) {
        QTest::addRow("mask %s", text) << SUBNETMASK << QString::fromLatin1(text);
    }
}

void InfrastructureDhcpTest::settingsThatAreNotValidAreNotWritten() {
    QFETCH(const QString, caption);
    QFETCH(const QString, text);
    readFromCamera(false);
    m_bench->user.type(caption, text);
    QCOMPARE(m_bench->user.edit(caption).text(), text);
    for (const QString& dhcp : {u"OFF"_s, u"ON"_s}) {
        m_bench->user.click(dhcp);
        m_bench->user.click(u"Decision"_s);
    }
    const stModalBox box{u"Test program"_s, NOT_VALID, {u"OK"_s}, &m_bench->page};
    QCOMPARE(m_bench->boxes.boxes(), (QList<stModalBox>{box, box}));
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(m_left.isEmpty());
}

void InfrastructureDhcpTest::aFailureIsShownEachTime_data() {
    QTest::addColumn<QUuid>("command");
    for (const QUuid& command : READS + WRITES) {
        QTest::newRow(qPrintable(getUsbCommand(command))) << command;
    }
}

void InfrastructureDhcpTest::aFailureIsShownEachTime() {
    QFETCH(const QUuid, command);
    m_bench->failInManyWays(command);
    QCOMPARE(m_bench->boxes.texts(), FAILURE_TEXTS);
    QVERIFY(!g_bIsShowError);
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void InfrastructureDhcpTest::failuresOfOneDecisionAreToldInTurn() {
    m_bench->boxes.setAction([this](QWidget& box) {
        if (m_bench->boxes.boxes().size() == 1) {
            m_bench->fail(USB_NUBO_CMD_SET_INFRA_SUBNETMASK, 0xEF03);
            m_bench->respond(USB_NUBO_CMD_SET_INFRA_GATEWAY, 0xFFFB);
            QCOMPARE(QApplication::activeModalWidget(), &box);
        }
        acceptBox(box);
    });
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_ADDRESS, 0xFFFC);
    QCOMPARE(m_bench->boxes.texts(), (QStringList{u"Command error, version up"_s, UNKNOWN_ERROR,
                                                  u"Parameter setting failed"_s}));
}

void InfrastructureDhcpTest::othersMessagesAreIgnored() {
    for (const QUuid& command : {USB_NUBO_CMD_SET_ADHOC_ADDRESS, USB_REQ_NUBO_CMD_GET_INFRA_SSID,
                                 USB_NUBO_CMD_SET_WIFI_ONOFF, QUuid()}) {
        m_bench->respond(command, 0xFFFF);
        m_bench->fail(command, 0xEF03);
        m_bench->succeed(command);
    }
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, u"10.0.0.1"_s);
    m_bench->page.slotReceiveCommand({});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(m_bench->user.edit(ADDRESS).text(), QString());
}

const TestSubject registered = subjectWithWidgets<InfrastructureDhcpTest>();
#include "InfrastructureDhcpTest.moc"
