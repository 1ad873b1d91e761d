// SPDX-License-Identifier: MIT
// Asks the cameras on the bus what the lines of the standard input say, by plain libusb calls, and
// answers each line with one line on the standard output:
//     count        how many cameras there are
//     serials      the serial numbers that the cameras' string descriptors hold, with commas
//     between battery      the charge that the first camera reports, or libusb's error code restart
//     sends the first camera the command to restart; libusb's error code
#include <libusb.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

namespace {

using Handle = std::unique_ptr<libusb_device_handle, decltype(&libusb_close)>;
using Bytes = std::vector<std::uint8_t>;

constexpr unsigned TIMEOUT = 20'000;
constexpr std::size_t DATA_HEAD = 12;
constexpr std::size_t SECOND_PARAMETER = 16;

/// The devices of the cameras' identity.
class Cameras {
public:
    explicit Cameras(libusb_context* context) {
        const auto count = libusb_get_device_list(context, &m_list);
        for (ssize_t i = 0; i < count; ++i) {
            libusb_device_descriptor descriptor{};
            libusb_get_device_descriptor(m_list[i], &descriptor);
            if (descriptor.idVendor == NUBO_USB_VENDOR_ID) {
                m_cameras.push_back(m_list[i]);
            }
        }
    }
    ~Cameras() { libusb_free_device_list(m_list, 1); }
    Cameras(const Cameras&) = delete;
    Cameras& operator=(const Cameras&) = delete;

    const std::vector<libusb_device*>& devices() const { return m_cameras; }

private:
    libusb_device** m_list = nullptr;
    std::vector<libusb_device*> m_cameras;
};

/// Libusb's error code, and the handle if there is none.
struct Opened {
    int error = LIBUSB_ERROR_NO_DEVICE;
    Handle handle{nullptr, libusb_close};
};

Opened open(libusb_device* device) {
    libusb_device_handle* handle = nullptr;
    const int error = libusb_open(device, &handle);
    return {error, Handle(error == 0 ? handle : nullptr, libusb_close)};
}

Opened openFirst(libusb_context* context) {
    const Cameras cameras(context);
    return cameras.devices().empty() ? Opened{} : open(cameras.devices().front());
}

Opened claimFirst(libusb_context* context) {
    Opened opened = openFirst(context);
    if (opened.error == 0) {
        opened.error = libusb_claim_interface(opened.handle.get(), 0);
    }
    return opened;
}

std::string serialNumbers(libusb_context* context) {
    std::string numbers;
    const Cameras cameras(context);
    for (libusb_device* const device : cameras.devices()) {
        libusb_device_descriptor descriptor{};
        libusb_get_device_descriptor(device, &descriptor);
        const Opened opened = open(device);
        std::array<unsigned char, 255> text{};
        if (opened.error == 0 &&
            libusb_get_string_descriptor_ascii(opened.handle.get(), descriptor.iSerialNumber,
                                               text.data(), static_cast<int>(text.size())) > 0) {
            numbers += numbers.empty() ? "" : ",";
            numbers.append(text.begin(), std::ranges::find(text, 0));
        }
    }
    return numbers;
}

int send(const Handle& handle, Bytes bytes) {
    int moved = 0;
    return libusb_bulk_transfer(handle.get(), 0x02, bytes.data(), static_cast<int>(bytes.size()),
                                &moved, TIMEOUT);
}

/// The next packet; empty when none comes.
Bytes receive(const Handle& handle) {
    Bytes room(1024);
    int moved = 0;
    const int error = libusb_bulk_transfer(handle.get(), 0x81, room.data(),
                                           static_cast<int>(room.size()), &moved, TIMEOUT);
    room.resize(error == 0 ? static_cast<std::size_t>(moved) : 0);
    return room;
}

/// A command with one parameter.
Bytes command(unsigned code, std::uint8_t parameter = 0) {
    Bytes packet = {0, 0, 1, 0, 32};
    packet.resize(32);
    packet[8] = static_cast<std::uint8_t>(code);
    packet[9] = static_cast<std::uint8_t>(code >> 8);
    packet[12] = parameter;
    return packet;
}

/// Sends a command to the first camera and fetches its answer; libusb's error code.
int ask(libusb_context* context, unsigned code, Bytes& answer) {
    const Opened camera = claimFirst(context);
    if (camera.error != 0) {
        return camera.error;
    }
    const int error = send(camera.handle, command(code));
    if (error != 0) {
        return error;
    }
    answer.resize(1024);
    int moved = 0;
    return libusb_bulk_transfer(camera.handle.get(), 0x81, answer.data(),
                                static_cast<int>(answer.size()), &moved, TIMEOUT);
}

int charge(libusb_context* context) {
    Bytes answer;
    const int error = ask(context, 0x5037, answer);
    return error == 0 ? int{answer[SECOND_PARAMETER]} : error;
}

/// The picture's bytes in hexadecimal: a picture that fits into one packet.
std::string picture(libusb_context* context) {
    const Opened camera = claimFirst(context);
    send(camera.handle, command(0x3001));
    receive(camera.handle);
    const Bytes data = receive(camera.handle);
    std::string text;
    for (std::size_t i = DATA_HEAD; i < data.size(); ++i) {
        std::array<char, 3> digits{};
        std::snprintf(digits.data(), digits.size(), "%02x", static_cast<unsigned>(data[i]));
        text += digits.data();
    }
    return text;
}

/// Sends an image of three bytes and applies it; the camera's result of both, 0 for success.
int update(libusb_context* context) {
    const Opened camera = claimFirst(context);
    const auto result = [&] {
        const Bytes answer = receive(camera.handle);
        return answer.size() < 32 ? -1 : answer[8] | answer[9] << 8;
    };
    send(camera.handle, command(0x2001, 3));
    send(camera.handle, {2, 0, 1, 0, 3, 0, 0, 0, 'A', 'B', 'C'});
    if (const int sent = result(); sent != 0) {
        return sent;
    }
    send(camera.handle, command(0x2002, 2));
    return result();
}

/// Asks all cameras for their charge before it fetches the first answer; how many answer.
int askAll(libusb_context* context) {
    std::vector<Opened> opened;
    const Cameras cameras(context);
    for (libusb_device* const device : cameras.devices()) {
        opened.push_back(open(device));
        libusb_claim_interface(opened.back().handle.get(), 0);
        send(opened.back().handle, command(0x5037));
    }
    return static_cast<int>(std::ranges::count_if(
        opened, [](const Opened& camera) { return receive(camera.handle).size() == 32; }));
}

std::string run(libusb_context* context, const std::string& line) {
    Bytes answer;
    if (line == "count") {
        return std::to_string(Cameras(context).devices().size());
    }
    if (line == "serials") {
        return serialNumbers(context);
    }
    if (line == "open") {
        return std::to_string(openFirst(context).error);
    }
    if (line == "battery") {
        return std::to_string(charge(context));
    }
    if (line == "picture") {
        return picture(context);
    }
    if (line == "update") {
        return std::to_string(update(context));
    }
    if (line == "all") {
        return std::to_string(askAll(context));
    }
    return std::to_string(ask(context, 0x6802, answer));
}

}  // namespace

int main() {
    libusb_context* context = nullptr;
    if (libusb_init(&context) != 0) {
        return 1;
    }
    for (std::string line; std::getline(std::cin, line);) {
        std::cout << run(context, line) << std::endl;
    }
    libusb_exit(context);
    return 0;
}
