// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CommandAnswer.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace nubo::simulator {

/// One command that does more than telling or setting one of the CameraValues.
struct CameraCommand {
    std::uint16_t code;
    std::string_view name;
    PacketForm form;
    CommandAnswer (*execute)(const CommandRequest& request, CameraState& state);
};

/// All such commands, in the order of their codes.
std::span<const CameraCommand> cameraCommands();

/// The command of that code, or null.
const CameraCommand* cameraCommand(std::uint16_t code);

/// Executes a command packet of any kind.
CommandAnswer executeCommand(std::span<const std::uint8_t> packet, CameraState& state);

}  // namespace nubo::simulator
