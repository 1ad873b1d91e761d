// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualUsbBus.h"
#include "tests/simulator/ScriptedDevice.h"
#include "tests/simulator/UsbHost.h"

#include <QElapsedTimer>

#include <algorithm>
#include <chrono>
#include <memory>
#include <utility>

namespace nubo::simulator {

/// A bus, a device to plug in, and a libusb that looks at the bus; destroyed in the right order.
struct BusBench {
    static constexpr std::chrono::milliseconds PATIENCE{PATIENCE_MS};

    std::shared_ptr<ScriptedDevice> device = std::make_shared<ScriptedDevice>();
    VirtualUsbBus bus{};
    LibusbContext context = newLibusbContext();

    ~BusBench() { bus.settle(); }

    DeviceId plug(const DeviceOptions& options = {}) { return bus.plug(device, options); }

    /// A handle on the device, as soon as libusb knows of it; null when it cannot be opened.
    LibusbHandle open(DeviceId id) const {
        const int number = bus.deviceNumber(id).value_or(0);
        libusb_device_handle* handle = nullptr;
        passUntil([&](const LibusbDeviceList& list) {
            const auto found = std::ranges::find(list.devices(), number, libusb_get_device_address);
            if (found == list.devices().end()) {
                return false;
            }
            libusb_open(*found, &handle);
            return true;
        });
        return LibusbHandle(handle);
    }

    /// A handle that has claimed interface 0, or null.
    LibusbHandle openClaimed(DeviceId id) const {
        LibusbHandle handle = open(id);
        const bool claimed = handle && libusb_claim_interface(handle.get(), 0) == 0;
        return claimed ? std::move(handle) : nullptr;
    }

    /// Waits until libusb knows of so many devices.
    bool deviceCountBecomes(std::size_t count) const {
        return passUntil(
            [&](const LibusbDeviceList& list) { return list.devices().size() == count; });
    }

private:
    /// Searches the bus until @p condition holds; each pass makes libusb take the news.
    template <class Condition>
    bool passUntil(Condition condition) const {
        QElapsedTimer timer;
        timer.start();
        bool reached = false;
        while (!reached && std::chrono::milliseconds(timer.elapsed()) < PATIENCE) {
            reached = condition(LibusbDeviceList(context.get()));
        }
        return reached;
    }
};

inline ScriptedDevice::Bytes pattern(std::size_t size) {
    ScriptedDevice::Bytes bytes(size);
    std::uint8_t value = 0;
    for (std::uint8_t& byte : bytes) {
        byte = value;
        value = static_cast<std::uint8_t>(value + 7);
    }
    return bytes;
}

/// For VirtualUsbBus::waitForLog.
inline bool isWaiting(const DeviceLog& log) {
    return log.pendingTransfers == 1;
}

}  // namespace nubo::simulator
