// SPDX-License-Identifier: MIT
#include "tests/pages/network/NetworkBench.h"
#include "tests/support/ManualClock.h"
#include "ui/ClButtonApInfo.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QStringList REFRESH{GET_ONOFF, GET_INFRA_SSID};

}  // namespace

/// What the network page asks for while time passes. On a clock of the test's own.
class NetworkPollingTest : public QObject {
    Q_OBJECT

public:
    explicit NetworkPollingTest(ManualClock& clock) : m_clock(clock) {}

private Q_SLOTS:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void aPageThatWasNeverEnteredIsNotPolled();
    void theTopSubPageIsRefreshed();
    void aSlowCameraIsNotAskedTwiceForTheLink();
    void otherSubPagesAreNotRefreshed_data();
    void otherSubPagesAreNotRefreshed();
    void theAdhocTabIsNotPolled();
    void theAdhocTabShownAgainLearnsOfTheWifiOnly();
    void leavingTheAdhocTabStartsThePollingAgain();
    void aHiddenPageIsNotPolled();
    void behindABoxNothingIsPolled();
    void theTopSubPageStopsAndStartsThePolling();

private:
    /// Enters the page as the main window does.
    void enter() {
        m_bench->page.showInit(false);
        answerTop();
        m_bench->takeSent();
    }
    void answerTop() {
        m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_SSID, u"Harbour"_s);
        m_bench->answer(USB_RES_NUBO_CMD_GET_WIFI_INFO, 1U);
    }
    [[nodiscard]] QStringList sentAfter(std::chrono::milliseconds time) {
        m_bench->takeSent();
        m_clock.advance(time);
        return m_bench->takeSent();
    }

    ManualClock& m_clock;
    std::optional<NetworkBench> m_bench;
};

void NetworkPollingTest::aPageThatWasNeverEnteredIsNotPolled() {
    QCOMPARE(sentAfter(20s), QStringList());
}

void NetworkPollingTest::theTopSubPageIsRefreshed() {
    enter();
    QCOMPARE(sentAfter(4999ms), QStringList());
    QCOMPARE(sentAfter(1ms), REFRESH);
    answerTop();
    QCOMPARE(sentAfter(5s), REFRESH);
}

void NetworkPollingTest::aSlowCameraIsNotAskedTwiceForTheLink() {
    enter();
    QCOMPARE(sentAfter(15s), (REFRESH + QStringList{GET_ONOFF, GET_ONOFF}));
}

void NetworkPollingTest::otherSubPagesAreNotRefreshed_data() {
    QTest::addColumn<QString>("name");
    QTest::newRow("search") << u"AP search and setting"_s;
    QTest::newRow("manual") << u"AP manual setting"_s;
    QTest::newRow("DHCP") << u"DHCP"_s;
}

void NetworkPollingTest::otherSubPagesAreNotRefreshed() {
    QFETCH(const QString, name);
    enter();
    if (name == "DHCP"_L1) {
        QTest::mouseClick(m_bench->page.findChild<ClButtonApInfo*>(), Qt::LeftButton);
    } else {
        m_bench->user.click(name);
    }
    QCOMPARE(sentAfter(10s), (QStringList{GET_ONOFF, GET_ONOFF}));
    m_bench->user.click(u"Back"_s);
    answerTop();
    QCOMPARE(sentAfter(5s), REFRESH);
}

void NetworkPollingTest::theAdhocTabIsNotPolled() {
    enter();
    m_bench->network.clickTab(ADHOC);
    QCOMPARE(sentAfter(20s), QStringList());
}

void NetworkPollingTest::theAdhocTabShownAgainLearnsOfTheWifiOnly() {
    enter();
    m_bench->network.clickTab(ADHOC);
    m_bench->page.showInit(false);
    m_bench->answerOnOff(true);
    m_bench->answerMode(2);
    m_bench->user.type(u"IP Address"_s, u"10.1.2.3"_s);
    QVERIFY(m_bench->network.box(ADHOC).isChecked());
    QCOMPARE(sentAfter(10s), (QStringList{GET_ONOFF, GET_ONOFF}));
    // The camera has switched Wi-Fi off by itself.
    m_bench->answerOnOff(false);
    QVERIFY(!m_bench->network.box(ADHOC).isChecked());
    QCOMPARE(m_bench->user.edit(u"IP Address"_s).text(), u"10.1.2.3"_s);
}

void NetworkPollingTest::leavingTheAdhocTabStartsThePollingAgain() {
    enter();
    m_bench->network.clickTab(ADHOC);
    m_clock.advance(4s);
    m_bench->user.click(u"Back"_s);
    answerTop();
    QCOMPARE(sentAfter(4999ms), QStringList());
    QCOMPARE(sentAfter(1ms), REFRESH);
}

void NetworkPollingTest::aHiddenPageIsNotPolled() {
    enter();
    m_bench->page.hide();
    QCOMPARE(sentAfter(20s), QStringList());
    m_bench->page.show();
    QCOMPARE(sentAfter(5s), REFRESH);
}

void NetworkPollingTest::behindABoxNothingIsPolled() {
    enter();
    QStringList sent;
    m_bench->boxes.setAction([&](QWidget& box) {
        sent = sentAfter(20s);
        rejectBox(box);
    });
    m_bench->user.click(u"AP manual setting"_s);
    m_bench->user.type(u"SSID"_s, u"Harbour"_s);
    m_bench->user.click(u"Decision"_s);
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    QCOMPARE(sent, QStringList());
    QCOMPARE(sentAfter(5s), QStringList{GET_ONOFF});
}

void NetworkPollingTest::theTopSubPageStopsAndStartsThePolling() {
    enter();
    m_bench->page.slotStopPolling();
    QCOMPARE(sentAfter(20s), QStringList());
    g_bIsShowError = true;
    m_bench->page.slotStartPolling();
    QVERIFY(!g_bIsShowError);
    QCOMPARE(sentAfter(5s), REFRESH);
}

const TestSubject registered = subjectOnManualClock<NetworkPollingTest>();

#include "NetworkPollingTest.moc"
