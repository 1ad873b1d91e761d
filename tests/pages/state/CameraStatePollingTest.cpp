// SPDX-License-Identifier: MIT
#include "pages/state/ClWidgetCameraState.h"
#include "tests/pages/PageBench.h"
#include "tests/support/ManualClock.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QString GET_BATTERY = u"USB_REQ_NUBO_CMD_GET_BATTERY"_s;
const QString GET_WIFI = u"USB_REQ_NUBO_CMD_GET_WIFI_INFO"_s;

}  // namespace

/// What the camera state page asks for while time passes. On a clock of the test's own.
class CameraStatePollingTest : public QObject {
    Q_OBJECT

public:
    explicit CameraStatePollingTest(ManualClock& clock) : m_clock(clock) {}

private Q_SLOTS:
    void init() { m_bench.emplace(QSize(600, 505)); }
    void cleanup() { m_bench.reset(); }

    void aPageThatWasNeverEnteredIsNotRefreshed();
    void thePageIsRefreshedEveryFiveSeconds();
    void enteringThePageAgainDoesNotPutOffTheNextRefresh();
    void aHiddenPageIsNotRefreshed();
    void behindABoxNothingIsRefreshed();
    void aRefreshUnderWayIsNotStartedAgain();
    void aCameraErrorLeavesThePollingOn();
    void aLinkErrorStopsThePollingUntilThePageIsEntered();
    void aCameraThatHasGoneLeavesThePollingOn();

private:
    /// Enters the page as the main window does.
    void enter() {
        m_bench->page.showInit(false);
        answerRefresh();
    }
    void answerRefresh() {
        m_bench->page.slotReceiveCommand(batteryAnswer(50));
        m_bench->page.slotReceiveCommand(wifiAnswer(1, 0, 0));
        m_bench->page.slotReceiveCommand(sdAnswer(2, 1, 1));
    }
    [[nodiscard]] QStringList sentAfter(std::chrono::milliseconds time) {
        m_bench->takeSent();
        m_clock.advance(time);
        return m_bench->takeSent();
    }

    ManualClock& m_clock;
    std::optional<PageBench<ClWidgetCameraState>> m_bench;
};

void CameraStatePollingTest::aPageThatWasNeverEnteredIsNotRefreshed() {
    QCOMPARE(sentAfter(20s), QStringList());
}

void CameraStatePollingTest::thePageIsRefreshedEveryFiveSeconds() {
    enter();
    for (int refresh = 0; refresh < 2; ++refresh) {
        QCOMPARE(sentAfter(4999ms), QStringList());
        QCOMPARE(sentAfter(1ms), QStringList{GET_BATTERY});
        answerRefresh();
    }
}

void CameraStatePollingTest::enteringThePageAgainDoesNotPutOffTheNextRefresh() {
    enter();
    m_clock.advance(2500ms);
    enter();
    QCOMPARE(sentAfter(2499ms), QStringList());
    QCOMPARE(sentAfter(1ms), QStringList{GET_BATTERY});
}

void CameraStatePollingTest::aHiddenPageIsNotRefreshed() {
    enter();
    m_bench->page.hide();
    QCOMPARE(sentAfter(20s), QStringList());
    m_bench->page.show();
    QCOMPARE(sentAfter(5s), QStringList{GET_BATTERY});
}

void CameraStatePollingTest::behindABoxNothingIsRefreshed() {
    enter();
    QStringList sent{u"no box"_s};
    m_bench->boxes.setAction([&](QWidget& box) {
        sent = sentAfter(20s);
        rejectBox(box);
    });
    m_bench->user.click(u"SD card format"_s);
    QCOMPARE(sent, QStringList());
    QCOMPARE(sentAfter(5s), QStringList{GET_BATTERY});
}

void CameraStatePollingTest::aRefreshUnderWayIsNotStartedAgain() {
    m_bench->page.showInit(false);
    QCOMPARE(sentAfter(10s), QStringList());
    m_bench->page.slotReceiveCommand(batteryAnswer(50));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_WIFI});
    QCOMPARE(sentAfter(10s), QStringList());
    // Showing the page again asks for fresh values at once.
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_BATTERY});
}

void CameraStatePollingTest::aCameraErrorLeavesThePollingOn() {
    m_bench->page.showInit(false);
    m_bench->respond(USB_REQ_NUBO_CMD_GET_BATTERY, 0xFFF5);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Exec failed, unknown error"_s});
    QCOMPARE(sentAfter(5s), QStringList{GET_BATTERY});
}

void CameraStatePollingTest::aLinkErrorStopsThePollingUntilThePageIsEntered() {
    m_bench->page.showInit(false);
    m_bench->fail(USB_REQ_NUBO_CMD_GET_BATTERY, 0xEF03);
    QCOMPARE(m_bench->boxes.texts(), QStringList{u"Exec failed, unknown error"_s});
    QCOMPARE(sentAfter(20s), QStringList());
    m_bench->page.showInit(false);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_BATTERY});
    answerRefresh();
    QCOMPARE(sentAfter(5s), QStringList{GET_BATTERY});
}

void CameraStatePollingTest::aCameraThatHasGoneLeavesThePollingOn() {
    m_bench->page.showInit(false);
    m_bench->fail(USB_REQ_NUBO_CMD_GET_BATTERY, 0xEF00);
    QCOMPARE(m_bench->boxes.texts(), QStringList());
    QCOMPARE(sentAfter(5s), QStringList{GET_BATTERY});
}

const TestSubject registered = subjectOnManualClock<CameraStatePollingTest>();

#include "CameraStatePollingTest.moc"
