// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/TestSubject.h"

#include <QAbstractEventDispatcher>

#include <chrono>
#include <vector>

/// An event dispatcher whose time goes on only on demand, or when somebody waits, as a modal dialog
/// does: timers of seconds are tested to the millisecond and without waiting.
class ManualClock : public QAbstractEventDispatcher {
    Q_OBJECT

public:
    /// Lets @p time pass; every timer that falls due meanwhile fires at its own moment.
    void advance(std::chrono::milliseconds time);
    /// How many timers run on objects that are not widgets: those of QTimer.
    [[nodiscard]] int runningTimers() const;

    bool processEvents(QEventLoop::ProcessEventsFlags flags) override;
    void registerSocketNotifier(QSocketNotifier* notifier) override;
    void unregisterSocketNotifier(QSocketNotifier* notifier) override;
    void registerTimer(int timerId, qint64 interval, Qt::TimerType timerType,
                       QObject* object) override;
    bool unregisterTimer(int timerId) override;
    bool unregisterTimers(QObject* object) override;
    [[nodiscard]] QList<TimerInfo> registeredTimers(QObject* object) const override;
    int remainingTime(int timerId) override;
    void wakeUp() override;
    void interrupt() override;

private:
    struct stTimer {
        int id;
        qint64 interval;
        qint64 due;
        Qt::TimerType type;
        QObject* object;
    };

    /// Fires the timer that is due next, unless that is after @p end.
    bool fireNext(qint64 end);

    std::vector<stTimer> m_timers;
    qint64 m_now = 0;  // milliseconds
};

/// Runs a test on a clock of its own: @p Test is made with the clock.
template <class Test>
[[nodiscard]] TestSubject subjectOnManualClock() {
    return {Test::staticMetaObject.className(), [](int argc, char** argv) {
                auto* const clock = new ManualClock;  // the application object takes it over
                QCoreApplication::setEventDispatcher(clock);
                const QApplication application(argc, argv);
                installAccessibility();
                QCoreApplication::setApplicationName(QStringLiteral("Test program"));
                Test test(*clock);
                return QTest::qExec(&test, argc, argv);
            }};
}
