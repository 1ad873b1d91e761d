// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualUsbBus.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace nubo::simulator {

/// A root hub, as on every real bus: with it the list of devices is never empty, and a host notices
/// that its only camera has gone.
class RootHub : public VirtualDevice {
public:
    void receive(std::span<const std::uint8_t>) override {}
    std::optional<std::vector<std::uint8_t>> send() override { return std::nullopt; }
};

/// Plugs a root hub into the bus.
inline DeviceId plugRootHub(VirtualUsbBus& bus) {
    DeviceOptions options;
    options.description.vendorId = 0x1D6B;  // the identity of the Linux kernel's own root hubs
    options.description.productId = 0x0002;
    return bus.plug(std::make_shared<RootHub>(), options);
}

}  // namespace nubo::simulator
