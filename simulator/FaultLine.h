// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/ControlCall.h"

#include <string>

namespace nubo::simulator {

/// Adds the fault that the line asks for; the answer to the line.
std::string runFault(ControlCall& call);

}  // namespace nubo::simulator
