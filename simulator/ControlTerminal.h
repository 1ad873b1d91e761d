// SPDX-License-Identifier: MIT
#pragma once

#include <poll.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// Takes control lines from standard input as somebody types them, and answers on standard output.
/// Leaves a terminal alone while the program's job is in the background: a read would stop the job.
class ControlTerminal {
public:
    using Clock = std::chrono::steady_clock;
    /// Runs one line and returns its answer.
    using Runner = std::function<std::string(std::string_view line)>;

    /// Starts listening, with a greeting for somebody at a terminal; before that, appendTo() and
    /// serve() do nothing.
    void open();

    /// Appends what to wait for. @return the latest time to check again whether the job is in
    /// the foreground: no event reports that
    [[nodiscard]] std::optional<Clock::time_point> appendTo(std::vector<pollfd>& waiting) const;

    /// Runs the lines that have been typed. Never waits. Stops listening at the end of the input.
    void serve(const Runner& runner);

private:
    bool m_open = false;
    std::string m_unfinished;
};

}  // namespace nubo::simulator
