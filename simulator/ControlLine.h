// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualCamera.h"
#include "simulator/VirtualUsbBus.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// One simulated camera of the program: what it is, and where it is plugged in.
struct SimulatedCamera {
    std::shared_ptr<VirtualCamera> camera;
    DeviceId id;  ///< no device until it is plugged in for the first time
    DeviceOptions options;
};

/// What control lines act on.
struct ControlTarget {
    VirtualUsbBus& bus;
    std::vector<SimulatedCamera> cameras = {};
    bool quits = false;  ///< the program has been asked to end
};

/// Does what one control line says and returns the one line of answer, without line end: "ok", "ok
/// " and more, or "error: " and what is wrong.
std::string runControlLine(ControlTarget& target, std::string_view line);

/// Plugs in the camera of that number (from 0); an empty text, or what went wrong.
std::string plugCamera(ControlTarget& target, std::size_t index);

/// All control lines, items and faults, explained for a reader.
std::string controlLineHelp();

}  // namespace nubo::simulator
