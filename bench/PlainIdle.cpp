// SPDX-License-Identifier: MIT
//
// What an open camera costs by plain libusb calls: looks at the bus once a second, as the tool
// does, and with --poll asks what the camera state page asks, as often as it does. Runs until it is
// ended.

#include "bench/PlainCamera.h"
#include "protocol/NuboCommands.h"

#include <QByteArray>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <thread>
#include <vector>

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds SEARCH_TIME{1};
constexpr std::chrono::seconds POLLING_TIME{5};

struct stQuestion {
    QByteArray packet;
    int answers;  ///< packets
};

void search(libusb_context* context) {
    const LibusbDeviceList list(context);
    for (libusb_device* const device : list.devices()) {
        libusb_device_descriptor descriptor{};
        static_cast<void>(libusb_get_device_descriptor(device, &descriptor));
    }
}

bool poll(bench::PlainCamera& camera, std::vector<stQuestion>& questions) {
    for (stQuestion& question : questions) {
        if (!camera.write(question.packet)) {
            return false;
        }
        for (int packet = 0; packet < question.answers; ++packet) {
            if (camera.read() < 0) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace

int main(int argc, char** argv) {
    const bool polls = argc > 1 && std::strcmp(argv[1], "--poll") == 0;
    bench::PlainCamera camera;
    if (!camera.open()) {
        return EXIT_FAILURE;
    }
    std::vector<stQuestion> questions = {
        {ClNuboCommandGetBatteryState().getData(), 1},
        {ClNuboCommandGetWifiInfo().getData(), 3},
        {ClNuboCommandGetSdInfo().getData(), 1},
    };
    Clock::time_point searchTime = Clock::now();
    Clock::time_point pollingTime = searchTime;
    while (true) {
        search(camera.context());
        if (polls && pollingTime <= searchTime) {
            if (!poll(camera, questions)) {
                return EXIT_FAILURE;
            }
            pollingTime += POLLING_TIME;
        }
        searchTime += SEARCH_TIME;
        std::this_thread::sleep_until(searchTime);
    }
}
