// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <span>

namespace nubo::simulator {

/// The bytes of DefaultPicture.jpg: what a camera sends that was given no other picture.
std::span<const std::uint8_t> defaultPicture();

}  // namespace nubo::simulator
