// SPDX-License-Identifier: MIT
//
// One search pass of the USB manager, its camera open already, against reading the device list and
// the descriptor of each device by plain libusb calls.

#include "bench/ManagedCamera.h"
#include "bench/Output.h"
#include "bench/Statistics.h"
#include "usb/LibusbOwners.h"

#include <QCoreApplication>

#include <cstdlib>

namespace {

constexpr int BLOCKS = 41;
constexpr int PASSES = 2000;

void readDevices(libusb_context* context) {
    libusb_device** list = nullptr;
    const ssize_t count = libusb_get_device_list(context, &list);
    for (ssize_t i = 0; i < count; ++i) {
        libusb_device_descriptor descriptor{};
        libusb_get_device_descriptor(list[i], &descriptor);
    }
    libusb_free_device_list(list, 1);
}

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    bench::ManagedCamera camera;
    libusb_context* context = nullptr;
    if (!camera.open() || libusb_init(&context) != LIBUSB_SUCCESS) {
        return EXIT_FAILURE;
    }
    const LibusbContext plain(context);

    bench::stPairs<double> pairs;
    camera.runOnWorker([&] {
        pairs = bench::compare(BLOCKS,
                               bench::timed(PASSES, [&camera] { camera.manager().openDevice(); }),
                               bench::timed(PASSES, [&plain] { readDevices(plain.get()); }));
    });
    bench::print(bench::ratioOf(pairs, QStringLiteral("us")));
    return EXIT_SUCCESS;
}
