// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <charconv>
#include <concepts>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace nubo::simulator {

/// Takes the first word off the front of @p text, with the blanks around it; empty at the end.
inline std::string_view takeWord(std::string_view& text) {
    constexpr std::string_view BLANKS = " \t\r";
    const auto skipBlanks = [&] {
        text.remove_prefix(std::min(text.find_first_not_of(BLANKS), text.size()));
    };
    skipBlanks();
    const std::string_view word = text.substr(0, text.find_first_of(BLANKS));
    text.remove_prefix(word.size());
    skipBlanks();
    return word;
}

/// The number that the whole text is, decimal or, with 0x before it, hexadecimal.
template <std::integral Number>
std::optional<Number> parseNumber(std::string_view text) {
    constexpr int DECIMAL = 10;
    constexpr int HEXADECIMAL = 16;
    const bool hexadecimal = text.starts_with("0x") || text.starts_with("0X");
    if (hexadecimal) {
        text.remove_prefix(2);
    }
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [rest, error] =
        std::from_chars(text.data(), end, number, hexadecimal ? HEXADECIMAL : DECIMAL);
    if (error != std::errc() || rest != end) {
        return std::nullopt;
    }
    return number;
}

/// What may stand there, for a reader.
inline std::string rangeText(std::integral auto least, std::integral auto most) {
    return "a number from " + std::to_string(least) + " to " + std::to_string(most);
}

inline std::string lengthText(std::size_t least, std::size_t most) {
    return "text of " + std::to_string(least) + " to " + std::to_string(most) + " bytes";
}

}  // namespace nubo::simulator
