// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Wire.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace nubo::simulator {

/// What follows the header of a command.
enum class PacketForm {
    Plain,     ///< five parameters
    Text,      ///< a text and three parameters; with an empty text, five parameters
    TwoTexts,  ///< two texts and one parameter
};

struct CommandRequest {
    std::uint16_t id = 0;
    Parameters parameters{};  ///< those that the form has, at their place
    std::array<std::string, 2> texts{};
};

/// Reads a packet; nothing when its length is wrong for the form.
std::optional<CommandRequest> readRequest(std::span<const std::uint8_t> packet, PacketForm form);

}  // namespace nubo::simulator
