// SPDX-License-Identifier: MIT
//
// Watches for the first window to be on the screen. Hooks itself in by the application object's
// construction: the programs that are watched know nothing of it.

#include "bench/Output.h"
#include "bench/Scene.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

#include <time.h>

#include <chrono>
#include <cstdlib>

namespace {

/// Processor time of all threads until now.
double processorMilliseconds() {
    timespec used{};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &used);
    const auto time = std::chrono::seconds(used.tv_sec) + std::chrono::nanoseconds(used.tv_nsec);
    return std::chrono::duration<double, std::milli>(time).count();
}

class FirstPaint : public QObject {
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::Paint && watched->isWidgetType() &&
            static_cast<QWidget*>(watched)->isWindow()) {
            QCoreApplication::instance()->removeEventFilter(this);
            checkIsExpected(*static_cast<QWidget*>(watched));
            // The event only fills the backing store. By the next turn of the event loop the
            // children are painted too and the picture has gone to the display.
            QTimer::singleShot(0, this, &FirstPaint::report);
        }
        return false;
    }

private:
    /// Ends the process if @p window is another one: the message of a start that was refused.
    static void checkIsExpected(const QWidget& window) {
        if (window.size() != bench::WINDOW_SIZE) {
            std::fputs("Another window came first: is the tool running already?\n", stderr);
            std::_Exit(EXIT_FAILURE);
        }
    }

    static void report() {
        const std::chrono::nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
        const std::chrono::nanoseconds started(
            qEnvironmentVariable(bench::STARTED_VARIABLE).toLongLong());
        const std::chrono::duration<double, std::milli> taken = now - started;
        bench::print({
            {bench::PASSED, taken.count()},
            {bench::COMPUTED, processorMilliseconds()},
        });
        QCoreApplication::quit();
    }
};

void watch() {
    if (qgetenv(bench::SCENE_VARIABLE) == bench::FIRST_PAINT_SCENE) {
        QCoreApplication* application = QCoreApplication::instance();
        application->installEventFilter(new FirstPaint(application));
    }
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
