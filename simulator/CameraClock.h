// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace nubo::simulator {

/// A date and a time of day as the wire packs them.
struct PackedTime {
    std::uint32_t date = 0;  ///< year * 10000 + month * 100 + day
    std::uint32_t time = 0;  ///< hour * 10000 + minute * 100 + second
};

/// The camera's clock: continues from the time that was set, and has no time zone.
class CameraClock {
public:
    using Time = std::chrono::sys_seconds;

    Time now() const;
    void set(Time time);

private:
    using Steady = std::chrono::steady_clock;

    Time m_set = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    Steady::time_point m_since = Steady::now();
};

PackedTime packTime(CameraClock::Time time);
/// Nothing, when there is no such date or time of day.
std::optional<CameraClock::Time> unpackTime(const PackedTime& packed);

/// As "2014/03/09 07:05:01".
std::string timeToText(CameraClock::Time time);
/// Nothing, when the text is no such time.
std::optional<CameraClock::Time> timeFromText(std::string_view text);

}  // namespace nubo::simulator
