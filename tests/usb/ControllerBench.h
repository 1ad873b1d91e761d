// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualUsbBus.h"
#include "tests/simulator/ScriptedDevice.h"
#include "tests/simulator/UsbHost.h"
#include "usb/ClUsbController.h"

#include <QByteArray>

#include <chrono>

/// A controller, not yet open, for the one device on a virtual bus.
struct ControllerBench {
    explicit ControllerBench(const nubo::simulator::DeviceOptions& options = {})
        : id(bus.plug(device, options)),
          context(nubo::simulator::newLibusbContext()),
          devices(context.get()),
          controller(devices.devices().front()) {}

    ~ControllerBench() { bus.settle(); }
    ControllerBench(const ControllerBench&) = delete;
    ControllerBench& operator=(const ControllerBench&) = delete;

    /// The device answers the next read with @p packet.
    void say(const QByteArray& packet) const {
        device->answerWith({packet.cbegin(), packet.cend()});
    }
    [[nodiscard]] nubo::simulator::DeviceLog log() const { return bus.log(id); }
    /// Waits until nobody has the device open any more.
    [[nodiscard]] bool waitUntilClosed() const {
        const auto isClosed = [](const auto& log) { return log.openHandles == 0; };
        return bus.waitForLog(id, isClosed, std::chrono::milliseconds(PATIENCE_MS));
    }

    nubo::simulator::VirtualUsbBus bus;
    std::shared_ptr<nubo::simulator::ScriptedDevice> device =
        std::make_shared<nubo::simulator::ScriptedDevice>();
    nubo::simulator::DeviceId id;
    LibusbContext context;
    LibusbDeviceList devices;
    ClUsbController controller;
};

/// Options of a device with the given interfaces.
inline nubo::simulator::DeviceOptions deviceWith(
    const std::vector<nubo::simulator::InterfaceDescription>& interfaces) {
    nubo::simulator::DeviceOptions options;
    options.description.interfaces = interfaces;
    return options;
}

/// An interface with one setting of bulk endpoints of these addresses.
inline nubo::simulator::InterfaceDescription interfaceWith(
    const std::vector<std::uint8_t>& addresses) {
    nubo::simulator::AlternateSetting setting;
    for (const std::uint8_t address : addresses) {
        setting.endpoints.push_back({address});
    }
    return {{setting}};
}
