// SPDX-License-Identifier: MIT
//
// A large picture through the USB manager against the same transfers by plain libusb calls. Runs on
// a bus with two cameras, as PlainGet does, both with such a picture.

#include "bench/ManagedCamera.h"
#include "bench/Output.h"
#include "bench/PlainCamera.h"
#include "bench/Statistics.h"
#include "protocol/DataPackets.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"

#include <QCoreApplication>

#include <cstdlib>

namespace {

constexpr int BLOCKS = 7;
/// A packet of 1 KiB takes about a millisecond on this bus.
constexpr qsizetype PICTURE_SIZE = 1024 * 1024;
constexpr int DATA_HEAD_SIZE = 12;

bool readManaged(bench::ManagedCamera& camera) {
    ClNuboCommandReqJpeg command;
    ClNuboCommandDataReceive data;
    return camera.manager().execNuboDataRead(command, data, camera.controller()) ==
               USB_ERROR_SUCCESS &&
           data.receivedData().size() == PICTURE_SIZE;
}

bool readPlain(bench::PlainCamera& camera) {
    QByteArray packet = ClNuboCommandReqJpeg().getData();
    if (!camera.write(packet) || camera.read() < 0 || camera.parameter(1) != PICTURE_SIZE) {
        return false;
    }
    qsizetype left = DATA_HEAD_SIZE + PICTURE_SIZE;
    while (left > 0) {
        const int size = camera.read();
        if (size <= 0) {
            return false;
        }
        left -= size;
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    // The plain side takes its camera first: the manager passes over one that is taken.
    bench::PlainCamera plain;
    bench::ManagedCamera managed;
    if (!plain.open() || !managed.open()) {
        return EXIT_FAILURE;
    }

    bool areAllWhole = true;
    bench::stPairs<double> pairs;
    managed.runOnWorker([&] {
        pairs = bench::compare(
            BLOCKS, bench::timed(1, [&] { areAllWhole = readManaged(managed) && areAllWhole; }),
            bench::timed(1, [&] { areAllWhole = readPlain(plain) && areAllWhole; }));
    });
    bench::print(bench::ratioOf(pairs, QStringLiteral("us")));
    return areAllWhole ? EXIT_SUCCESS : EXIT_FAILURE;
}
