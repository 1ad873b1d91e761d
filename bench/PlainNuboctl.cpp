// SPDX-License-Identifier: MIT
//
// The yardstick for nuboctl: the least that a program does which gets one value, or a picture, from
// the first camera. libusb and nothing else.

#include <libusb.h>

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace {

constexpr unsigned int TIMEOUT_MS = 3000;
constexpr std::uint8_t GET_BATTERY = 0x37;
constexpr std::uint8_t GET_PICTURE = 0x01;
constexpr int ANSWER_SIZE = 32;
constexpr int DATA_HEAD_SIZE = 12;

using Packet = std::array<unsigned char, 1024>;

struct stCamera {
    libusb_device_handle* handle = nullptr;
    unsigned char in = 0;
    unsigned char out = 0;
};

bool open(libusb_context* context, stCamera& camera) {
    camera.handle =
        libusb_open_device_with_vid_pid(context, NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID);
    libusb_config_descriptor* found = nullptr;
    if (camera.handle == nullptr || libusb_claim_interface(camera.handle, 0) != LIBUSB_SUCCESS ||
        libusb_get_config_descriptor(libusb_get_device(camera.handle), 0, &found) !=
            LIBUSB_SUCCESS) {
        return false;
    }
    const std::unique_ptr<libusb_config_descriptor, decltype(&libusb_free_config_descriptor)>
        config(found, libusb_free_config_descriptor);
    const libusb_interface_descriptor& setting = config->interface[0].altsetting[0];
    for (int i = 0; i < setting.bNumEndpoints; ++i) {
        const unsigned char address = setting.endpoint[i].bEndpointAddress;
        ((address & LIBUSB_ENDPOINT_IN) != 0 ? camera.in : camera.out) = address;
    }
    return true;
}

int receive(const stCamera& camera, Packet& packet) {
    int moved = 0;
    const int result = libusb_bulk_transfer(camera.handle, camera.in, packet.data(),
                                            static_cast<int>(packet.size()), &moved, TIMEOUT_MS);
    return result == LIBUSB_SUCCESS ? moved : -1;
}

/// Sends the command of these two bytes and takes its answer.
bool ask(const stCamera& camera, std::uint8_t low, std::uint8_t high, Packet& answer) {
    std::array<unsigned char, ANSWER_SIZE> command{0, 0, 0x21, 0x43, ANSWER_SIZE,
                                                   0, 0, 0,    low,  high};
    int moved = 0;
    return libusb_bulk_transfer(camera.handle, camera.out, command.data(), ANSWER_SIZE, &moved,
                                TIMEOUT_MS) == LIBUSB_SUCCESS &&
           receive(camera, answer) == ANSWER_SIZE;
}

std::uint32_t number(const Packet& packet, std::size_t place) {
    return static_cast<std::uint32_t>(packet[place]) | packet[place + 1] << 8U |
           packet[place + 2] << 16U | static_cast<std::uint32_t>(packet[place + 3]) << 24U;
}

bool tellCharge(const stCamera& camera) {
    Packet answer;
    return ask(camera, GET_BATTERY, 0x50, answer) &&
           std::printf("battery.charge = %u\n", number(answer, 16)) > 0;
}

bool writePicture(const stCamera& camera) {
    Packet packet;
    if (!ask(camera, GET_PICTURE, 0x30, packet)) {
        return false;
    }
    std::uint32_t left = number(packet, 12);
    for (int head = DATA_HEAD_SIZE; left > 0; head = 0) {
        const int size = receive(camera, packet) - head;
        if (size <= 0 || std::fwrite(packet.data() + head, 1, static_cast<std::size_t>(size),
                                     stdout) != static_cast<std::size_t>(size)) {
            return false;
        }
        left -= static_cast<std::uint32_t>(size);
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    libusb_context* context = nullptr;
    stCamera camera;
    bool isDone = libusb_init(&context) == LIBUSB_SUCCESS && open(context, camera);
    if (isDone) {
        const bool wantsPicture = argc > 1 && std::strcmp(argv[1], "picture") == 0;
        isDone = wantsPicture ? writePicture(camera) : tellCharge(camera);
    }
    if (camera.handle != nullptr) {
        libusb_close(camera.handle);
    }
    libusb_exit(context);
    return isDone ? EXIT_SUCCESS : EXIT_FAILURE;
}
