// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/ControlCall.h"

#include <string>

/// The control lines that are about the camera's values and data.
namespace nubo::simulator {

std::string runSet(ControlCall& call);
std::string runGet(ControlCall& call);
/// "picture FILE": the camera sends the bytes of the file.
std::string runPicture(ControlCall& call);
/// "save-firmware FILE": writes the image that came last.
std::string runSaveFirmware(ControlCall& call);
/// "commands": the codes of the commands that have come since the last such line.
std::string runCommands(ControlCall& call);

}  // namespace nubo::simulator
