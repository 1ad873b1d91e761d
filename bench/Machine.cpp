// SPDX-License-Identifier: MIT
#include "bench/Machine.h"

#include <chrono>
#include <fstream>
#include <string>
#include <thread>

namespace bench {

namespace {

using namespace std::chrono_literals;

constexpr auto WATCH_TIME = 1s;
constexpr double BUSY_SHARE = 0.15;

/// Processor time since the computer was started, in the kernel's ticks.
struct stTicks {
    double all = 0;
    double idle = 0;
};

stTicks readTicks() {
    std::ifstream file("/proc/stat");
    std::string label;
    double user = 0;
    double nice = 0;
    double system = 0;
    double idle = 0;
    double waiting = 0;
    file >> label >> user >> nice >> system >> idle >> waiting;
    return {user + nice + system + idle + waiting, idle + waiting};
}

}  // namespace

QJsonObject watchMachine() {
    const stTicks before = readTicks();
    std::this_thread::sleep_for(WATCH_TIME);
    const stTicks after = readTicks();
    const double passed = after.all - before.all;
    return {
        {QStringLiteral("cores"), static_cast<int>(std::thread::hardware_concurrency())},
        {QStringLiteral("busy"), passed > 0 ? 1 - (after.idle - before.idle) / passed : 0},
    };
}

bool isBusy(const QJsonObject& machine) {
    return machine.value(QStringLiteral("busy")).toDouble() > BUSY_SHARE;
}

}  // namespace bench
