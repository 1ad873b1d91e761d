// SPDX-License-Identifier: MIT
// Asks the cameras on the bus what the lines of the standard input say, by plain libusb calls, and
// answers each line with one line on the standard output:
//     count        how many cameras there are
//     serials      the serial numbers that the cameras' string descriptors hold, with commas
//     between battery      the charge that the first camera tells, or libusb's error code restart
//     sends the first camera the command to restart; libusb's error code
#include <libusb.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <iostream>
#include <memory>
#include <string>

namespace {

using Handle = std::unique_ptr<libusb_device_handle, decltype(&libusb_close)>;
using Packet = std::array<std::uint8_t, 32>;

constexpr unsigned TIMEOUT = 10'000;
constexpr std::size_t CODE = 8;
constexpr std::size_t SECOND_PARAMETER = 16;

int countCameras(libusb_context* context) {
    libusb_device** list = nullptr;
    const auto count = libusb_get_device_list(context, &list);
    int cameras = 0;
    for (ssize_t i = 0; i < count; ++i) {
        libusb_device_descriptor descriptor{};
        libusb_get_device_descriptor(list[i], &descriptor);
        cameras += descriptor.idVendor == NUBO_USB_VENDOR_ID ? 1 : 0;
    }
    libusb_free_device_list(list, 1);
    return cameras;
}

std::string serialNumbers(libusb_context* context) {
    libusb_device** list = nullptr;
    const auto count = libusb_get_device_list(context, &list);
    std::string numbers;
    for (ssize_t i = 0; i < count; ++i) {
        libusb_device_descriptor descriptor{};
        libusb_get_device_descriptor(list[i], &descriptor);
        libusb_device_handle* handle = nullptr;
        if (descriptor.iSerialNumber == 0 || libusb_open(list[i], &handle) != 0) {
            continue;
        }
        const Handle owner(handle, libusb_close);
        std::array<unsigned char, 255> text{};
        libusb_get_string_descriptor_ascii(handle, descriptor.iSerialNumber, text.data(),
                                           static_cast<int>(text.size()));
        numbers +=
            (numbers.empty() ? "" : ",") + std::string(text.begin(), std::ranges::find(text, 0));
    }
    libusb_free_device_list(list, 1);
    return numbers;
}

/// Sends a command without parameters and fetches its answer; libusb's error code.
int ask(libusb_context* context, std::uint8_t codeLow, std::uint8_t codeHigh, Packet& answer) {
    const Handle handle(
        libusb_open_device_with_vid_pid(context, NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID),
        libusb_close);
    if (!handle) {
        return LIBUSB_ERROR_NO_DEVICE;
    }
    Packet command{0, 0, 1, 0, sizeof(Packet)};
    command[CODE] = codeLow;
    command[CODE + 1] = codeHigh;
    int moved = 0;
    int error = libusb_claim_interface(handle.get(), 0);
    if (error == 0) {
        error = libusb_bulk_transfer(handle.get(), 0x02, command.data(), sizeof(Packet), &moved,
                                     TIMEOUT);
    }
    std::array<std::uint8_t, 512> room{};
    if (error == 0) {
        error = libusb_bulk_transfer(handle.get(), 0x81, room.data(), room.size(), &moved, TIMEOUT);
    }
    std::copy(room.begin(), room.begin() + sizeof(Packet), answer.begin());
    return error;
}

}  // namespace

int main() {
    libusb_context* context = nullptr;
    if (libusb_init(&context) != 0) {
        return 1;
    }
    for (std::string line; std::getline(std::cin, line);) {
        Packet answer{};
        if (line == "count") {
            std::cout << countCameras(context) << std::endl;
        } else if (line == "serials") {
            std::cout << serialNumbers(context) << std::endl;
        } else if (line == "battery") {
            const int error = ask(context, 0x37, 0x50, answer);
            std::cout << (error == 0 ? int{answer[SECOND_PARAMETER]} : error) << std::endl;
        } else {
            std::cout << ask(context, 0x02, 0x68, answer) << std::endl;
        }
    }
    libusb_exit(context);
    return 0;
}
