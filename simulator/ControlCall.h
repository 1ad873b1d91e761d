// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/ControlLine.h"
#include "simulator/Words.h"

#include <cstddef>
#include <optional>
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

/// The answer of a line that a port has carried out, or has refused for this reason.
inline std::string reply(const std::string& refusal) {
    return refusal.empty() ? "ok" : error(refusal);
}

inline std::string quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

/// Reads the number of a camera (from 1) into an index; nothing, when there is no such camera.
inline std::optional<std::size_t> cameraIndex(const ControlTarget& target, std::string_view word) {
    const auto number = parseNumber<std::size_t>(word);
    if (!number || *number < 1 || *number > target.cameras.size()) {
        return std::nullopt;
    }
    return *number - 1;
}

inline std::string noSuchCamera(std::string_view word) {
    return error("no camera " + quoted(word));
}

}  // namespace nubo::simulator
