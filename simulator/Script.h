// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// Control lines from a file, run one after the other. Empty lines and those that begin with # are
/// passed over; "wait MS" puts off what follows.
class Script {
public:
    using Clock = std::chrono::steady_clock;
    /// Runs one line and returns its answer.
    using Runner = std::function<std::string(std::string_view line)>;

    /// False when the file cannot be read.
    bool load(const std::string& path);

    /// Runs all lines whose time has come, and reports each answer on the standard error, with
    /// where it stands. The time of the next line; nothing after the last.
    std::optional<Clock::time_point> run(const Runner& runner);

private:
    struct Line {
        std::size_t number;
        std::string text;
    };

    std::string waitFor(std::string_view milliseconds);

    std::string m_path;
    std::vector<Line> m_lines;
    std::size_t m_next = 0;
    Clock::time_point m_notBefore{};
};

}  // namespace nubo::simulator
