// SPDX-License-Identifier: MIT
//
// A get command through the USB manager against the same write and read by plain libusb calls. Runs
// on a bus with two cameras: a claimed interface cannot be claimed again, so that each side has its
// own.

#include "bench/ManagedCamera.h"
#include "bench/Output.h"
#include "bench/Statistics.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"
#include "usb/LibusbOwners.h"

#include <QCoreApplication>

#include <array>
#include <cstdlib>

namespace {

constexpr int BLOCKS = 21;
constexpr int GETS = 100;
constexpr int TIMEOUT_MS = 1000;
constexpr int READ_SIZE = 1024;

/// A camera with nothing between it and the program but libusb.
class PlainCamera {
public:
    [[nodiscard]] bool open() {
        libusb_context* context = nullptr;
        if (libusb_init(&context) != LIBUSB_SUCCESS) {
            return false;
        }
        m_context.reset(context);
        m_handle.reset(
            libusb_open_device_with_vid_pid(context, NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID));
        if (m_handle == nullptr || libusb_claim_interface(m_handle.get(), 0) != LIBUSB_SUCCESS) {
            return false;
        }
        const LibusbConfig config = readConfig(libusb_get_device(m_handle.get()), 0);
        if (config == nullptr) {
            return false;
        }
        const libusb_interface_descriptor& setting = config->interface[0].altsetting[0];
        for (const auto& endpoint : std::span(setting.endpoint, setting.bNumEndpoints)) {
            const bool isIn = (endpoint.bEndpointAddress & LIBUSB_ENDPOINT_IN) != 0;
            (isIn ? m_in : m_out) = endpoint.bEndpointAddress;
        }
        return true;
    }

    /// @return whether both transfers succeeded
    [[nodiscard]] bool exchange(QByteArray& packet) {
        std::array<unsigned char, READ_SIZE> buffer;
        int moved = 0;
        return libusb_bulk_transfer(
                   m_handle.get(), m_out, reinterpret_cast<unsigned char*>(packet.data()),
                   static_cast<int>(packet.size()), &moved, TIMEOUT_MS) == LIBUSB_SUCCESS &&
               libusb_bulk_transfer(m_handle.get(), m_in, buffer.data(), READ_SIZE, &moved,
                                    TIMEOUT_MS) == LIBUSB_SUCCESS;
    }

private:
    LibusbContext m_context;
    LibusbHandle m_handle;
    unsigned char m_in = 0;
    unsigned char m_out = 0;
};

}  // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    // The plain side takes its camera first: the manager passes over one that is taken.
    PlainCamera plain;
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
    const auto plainGet = [&] { areAllAnswered = plain.exchange(packet) && areAllAnswered; };
    managed.runOnWorker([&] {
        pairs =
            bench::compare(BLOCKS, bench::timed(GETS, managedGet), bench::timed(GETS, plainGet));
    });
    bench::print(bench::ratioOf(pairs, QStringLiteral("us")));
    return areAllAnswered ? EXIT_SUCCESS : EXIT_FAILURE;
}
