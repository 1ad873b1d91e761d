// SPDX-License-Identifier: MIT
#include "tests/support/ManualClock.h"
#include "ui/ClWidgetBase.h"

#include <QDialog>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace std::chrono_literals;

namespace {

class RecordingPage : public ClWidgetBase {
public:
    void showInit(bool fromPolling) override { m_shown.append(fromPolling); }

    QList<bool> m_shown;  // the flags that showInit() was called with
};

}  // namespace

/// How a page polls, on a clock of the test's own.
class PollingTest : public QObject {
    Q_OBJECT

public:
    explicit PollingTest(ManualClock& clock) : m_clock(clock) {}

private Q_SLOTS:
    void init() {
        m_page = std::make_unique<RecordingPage>();
        m_page->show();
    }
    void cleanup() { m_page.reset(); }

    void isIdleAfterConstruction();
    void refreshesEveryFiveSeconds();
    void keepsItsPhaseWhenStartedAgain();
    void stops();
    void stopsWhenIdle();
    void restartsWithANewPhase();
    void refreshesNothingWhileHidden();
    void refreshesNothingBehindAModalBox();
    void stopsWithThePage();

private:
    ManualClock& m_clock;
    std::unique_ptr<RecordingPage> m_page;
};

void PollingTest::isIdleAfterConstruction() {
    QCOMPARE(m_clock.runningTimers(), 0);
    m_clock.advance(20s);
    QVERIFY(m_page->m_shown.isEmpty());
}

void PollingTest::refreshesEveryFiveSeconds() {
    m_page->startPolling();
    m_clock.advance(4999ms);
    QVERIFY(m_page->m_shown.isEmpty());
    m_clock.advance(1ms);
    QCOMPARE(m_page->m_shown, QList<bool>{true});
    m_clock.advance(10s);
    QCOMPARE(m_page->m_shown, QList<bool>(3, true));
}

void PollingTest::keepsItsPhaseWhenStartedAgain() {
    m_page->startPolling();
    m_clock.advance(3s);
    m_page->startPolling();
    QCOMPARE(m_clock.runningTimers(), 1);
    m_clock.advance(2s);
    QCOMPARE(m_page->m_shown.size(), 1);
    m_clock.advance(4999ms);
    QCOMPARE(m_page->m_shown.size(), 1);
}

void PollingTest::stops() {
    m_page->startPolling();
    m_clock.advance(5s);
    m_page->stopPolling();
    QCOMPARE(m_clock.runningTimers(), 0);
    m_clock.advance(20s);
    QCOMPARE(m_page->m_shown.size(), 1);
}

void PollingTest::stopsWhenIdle() {
    m_page->stopPolling();
    QCOMPARE(m_clock.runningTimers(), 0);
    m_page->startPolling();
    m_clock.advance(5s);
    QCOMPARE(m_page->m_shown.size(), 1);
}

void PollingTest::restartsWithANewPhase() {
    m_page->startPolling();
    m_clock.advance(3s);
    m_page->stopPolling();
    m_page->startPolling();
    m_clock.advance(4999ms);
    QVERIFY(m_page->m_shown.isEmpty());
    m_clock.advance(1ms);
    QCOMPARE(m_page->m_shown.size(), 1);
}

void PollingTest::refreshesNothingWhileHidden() {
    QSignalSpy sent(m_page.get(), &ClWidgetBase::sigSendCommand);
    m_page->startPolling();
    m_page->hide();
    m_clock.advance(10s);
    QVERIFY(m_page->m_shown.isEmpty());
    QVERIFY(sent.isEmpty());
    QCOMPARE(m_clock.runningTimers(), 1);

    m_page->show();
    m_clock.advance(5s);
    QCOMPARE(m_page->m_shown, QList<bool>{true});
}

void PollingTest::refreshesNothingBehindAModalBox() {
    m_page->startPolling();
    QDialog box(m_page.get());
    box.open();
    m_clock.advance(10s);
    QVERIFY(m_page->m_shown.isEmpty());
    box.reject();
    m_clock.advance(5s);
    QCOMPARE(m_page->m_shown, QList<bool>{true});
}

void PollingTest::stopsWithThePage() {
    m_page->startPolling();
    m_page.reset();
    QCOMPARE(m_clock.runningTimers(), 0);
}

const TestSubject registered = subjectOnManualClock<PollingTest>();

#include "PollingTest.moc"
