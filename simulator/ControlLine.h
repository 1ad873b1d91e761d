// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraPort.h"
#include "simulator/VirtualCamera.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// One simulated camera of the program: what it is, and what it is plugged into.
struct SimulatedCamera {
    std::shared_ptr<VirtualCamera> camera;
    std::unique_ptr<CameraPort> port;
};

/// What control lines act on.
struct ControlTarget {
    std::vector<SimulatedCamera> cameras = {};
    bool quits = false;  ///< the program has been asked to end
};

/// Does what one control line says and returns the one line of answer, without line end: "ok", "ok
/// " and more, or "error: " and what is wrong.
std::string runControlLine(ControlTarget& target, std::string_view line);

/// All control lines, items and faults, explained for a reader.
std::string controlLineHelp();

}  // namespace nubo::simulator
