// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "simulator/ControlCall.h"

namespace nubo::simulator {

/// Adds the fault that the line asks for; the answer to the line.
std::string runFault(ControlCall& call);

}  // namespace nubo::simulator
