// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CommandAnswer.h"

/// Commands for settings that are more than one value, or that travel in a form of their own.
namespace nubo::simulator {

CommandAnswer tellInterval(const CommandRequest& request, CameraState& state);
CommandAnswer setInterval(const CommandRequest& request, CameraState& state);
CommandAnswer tellGps(const CommandRequest& request, CameraState& state);
CommandAnswer tellGpsSetting(const CommandRequest& request, CameraState& state);
CommandAnswer setGpsSetting(const CommandRequest& request, CameraState& state);
CommandAnswer tellTime(const CommandRequest& request, CameraState& state);
CommandAnswer setTime(const CommandRequest& request, CameraState& state);
CommandAnswer tellCountry(const CommandRequest& request, CameraState& state);
CommandAnswer setCountry(const CommandRequest& request, CameraState& state);

}  // namespace nubo::simulator
