// SPDX-License-Identifier: MIT
#include "simulator/CameraClock.h"

#include <array>
#include <cstddef>

#include "simulator/Words.h"

namespace nubo::simulator {

namespace {

// Two decimal digits a field; the year has what is left.
constexpr std::uint32_t kField = 100;
constexpr std::string_view kPattern = "yyyy/MM/dd hh:mm:ss";

std::uint32_t pack(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
    return (first * kField + second) * kField + third;
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
    constexpr std::uint32_t kLastYear = 9999;
    constexpr std::uint32_t kHours = 24;
    constexpr std::uint32_t kSixty = 60;
    const std::uint32_t year = packed.date / kField / kField;
    const std::uint32_t hour = packed.time / kField / kField;
    const std::uint32_t minute = packed.time / kField % kField;
    const std::uint32_t second = packed.time % kField;
    if (year > kLastYear || hour >= kHours || minute >= kSixty || second >= kSixty) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(packed.date / kField % kField),
                                           std::chrono::day(packed.date % kField)};
    if (!date.ok()) {
        return std::nullopt;
    }
    return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second);
}

std::string timeToText(CameraClock::Time time) {
    const PackedTime packed = packTime(time);
    std::string text(kPattern);
    std::uint32_t date = packed.date;
    std::uint32_t clock = packed.time;
    for (std::size_t i = text.size(); i > 0; --i) {
        char& letter = text[i - 1];
        if (letter == '/' || letter == ':' || letter == ' ') {
            continue;
        }
        std::uint32_t& digits = i > kPattern.find(' ') ? clock : date;
        constexpr std::uint32_t kTen = 10;
        letter = static_cast<char>('0' + digits % kTen);
        digits /= kTen;
    }
    return text;
}

std::optional<CameraClock::Time> timeFromText(std::string_view text) {
    if (text.size() != kPattern.size()) {
        return std::nullopt;
    }
    std::array<std::string, 2> digits;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isMark = std::string_view("/: ").find(kPattern[i]) != std::string_view::npos;
        if (isMark ? text[i] != kPattern[i] : text[i] < '0' || text[i] > '9') {
            return std::nullopt;
        }
        if (!isMark) {
            digits[i > kPattern.find(' ') ? 1 : 0] += text[i];
        }
    }
    return unpackTime(
        {*parseNumber<std::uint32_t>(digits[0]), *parseNumber<std::uint32_t>(digits[1])});
}

}  // namespace nubo::simulator
