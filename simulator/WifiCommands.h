// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CommandAnswer.h"

/// Commands for the link to a wireless network.
namespace nubo::simulator {

CommandAnswer tellWifi(const CommandRequest& request, CameraState& state);
CommandAnswer tellAccessPoints(const CommandRequest& request, CameraState& state);
CommandAnswer changeWifiMode(const CommandRequest& request, CameraState& state);
CommandAnswer joinWifi(const CommandRequest& request, CameraState& state);

}  // namespace nubo::simulator
