// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "simulator/CameraState.h"
#include "simulator/Wire.h"

namespace nubo::simulator {

struct CommandRequest {
    std::uint16_t id = 0;
    Parameters parameters{};
};

struct CommandAnswer {
    std::vector<std::vector<std::uint8_t>> packets;
    bool restart = false;  ///< the camera restarts once the packets are sent
};

/// One command that the camera understands.
struct CameraCommand {
    std::uint16_t code;
    std::string_view name;
    CommandAnswer (*execute)(const CommandRequest& request, CameraState& state);
};

/// All commands, in the order of their codes.
std::span<const CameraCommand> cameraCommands();

/// The command of that code, or null.
const CameraCommand* cameraCommand(std::uint16_t code);

}  // namespace nubo::simulator
