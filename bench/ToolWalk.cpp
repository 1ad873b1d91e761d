// SPDX-License-Identifier: MIT
//
// Walks through the tool's pages as a user does, by its mode buttons, and measures its memory on
// the camera state page and at the end.

#include "app/ClMainWidget.h"
#include "bench/Output.h"
#include "bench/PrivateMemory.h"
#include "bench/Scene.h"
#include "ui/ClButtonMode.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <optional>

namespace {

using namespace std::chrono_literals;

// A page is at rest when it has got all its answers and has been painted with them: that long after
// the last answer. Shorter than the polling interval.
constexpr auto QUIET_TIME = 700ms;

class ToolWalk : public QObject {
public:
    explicit ToolWalk(QObject* parent) : QObject(parent) {
        m_quiet.setSingleShot(true);
        m_quiet.setInterval(QUIET_TIME);
        connect(&m_quiet, &QTimer::timeout, this, &ToolWalk::leavePage);
        // Runs when the event loop does: the window is there by then.
        QTimer::singleShot(0, this, &ToolWalk::findWindow);
    }

private:
    void findWindow() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (const auto* window = qobject_cast<ClMainWidget*>(widget)) {
                m_modes = window->findChildren<ClButtonMode*>();
                // The first answer on the camera state page starts the clock.
                connect(window, &ClMainWidget::sigReceiveCommand, &m_quiet,
                        qOverload<>(&QTimer::start));
            }
        }
    }

    void leavePage() {
        if (!m_cameraState) {
            m_cameraState = bench::privateMemory();
        }
        if (m_visited < m_modes.size()) {
            m_modes[m_visited++]->click();
            m_quiet.start();
            return;
        }
        bench::print({
            {bench::CAMERA_STATE, *m_cameraState},
            {bench::ALL_PAGES, bench::privateMemory()},
        });
        QCoreApplication::quit();
    }

    QTimer m_quiet;
    QList<ClButtonMode*> m_modes;
    qsizetype m_visited = 1;  ///< mode buttons; the tool itself shows the first page
    std::optional<QJsonObject> m_cameraState;
};

void walk() {
    if (qgetenv(bench::SCENE_VARIABLE) == bench::MEMORY_SCENE) {
        new ToolWalk(QCoreApplication::instance());
    }
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(walk)
