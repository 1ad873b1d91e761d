// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetAdhoc.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"
#include "ui/ClLabelSepalator.h"

#include <QAccessible>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString USE = u"Connect Adhoc on startup"_s;
const QString ADDRESS = u"IP Address"_s;
const QString SUBNETMASK = u"Subnetmask"_s;
const QString NOT_VALID = u"Not valid settings of network"_s;

const QList<QUuid> OWN_COMMANDS{
    USB_REQ_NUBO_CMD_GET_SSID,          USB_REQ_NUBO_CMD_GET_ADHOCKEY,
    USB_REQ_NUBO_CMD_GET_ADHOC_ADDRESS, USB_REQ_NUBO_CMD_GET_ADHOC_SUBNETMASK,
    USB_NUBO_CMD_SET_ADHOC_ADDRESS,     USB_NUBO_CMD_SET_ADHOC_SUBNETMASK};

const QString GET_SSID = u"USB_REQ_NUBO_CMD_GET_SSID"_s;
const QString GET_KEY = u"USB_REQ_NUBO_CMD_GET_ADHOCKEY"_s;
const QString GET_ADDRESS = u"USB_REQ_NUBO_CMD_GET_ADHOC_ADDRESS"_s;
const QString GET_SUBNETMASK = u"USB_REQ_NUBO_CMD_GET_ADHOC_SUBNETMASK"_s;
const QString SET_ADDRESS = u"USB_NUBO_CMD_SET_ADHOC_ADDRESS QString 10.0.0.7"_s;
const QString SET_SUBNETMASK = u"USB_NUBO_CMD_SET_ADHOC_SUBNETMASK QString 255.0.0.0"_s;

}  // namespace

/// The ad-hoc tab, on its own.
class AdhocTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { m_bench.reset(); }

    void everythingStandsAtItsPlace();
    void theNetworksValuesAreBoldPlainText();
    void longValuesStayInThePage();
    void screenReadersNameEveryControl();
    void theTabKeyFollowsTheEye();
    void valuesAreReadInAChain();
    void theNetworkIsReadOnce();
    void aNetworkWithoutAnSsidIsReadAgain();
    void theBoxTellsWhatTheUserWants();
    void theBoxIsCheckedOnlyWhileWifiIsOn_data();
    void theBoxIsCheckedOnlyWhileWifiIsOn();
    void backLeavesWithoutWriting();
    void returnIsDecision();
    void nothingChangedLeavesAtOnce();
    void whatChangedIsWritten_data();
    void whatChangedIsWritten();
    void aFailedWriteKeepsThePageAndIsWrittenAgain();
    void settingsThatAreNotValidAreNotWritten_data();
    void settingsThatAreNotValidAreNotWritten();
    void aFailureIsShownEachTime_data();
    void aFailureIsShownEachTime();
    void othersMessagesAreIgnored();

private:
    void readFromCamera();
    [[nodiscard]] QAbstractButton& button(const QString& text) const {
        return m_bench->user.button(text);
    }

    std::optional<PageBench<ClWidgetAdhoc>> m_bench;
    QList<int> m_left;
};

void AdhocTest::initTestCase() {
    QCoreApplication::setApplicationName(u"Test program"_s);
    // The program's own text size.
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void AdhocTest::init() {
    m_bench.emplace();
    m_left.clear();
    connect(&m_bench->page, &ClWidgetAdhoc::sigEndSetting, this,
            [this](int tab) { m_left.append(tab); });
}

void AdhocTest::readFromCamera() {
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, u"NuBo-0001"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, u"simulated"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, u"192.168.10.1"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOC_SUBNETMASK, u"255.255.255.0"_s);
    m_bench->takeSent();
}

void AdhocTest::everythingStandsAtItsPlace() {
    readFromCamera();
    const PageUser& user = m_bench->user;
    QCOMPARE(button(USE).pos(), QPoint(27, 27));
    const QList<std::pair<QString, int>> captions{{u"SSID of adhoc"_s, 65},
                                                  {u"Encryption key of adhoc"_s, 95}};
    for (const auto& [text, y] : captions) {
        const QLabel& label = user.label(text);
        QCOMPARE(label.pos(), QPoint(228 - label.sizeHint().width(), y));
    }
    QCOMPARE(user.label(u"NuBo-0001"_s).pos(), QPoint(276, 65));
    QCOMPARE(user.label(u"simulated"_s).pos(), QPoint(276, 95));
    QCOMPARE(m_bench->page.findChild<ClLabelSepalator*>()->pos(), QPoint(0, 142));
    QCOMPARE(user.label(u"Set the IP Adderss and Subnetmask when connect by adhoc"_s).pos(),
             QPoint(36, 178));

    const QList<std::pair<QString, int>> rows{{ADDRESS, 211}, {SUBNETMASK, 250}};
    for (const auto& [text, y] : rows) {
        const QLabel& label = user.label(text);
        QCOMPARE(label.pos(), QPoint(227 - label.sizeHint().width(), y));
        const QLineEdit& edit = user.edit(text);
        QCOMPARE(edit.pos(), QPoint(264, y));
        QCOMPARE(edit.width(), 199);
        QCOMPARE(edit.minimumWidth(), 199);
    }

    const QWidget* box = button(u"Back"_s).parentWidget();
    QCOMPARE(box->pos(), QPoint(585 - box->sizeHint().width(), 424));
    QCOMPARE(button(u"Back"_s).minimumSize(), QSize(133, 30));
    QCOMPARE(button(u"Decision"_s).minimumSize(), QSize(133, 30));
    QVERIFY(m_bench->page.rect().contains(box->geometry()));
}

void AdhocTest::theNetworksValuesAreBoldPlainText() {
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, u"<b>net</b>"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, u"a&b<i>"_s);
    for (const QString& text : {u"<b>net</b>"_s, u"a&b<i>"_s}) {
        const QLabel& label = m_bench->user.label(text);
        QCOMPARE(label.textFormat(), Qt::PlainText);
        QCOMPARE(label.font().weight(), QFont::Bold);
        QCOMPARE(label.size(), label.sizeHint());
        QCOMPARE(label.toolTip(), QString());
    }
}

void AdhocTest::longValuesStayInThePage() {
    const QString ssid(32, u'W');
    const QString key(64, u'W');
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, ssid);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, key);
    for (const QString& text : {ssid, key}) {
        const QLabel& label = m_bench->user.label(text);
        QVERIFY(label.sizeHint().width() > m_bench->page.width() - label.x());
        QVERIFY(m_bench->page.rect().contains(label.geometry()));
        QVERIFY(label.toolTip().contains(text));
    }
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, u"short"_s);
    QCOMPARE(m_bench->user.label(u"short"_s).toolTip(), QString());
}

void AdhocTest::screenReadersNameEveryControl() {
    for (const QString& text : {ADDRESS, SUBNETMASK}) {
        auto* edit = QAccessible::queryAccessibleInterface(&m_bench->user.edit(text));
        QCOMPARE(edit->text(QAccessible::Name), text);
    }
}

void AdhocTest::theTabKeyFollowsTheEye() {
    const QList<QWidget*> order{&button(USE), &m_bench->user.edit(ADDRESS),
                                &m_bench->user.edit(SUBNETMASK), &button(u"Decision"_s),
                                &button(u"Back"_s)};
    m_bench->page.activateWindow();
    order.first()->setFocus();
    for (QWidget* widget : order) {
        QCOMPARE(m_bench->page.focusWidget(), widget);
        QTest::keyClick(m_bench->page.focusWidget(), Qt::Key_Tab);
    }
}

void AdhocTest::valuesAreReadInAChain() {
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, u"NuBo-0001"_s);
    QVERIFY(m_bench->user.shows(u"NuBo-0001"_s));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_KEY});
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOCKEY, u"simulated"_s);
    QVERIFY(m_bench->user.shows(u"simulated"_s));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ADDRESS});
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, u"192.168.10.1"_s);
    QCOMPARE(m_bench->user.edit(ADDRESS).text(), u"192.168.10.1"_s);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SUBNETMASK});
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOC_SUBNETMASK, u"255.255.255.0"_s);
    QCOMPARE(m_bench->user.edit(SUBNETMASK).text(), u"255.255.255.0"_s);
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AdhocTest::theNetworkIsReadOnce() {
    readFromCamera();
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ADDRESS});
    m_bench->page.showInit(true);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ADDRESS});
}

void AdhocTest::aNetworkWithoutAnSsidIsReadAgain() {
    m_bench->answer(USB_RES_NUBO_CMD_GET_SSID, QString());
    m_bench->takeSent();
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_SSID});
}

void AdhocTest::theBoxTellsWhatTheUserWants() {
    QSignalSpy wanted(&m_bench->page, &ClWidgetAdhoc::sigUseAdhoc);
    m_bench->user.click(USE);
    QVERIFY(m_bench->user.isChecked(USE));
    m_bench->user.click(USE);
    QVERIFY(!m_bench->user.isChecked(USE));
    QCOMPARE(wanted, (QList<QVariantList>{{true}, {false}}));
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(m_left.isEmpty());
}

void AdhocTest::theBoxIsCheckedOnlyWhileWifiIsOn_data() {
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<bool>("isUsed");
    QTest::addColumn<bool>("isChecked");
    QTest::newRow("on, used") << true << true << true;
    QTest::newRow("on, not used") << true << false << false;
    QTest::newRow("off, used") << false << true << false;
    QTest::newRow("off, not used") << false << false << false;
}

void AdhocTest::theBoxIsCheckedOnlyWhileWifiIsOn() {
    QFETCH(const bool, isOn);
    QFETCH(const bool, isUsed);
    QSignalSpy wanted(&m_bench->page, &ClWidgetAdhoc::sigUseAdhoc);
    for (const bool before : {false, true}) {
        qobject_cast<QAbstractButton*>(&button(USE))->setChecked(before);
        g_bIsWifiON = isOn;
        m_bench->page.setUseAdhoc(isUsed);
        QTEST(m_bench->user.isChecked(USE), "isChecked");
    }
    QVERIFY(wanted.isEmpty());
}

void AdhocTest::backLeavesWithoutWriting() {
    readFromCamera();
    m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
    m_bench->user.click(u"Back"_s);
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AdhocTest::returnIsDecision() {
    readFromCamera();
    m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
    for (const QString& caption : {ADDRESS, SUBNETMASK}) {
        QTest::keyClick(&m_bench->user.edit(caption), Qt::Key_Return);
        QCOMPARE(m_bench->takeSent(), QStringList{SET_ADDRESS});
    }
}

void AdhocTest::nothingChangedLeavesAtOnce() {
    readFromCamera();
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AdhocTest::whatChangedIsWritten_data() {
    QTest::addColumn<bool>("address");
    QTest::addColumn<bool>("subnetmask");
    QTest::newRow("address") << true << false;
    QTest::newRow("mask") << false << true;
    QTest::newRow("both") << true << true;
}

void AdhocTest::whatChangedIsWritten() {
    QFETCH(const bool, address);
    QFETCH(const bool, subnetmask);
    readFromCamera();
    QStringList expected;
    QList<QUuid> commands;
    if (address) {
        m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
        expected.append(SET_ADDRESS);
        commands.append(USB_NUBO_CMD_SET_ADHOC_ADDRESS);
    }
    if (subnetmask) {
        m_bench->user.type(SUBNETMASK, u"255.0.0.0"_s);
        expected.append(SET_SUBNETMASK);
        commands.append(USB_NUBO_CMD_SET_ADHOC_SUBNETMASK);
    }
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(), expected);
    m_bench->succeed(QUuid());
    for (const QUuid& command : std::as_const(commands)) {
        QVERIFY(m_left.isEmpty());
        m_bench->succeed(command);
    }
    QCOMPARE(m_left, QList<int>{0});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void AdhocTest::aFailedWriteKeepsThePageAndIsWrittenAgain() {
    readFromCamera();
    m_bench->user.type(ADDRESS, u"10.0.0.7"_s);
    m_bench->user.type(SUBNETMASK, u"255.0.0.0"_s);
    m_bench->user.click(u"Decision"_s);
    m_bench->respond(USB_NUBO_CMD_SET_ADHOC_ADDRESS, 0xFFFC);
    m_bench->succeed(USB_NUBO_CMD_SET_ADHOC_SUBNETMASK);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Command error, version up"_s});
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->user.edit(ADDRESS).text(), u"10.0.0.7"_s);

    m_bench->takeSent();
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_ADDRESS, SET_SUBNETMASK}));
}

void AdhocTest::settingsThatAreNotValidAreNotWritten_data() {
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("text");
    for (const char* text : {"", "10.0.0", "10.0.0.0", "10.0.0.255"}) {
        QTest::addRow("address %s", text) << ADDRESS << QString::fromLatin1(text);
    }
    for (const char* text : {"", "255.255.240.0", "255.0.255.0"}) {
        QTest::addRow("mask %s", text) << SUBNETMASK << QString::fromLatin1(text);
    }
}

void AdhocTest::settingsThatAreNotValidAreNotWritten() {
    QFETCH(const QString, caption);
    QFETCH(const QString, text);
    readFromCamera();
    m_bench->user.type(caption, text);
    QCOMPARE(m_bench->user.edit(caption).text(), text);
    m_bench->user.click(u"Decision"_s);
    const stModalBox box{u"Test program"_s, NOT_VALID, {u"OK"_s}, &m_bench->page};
    QCOMPARE(m_bench->boxes.boxes(), QList<stModalBox>{box});
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(m_left.isEmpty());
}

void AdhocTest::aFailureIsShownEachTime_data() {
    QTest::addColumn<QUuid>("command");
    for (const QUuid& command : OWN_COMMANDS) {
        QTest::newRow(qPrintable(getUsbCommand(command))) << command;
    }
}

void AdhocTest::aFailureIsShownEachTime() {
    QFETCH(const QUuid, command);
    m_bench->failInManyWays(command);
    QCOMPARE(m_bench->boxes.texts(), FAILURE_TEXTS);
    QVERIFY(!g_bIsShowError);
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void AdhocTest::othersMessagesAreIgnored() {
    for (const QUuid& command :
         {USB_NUBO_CMD_SET_INFRA_ADDRESS, USB_NUBO_CMD_SET_WIFI_MODE, QUuid()}) {
        m_bench->respond(command, 0xFFFF);
        m_bench->fail(command, 0xEF03);
        m_bench->succeed(command);
    }
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"10.0.0.1"_s);
    m_bench->page.slotReceiveCommand({});
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_left.isEmpty());
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(m_bench->user.edit(ADDRESS).text(), QString());
}

const TestSubject registered = subjectWithWidgets<AdhocTest>();
#include "AdhocTest.moc"
