// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/ControlCall.h"

#include <string>

/// The control lines that are about the camera's place on the bus.
namespace nubo::simulator {

std::string runPlug(ControlCall& call);
std::string runUnplug(ControlCall& call);
/// "access allowed|denied|missing": how the device node answers opening.
std::string runAccess(ControlCall& call);
/// "busy on|off": whether claiming the interface is refused, as if another program held it.
std::string runBusy(ControlCall& call);
std::string runStatus(ControlCall& call);

}  // namespace nubo::simulator
