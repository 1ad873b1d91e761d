// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/ControlLine.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace nubo::simulator {

/// One control line on its way: the camera that it is for, and the words after the first.
struct ControlCall {
    ControlTarget& target;
    std::size_t index;
    std::string_view rest;

    SimulatedCamera& camera() const { return target.cameras[index]; }
};

inline std::string error(const std::string& text) {
    return "error: " + text;
}

inline std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

}  // namespace nubo::simulator
