// SPDX-License-Identifier: MIT
//
// A get command through the USB manager against the same write and read by plain libusb calls. Runs
// on a bus with two cameras: a claimed interface cannot be claimed again, so that each side has its
// own.

#include "bench/ManagedCamera.h"
#include "bench/Output.h"
#include "bench/PlainCamera.h"
#include "bench/Statistics.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"

#include <QCoreApplication>

#include <cstdlib>

namespace {

constexpr int BLOCKS = 21;
constexpr int GETS = 100;
constexpr int TIMEOUT_MS = 1000;
}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    // The plain side takes its camera first: the manager passes over one that is taken.
    bench::PlainCamera plain;
    bench::ManagedCamera managed;
    if (!plain.open() || !managed.open()) {
        return EXIT_FAILURE;
    }

    QByteArray packet = ClNuboCommandGetBatteryState().getData();
    bool areAllAnswered = true;
    bench::stPairs<double> pairs;
    const auto managedGet = [&] {
        ClNuboCommandGetBatteryState command;
        const unsigned short result =
            managed.manager().execNuboCommand(command, managed.controller(), TIMEOUT_MS);
        areAllAnswered = areAllAnswered && result == USB_ERROR_SUCCESS;
    };
    const auto plainGet = [&] {
        areAllAnswered = plain.write(packet) && plain.read() > 0 && areAllAnswered;
    };
    managed.runOnWorker([&] {
        pairs =
            bench::compare(BLOCKS, bench::timed(GETS, managedGet), bench::timed(GETS, plainGet));
    });
    bench::print(bench::ratioOf(pairs, QStringLiteral("us")));
    return areAllAnswered ? EXIT_SUCCESS : EXIT_FAILURE;
}
