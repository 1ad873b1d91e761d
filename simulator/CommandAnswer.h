// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraState.h"
#include "simulator/CommandRequest.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace nubo::simulator {

/// What a camera does once its packets are sent.
enum class Afterwards { Nothing, Restart, PowerOff };

struct CommandAnswer {
    std::vector<ByteVector> packets;
    Afterwards afterwards = Afterwards::Nothing;
    SharedBytes data{};  ///< follows the packets as a data phase, unless it is null
    std::optional<std::uint32_t> imageSize{};  ///< no answer before an image of that size has come
};

inline CommandAnswer refusal(std::uint16_t id, CameraResult result) {
    return {{plainAnswer(id, result)}};
}

inline CommandAnswer success(const CommandRequest& request, const Parameters& parameters = {}) {
    return {{plainAnswer(request.id, CameraResult::Success, parameters)}};
}

inline bool isSwitch(std::uint32_t value) {
    return value == OFF || value == ON;
}

}  // namespace nubo::simulator
