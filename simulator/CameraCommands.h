// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "simulator/CameraState.h"
#include "simulator/CommandRequest.h"

namespace nubo::simulator {

/// What a camera does once its packets are sent.
enum class Afterwards { Nothing, Restart, PowerOff };

struct CommandAnswer {
    std::vector<ByteVector> packets;
    Afterwards afterwards = Afterwards::Nothing;
    SharedBytes data{};  ///< follows the packets as a data phase, unless it is null
    std::optional<std::uint32_t> imageSize{};  ///< no answer before an image of that size has come
};

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
