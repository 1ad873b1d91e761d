// SPDX-License-Identifier: MIT
#include "simulator/Scheduler.h"
#include "tests/support/TestSubject.h"

#include <QTest>

#include <atomic>
#include <future>

using namespace nubo::simulator;
using namespace std::chrono_literals;

class SchedulerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void runsActionsInTheOrderOfTheirTimes();
    void settlingWaitsForTheActionThatRuns();
    void settlingDropsWhatIsStillToComeAndGoesOn();
};

void SchedulerTest::runsActionsInTheOrderOfTheirTimes() {
    Scheduler scheduler;
    std::vector<int> order;
    std::promise<void> done;
    scheduler.runAfter(40ms, [&] {
        order.push_back(2);
        done.set_value();
    });
    scheduler.runAfter(0ms, [&] { order.push_back(1); });
    done.get_future().wait();
    QCOMPARE(order, (std::vector<int>{1, 2}));
}

void SchedulerTest::settlingWaitsForTheActionThatRuns() {
    Scheduler scheduler;
    std::promise<void> begun;
    std::promise<void> mayEnd;
    std::atomic<bool> hasEnded = false;
    scheduler.runAfter(0ms, [&] {
        begun.set_value();
        mayEnd.get_future().wait();
        hasEnded = true;
    });
    begun.get_future().wait();
    auto settling = std::async(std::launch::async, [&] {
        scheduler.settle();
        return hasEnded.load();
    });
    QCOMPARE(settling.wait_for(50ms), std::future_status::timeout);
    mayEnd.set_value();
    QVERIFY(settling.get());
}

void SchedulerTest::settlingDropsWhatIsStillToComeAndGoesOn() {
    Scheduler scheduler;
    std::atomic<bool> wasDropped = true;
    scheduler.runAfter(30ms, [&] { wasDropped = false; });
    scheduler.settle();
    std::promise<void> later;
    scheduler.runAfter(60ms, [&] { later.set_value(); });
    later.get_future().wait();
    QVERIFY(wasDropped);
}

const TestSubject registered = subjectWithoutApplication<SchedulerTest>();
#include "SchedulerTest.moc"
