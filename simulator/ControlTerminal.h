// SPDX-License-Identifier: MIT
#pragma once

#include <poll.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// Takes control lines from standard input as somebody types them, and answers on standard output.
class ControlTerminal {
public:
    /// Runs one line and returns its answer.
    using Runner = std::function<std::string(std::string_view line)>;

    /// Starts listening; before that, appendTo() and serve() do nothing.
    void open() { m_open = true; }

    /// Appends what to wait for.
    void appendTo(std::vector<pollfd>& waiting) const;

    /// Runs the lines that have been typed. Never waits. Stops listening at the end of the input.
    void serve(const Runner& runner);

private:
    bool m_open = false;
    std::string m_unfinished;
};

}  // namespace nubo::simulator
