// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>

/// Runs one input. Each fuzz target defines it; libFuzzer or the replay calls it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
