// SPDX-License-Identifier: MIT
//
// The memory of the empty window, once it has nothing more to do.

#include "bench/Output.h"
#include "bench/PrivateMemory.h"
#include "bench/Scene.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>

namespace {

using namespace std::chrono_literals;

void waitAndMeasure() {
    if (qgetenv(bench::SCENE_VARIABLE) == bench::MEMORY_SCENE) {
        QTimer::singleShot(1s, QCoreApplication::instance(), [] {
            bench::print({{bench::SETTLED, bench::privateMemory()}});
            QCoreApplication::quit();
        });
    }
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(waitAndMeasure)
