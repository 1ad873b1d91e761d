// SPDX-License-Identifier: MIT
#include "simulator/CameraClock.h"

#include "simulator/Words.h"

#include <array>
#include <cstddef>

namespace nubo::simulator {

namespace {

// Two decimal digits a field; the year has what is left.
constexpr std::uint32_t FIELD = 100;
constexpr std::string_view PATTERN = "yyyy/MM/dd hh:mm:ss";

std::uint32_t pack(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
    return (first * FIELD + second) * FIELD + third;
}

}  // namespace

CameraClock::Time CameraClock::now() const {
    return m_set + std::chrono::floor<std::chrono::seconds>(Steady::now() - m_since);
}

void CameraClock::set(Time time) {
    m_set = time;
    m_since = Steady::now();
}

PackedTime packTime(CameraClock::Time time) {
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    return {pack(static_cast<std::uint32_t>(int{date.year()}), unsigned{date.month()},
                 unsigned{date.day()}),
            pack(static_cast<std::uint32_t>(clock.hours().count()),
                 static_cast<std::uint32_t>(clock.minutes().count()),
                 static_cast<std::uint32_t>(clock.seconds().count()))};
}

std::optional<CameraClock::Time> unpackTime(const PackedTime& packed) {
    constexpr std::uint32_t LAST_YEAR = 9999;
    constexpr std::uint32_t HOURS = 24;
    constexpr std::uint32_t SIXTY = 60;
    const std::uint32_t year = packed.date / FIELD / FIELD;
    const std::uint32_t hour = packed.time / FIELD / FIELD;
    const std::uint32_t minute = packed.time / FIELD % FIELD;
    const std::uint32_t second = packed.time % FIELD;
    if (year > LAST_YEAR || hour >= HOURS || minute >= SIXTY || second >= SIXTY) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(packed.date / FIELD % FIELD),
                                           std::chrono::day(packed.date % FIELD)};
    if (!date.ok()) {
        return std::nullopt;
    }
    return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second);
}

std::string timeToText(CameraClock::Time time) {
    const PackedTime packed = packTime(time);
    std::string text(PATTERN);
    std::uint32_t date = packed.date;
    std::uint32_t clock = packed.time;
    for (std::size_t i = text.size(); i > 0; --i) {
        char& letter = text[i - 1];
        if (letter == '/' || letter == ':' || letter == ' ') {
            continue;
        }
        std::uint32_t& digits = i > PATTERN.find(' ') ? clock : date;
        constexpr std::uint32_t TEN = 10;
        letter = static_cast<char>('0' + digits % TEN);
        digits /= TEN;
    }
    return text;
}

std::optional<CameraClock::Time> timeFromText(std::string_view text) {
    if (text.size() != PATTERN.size()) {
        return std::nullopt;
    }
    std::array<std::string, 2> digits;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isMark = std::string_view("/: ").find(PATTERN[i]) != std::string_view::npos;
        if (isMark ? text[i] != PATTERN[i] : text[i] < '0' || text[i] > '9') {
            return std::nullopt;
        }
        if (!isMark) {
            digits[i > PATTERN.find(' ') ? 1 : 0] += text[i];
        }
    }
    return unpackTime(
        {*parseNumber<std::uint32_t>(digits[0]), *parseNumber<std::uint32_t>(digits[1])});
}

}  // namespace nubo::simulator
