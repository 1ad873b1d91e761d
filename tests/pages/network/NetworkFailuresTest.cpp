// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureTop.h"
#include "tests/pages/Refusals.h"
#include "tests/pages/network/AccesspointMessages.h"
#include "tests/pages/network/NetworkBench.h"
#include "tests/support/ManualClock.h"
#include "ui/ClWidgetApInfo.h"

#include <QApplication>

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QList<QUuid> WRITES{USB_NUBO_CMD_SET_WIFI_ONOFF, USB_NUBO_CMD_SET_WIFI_MODE};

}  // namespace

/// What follows when the network page's writes, and the reads of its top sub-page, fail. On a clock
/// of the test's own.
class NetworkFailuresTest : public QObject {
    Q_OBJECT

public:
    explicit NetworkFailuresTest(ManualClock& clock) : m_clock(clock) {}

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void aFailedWriteIsShownAndStopsThePolling_data();
    void aFailedWriteIsShownAndStopsThePolling();
    void aResultIsJudgedWhoeverItNames();
    void aSuccessIsSilent();
    void aCameraThatHasGoneNeedsNoBox();
    void othersResultsChangeNothing();
    void oneBoxIsShownInAPollingPeriod();
    void theTopSubPageSharesTheBox();
    void aFailureBehindABoxAddsNone();
    void showingThePageStartsAgain();
    void theBoxesStayAsTheUserHasThem();
    void aKeyRefusedAfterItsSsidWasAcceptedIsReported();
    void aRefusalThatComesAfterBackIsReported();
    void lateResultsOfOthersAreLeftAlone();

private:
    /// Whether the page, five seconds on, refreshes itself.
    [[nodiscard]] bool isPolled();
    /// Chooses an encrypted access point on the search sub-page, with a key.
    void selectWithKey();

    ManualClock& m_clock;
    std::optional<NetworkBench> m_bench;
};

void NetworkFailuresTest::init() {
    m_bench.emplace();
    m_bench->page.showInit(false);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_SSID, u"Harbour"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_WIFI_INFO, 1U);
    m_bench->takeSent();
}

bool NetworkFailuresTest::isPolled() {
    m_bench->takeSent();
    m_clock.advance(5s);
    return !m_bench->takeSent().isEmpty();
}

void NetworkFailuresTest::aFailedWriteIsShownAndStopsThePolling_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QString>("text");
    for (const QUuid& command : WRITES) {
        const QByteArray name = getUsbCommand(command).toLatin1();
        for (const auto& [code, text] : REFUSALS) {
            QTest::addRow("%s 0x%04X", name.constData(), code)
                << USB_NUBO_CMD_RESPONSE << command << code << text;
        }
        for (unsigned short code = 0xEF01; code <= 0xEF05; ++code) {
            QTest::addRow("%s 0x%04X", name.constData(), code)
                << USB_CMD_ERROR << command << code << UNKNOWN_ERROR;
        }
    }
}

void NetworkFailuresTest::aFailedWriteIsShownAndStopsThePolling() {
    QFETCH(const QUuid, kind);
    QFETCH(const QUuid, command);
    QFETCH(const unsigned short, code);
    QFETCH(const QString, text);
    QVERIFY(isPolled());
    m_bench->page.slotReceiveCommand(plainResult(kind, command, code));
    const stModalBox box{u"Test program"_s, text, {u"OK"_s}, &m_bench->page};
    QCOMPARE(m_bench->boxes.boxes(), QList<stModalBox>{box});
    QVERIFY(g_bIsShowError);
    QVERIFY(!isPolled());
}

void NetworkFailuresTest::aResultIsJudgedWhoeverItNames() {
    VX_CMD result = plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFB);
    result.insert(u"Sender"_s, QVariant::fromValue<QObject*>(this));
    m_bench->page.slotReceiveCommand(result);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(isPolled());
    result.insert(u"Sender"_s, QVariant::fromValue<QObject*>(&m_bench->page));
    m_bench->page.slotReceiveCommand(result);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Parameter setting failed"_s});
    QVERIFY(!isPolled());
}

void NetworkFailuresTest::aSuccessIsSilent() {
    for (const QUuid& command : WRITES) {
        m_bench->succeed(command);
    }
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    // Wi-Fi is read back.
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ONOFF});
    QVERIFY(isPolled());
}

void NetworkFailuresTest::aCameraThatHasGoneNeedsNoBox() {
    for (const QUuid& command : WRITES) {
        m_bench->fail(command, 0xEF00);
    }
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(!g_bIsShowError);
    QVERIFY(isPolled());
}

void NetworkFailuresTest::othersResultsChangeNothing() {
    const QList<QUuid> others{USB_NUBO_CMD_SET_INFRA_SSID,
                              WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF,
                              USB_REQ_NUBO_CMD_GET_WIFIMODE, QUuid()};
    for (const QUuid& command : others) {
        m_bench->respond(command, 0xFFFF);
        m_bench->fail(command, 0xEF03);
    }
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(isPolled());
}

void NetworkFailuresTest::oneBoxIsShownInAPollingPeriod() {
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFF);
    m_bench->fail(USB_NUBO_CMD_SET_WIFI_MODE, 0xEF03);
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFB);
    QCOMPARE(m_bench->boxes.texts(), QStringList{UNKNOWN_ERROR});

    m_bench->page.startPolling();
    QVERIFY(!g_bIsShowError);
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFB);
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFB);
    QCOMPARE(m_bench->boxes.texts(), (QStringList{UNKNOWN_ERROR, u"Parameter setting failed"_s}));
    QVERIFY(!isPolled());
}

void NetworkFailuresTest::theTopSubPageSharesTheBox() {
    m_bench->fail(USB_REQ_NUBO_CMD_GET_INFRA_SSID, 0xEF03);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    QVERIFY(!isPolled());
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_MODE, 0xFFFF);
    m_bench->respond(USB_REQ_NUBO_CMD_GET_WIFI_INFO, 0xFFFF);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);

    // Coming back to the top sub-page is a new beginning.
    m_bench->user.click(u"AP manual setting"_s);
    m_bench->user.click(u"Back"_s);
    QVERIFY(isPolled());
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_MODE, 0xFFFF);
    QCOMPARE(m_bench->boxes.boxes().size(), 2);
}

void NetworkFailuresTest::aFailureBehindABoxAddsNone() {
    m_bench->boxes.setAction([this](QWidget& box) {
        m_bench->fail(USB_NUBO_CMD_SET_WIFI_MODE, 0xEF03);
        m_bench->fail(USB_REQ_NUBO_CMD_GET_INFRA_SSID, 0xEF03);
        m_bench->takeSent();
        m_clock.advance(20s);
        QCOMPARE(m_bench->takeSent(), QStringList());
        QCOMPARE(QApplication::activeModalWidget(), &box);
        acceptBox(box);
    });
    m_bench->fail(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xEF03);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
}

void NetworkFailuresTest::showingThePageStartsAgain() {
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFF);
    m_bench->page.showInit(true);
    QVERIFY(g_bIsShowError);
    QVERIFY(!isPolled());
    m_bench->page.showInit(false);
    QVERIFY(!g_bIsShowError);
    QVERIFY(isPolled());
}

void NetworkFailuresTest::theBoxesStayAsTheUserHasThem() {
    m_bench->network.clickBox(INFRASTRUCTURE);
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_ONOFF, 0xFFFF);
    m_bench->respond(USB_NUBO_CMD_SET_WIFI_MODE, 0xFFFF);
    QVERIFY(m_bench->user.isChecked(u"Connect Infrastructure on startup"_s));
    m_bench->answerOnOff(false);
    QVERIFY(!m_bench->user.isChecked(u"Connect Infrastructure on startup"_s));
}

void NetworkFailuresTest::selectWithKey() {
    m_bench->boxes.setAction([](QWidget& box) {
        if (auto* key = box.findChild<QLineEdit*>()) {
            QTest::keyClicks(key, u"key1"_s);
        }
        acceptBox(box);
    });
    m_bench->user.click(u"AP search and setting"_s);
    m_bench->page.slotReceiveCommand(scanAnswer({{u"Quay"_s, {}, 0, 4, 0, 50}}));
    QTest::mouseDClick(m_bench->page.findChild<ClWidgetApInfo*>(), Qt::LeftButton);
    m_bench->boxes.forgetBoxes();
}

void NetworkFailuresTest::aKeyRefusedAfterItsSsidWasAcceptedIsReported() {
    selectWithKey();
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QVERIFY(m_bench->user.shows(u"AP of selecting"_s));
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_KEY, 0xFFFB);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Parameter setting failed"_s});
    // It stays on the top page, which goes on as before.
    QCOMPARE(m_bench->boxes.boxes().first().parent,
             m_bench->page.findChild<ClWidgetInfrastructureTop*>());
    QVERIFY(!g_bIsShowError);
    QVERIFY(isPolled());
    // One write, one result.
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_KEY, 0xFFFB);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
}

void NetworkFailuresTest::aRefusalThatComesAfterBackIsReported() {
    selectWithKey();
    m_bench->user.click(u"Back"_s);
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_SSID, 0xFFFB);
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_KEY, 0xFFFC);
    QCOMPARE(m_bench->boxes.texts(),
             (QStringList{u"Parameter setting failed"_s, u"Command error, version up"_s}));
    QVERIFY(m_bench->user.shows(u"AP of selecting"_s));
}

void NetworkFailuresTest::lateResultsOfOthersAreLeftAlone() {
    // The search page has reported it already.
    selectWithKey();
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_KEY, 0xFFFB);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_KEY, 0xFFFB);
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_SSID, 0xFFFB);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    // Nor on a page that reports it anyway.
    selectWithKey();
    m_bench->user.click(u"Back"_s);
    m_bench->user.click(u"AP manual setting"_s);
    m_bench->respond(USB_NUBO_CMD_SET_INFRA_KEY, 0xFFFB);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    m_bench->user.click(u"Back"_s);
    // Neither a success nor, as on the search page, a write that was lost.
    selectWithKey();
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    m_bench->fail(USB_NUBO_CMD_SET_INFRA_KEY, 0xEF03);
    selectWithKey();
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_SSID);
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_KEY);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

const TestSubject registered = subjectOnManualClock<NetworkFailuresTest>();

#include "NetworkFailuresTest.moc"
