// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/UsbDescriptors.h"

#include <cstdint>
#include <vector>

namespace nubo::simulator {

/// What FunctionFS is told on ep0 of the function's interface, at full speed and at high speed. The
/// first endpoint of the setting becomes the file ep1, and so on.
std::vector<std::uint8_t> encodeFunction(const AlternateSetting& setting);

/// What it is told next: a function without strings of its own.
std::vector<std::uint8_t> encodeFunctionStrings();

}  // namespace nubo::simulator
