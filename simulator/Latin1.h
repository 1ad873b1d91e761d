// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace nubo::simulator {

/// A text of one byte a character, as the camera has them, as the kernel and a terminal take it.
inline std::string utf8FromLatin1(std::string_view latin1) {
    constexpr std::uint8_t FIRST_OF_TWO = 0xC0;
    constexpr std::uint8_t SECOND_OF_TWO = 0x80;
    constexpr int BITS_IN_SECOND = 6;
    constexpr std::uint8_t LOW_BITS = 0x3F;
    std::string text;
    for (const char character : latin1) {
        const auto code = static_cast<std::uint8_t>(character);
        if (code < SECOND_OF_TWO) {
            text.push_back(character);
        } else {
            text.push_back(static_cast<char>(FIRST_OF_TWO | code >> BITS_IN_SECOND));
            text.push_back(static_cast<char>(SECOND_OF_TWO | (code & LOW_BITS)));
        }
    }
    return text;
}

}  // namespace nubo::simulator
