// SPDX-License-Identifier: MIT
#include "tests/support/ManualClock.h"

#include <QCoreApplication>
#include <QTimer>
#include <QTimerEvent>

#include <algorithm>
#include <limits>

void ManualClock::advance(std::chrono::milliseconds time) {
    const qint64 end = m_now + time.count();
    while (fireNext(end)) {
    }
    // A timer that had somebody wait may have taken longer.
    m_now = std::max(m_now, end);
}

bool ManualClock::fireNext(qint64 end) {
    const auto next = std::ranges::min_element(m_timers, {}, &stTimer::due);
    if (next == m_timers.end() || next->due > end) {
        return false;
    }
    m_now = next->due;
    next->due += next->interval;
    QTimerEvent event(next->id);
    QCoreApplication::sendEvent(next->object, &event);
    return true;
}

int ManualClock::runningTimers() const {
    return static_cast<int>(std::ranges::count_if(m_timers, [](const stTimer& timer) {
        return qobject_cast<QTimer*>(timer.object) != nullptr;
    }));
}

bool ManualClock::processEvents(QEventLoop::ProcessEventsFlags flags) {
    QCoreApplication::sendPostedEvents();
    return flags.testFlag(QEventLoop::WaitForMoreEvents) &&
           fireNext(std::numeric_limits<qint64>::max());
}

void ManualClock::registerSocketNotifier(QSocketNotifier*) {}

void ManualClock::unregisterSocketNotifier(QSocketNotifier*) {}

void ManualClock::registerTimer(int timerId, qint64 interval, Qt::TimerType timerType,
                                QObject* object) {
    // At least a millisecond: time would not get past a timer of none.
    const qint64 step = std::max<qint64>(interval, 1);
    m_timers.push_back({timerId, step, m_now + step, timerType, object});
}

bool ManualClock::unregisterTimer(int timerId) {
    return std::erase_if(m_timers, [&](const stTimer& timer) { return timer.id == timerId; }) > 0;
}

bool ManualClock::unregisterTimers(QObject* object) {
    return std::erase_if(m_timers, [&](const stTimer& timer) { return timer.object == object; }) >
           0;
}

QList<QAbstractEventDispatcher::TimerInfo> ManualClock::registeredTimers(QObject* object) const {
    QList<TimerInfo> found;
    for (const stTimer& timer : m_timers) {
        if (timer.object == object) {
            found.append(TimerInfo(timer.id, static_cast<int>(timer.interval), timer.type));
        }
    }
    return found;
}

int ManualClock::remainingTime(int timerId) {
    const auto found = std::ranges::find(m_timers, timerId, &stTimer::id);
    return found == m_timers.end() ? -1 : static_cast<int>(found->due - m_now);
}

void ManualClock::wakeUp() {}

void ManualClock::interrupt() {}
