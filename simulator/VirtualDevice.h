// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace nubo::simulator {

/// The device side of a bulk pipe, as a VirtualUsbBus or a GadgetPipe drives it.
///
/// The bus makes every call under its own lock, from the thread that happens to serve the USB
/// client: an implementation must not call the bus from here, and must not wait. A device whose
/// values are read or changed from another thread guards them itself.
class VirtualDevice {
public:
    virtual ~VirtualDevice() = default;

    /// The bytes of one completed OUT transfer, of any length (0 included).
    virtual void receive(std::span<const std::uint8_t> packet) = 0;

    /// The next message for the host, or nothing yet: then the IN transfer stays pending, and the
    /// bus asks again. A message longer than the transfer continues in the next IN transfers.
    virtual std::optional<std::vector<std::uint8_t>> send() = 0;

    /// When send() has a message, as far as is known now; nothing when none waits. Only receive()
    /// changes that.
    virtual std::optional<std::chrono::steady_clock::time_point> sendTime() const { return {}; }

    /// The serial number for the USB string descriptor, one byte a character (Latin-1); empty for
    /// none. Read each time the device is plugged in.
    virtual std::string serialNumber() const { return {}; }

    /// The device has got onto the bus: answers that were not fetched before are dropped.
    virtual void plugged() {}

    /// The device has left the bus.
    virtual void unplugged() {}

    /// Asked each time the host has taken an IN transfer: true (once) makes the bus unplug the
    /// device and plug it in again after DeviceOptions::restartDelay.
    virtual bool wantsRestart() { return false; }

    /// Asked at the same moments: true (once) makes the bus unplug the device until it is
    /// replugged.
    virtual bool wantsPowerOff() { return false; }

protected:
    VirtualDevice() = default;
    VirtualDevice(const VirtualDevice&) = default;
    VirtualDevice& operator=(const VirtualDevice&) = default;
};

}  // namespace nubo::simulator
