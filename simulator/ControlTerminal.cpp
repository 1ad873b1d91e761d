// SPDX-License-Identifier: MIT
#include "simulator/ControlTerminal.h"

#include <unistd.h>

#include <array>
#include <cstdio>

namespace nubo::simulator {

namespace {

constexpr std::chrono::milliseconds LOOK_INTERVAL{500};

/// False while the job is in the background of its terminal. An input that is not a terminal may
/// always be read.
bool mayRead() {
    const pid_t foreground = ::tcgetpgrp(STDIN_FILENO);
    return foreground == -1 || foreground == ::getpgrp();
}

}  // namespace

void ControlTerminal::open() {
    m_open = true;
    if (::isatty(STDIN_FILENO) == 1 && ::isatty(STDOUT_FILENO) == 1) {
        std::puts(
            "Simulated cameras are on the USB bus of the program that has been started. Type what\n"
            "happens to them, as \"unplug\" or \"set battery 9\"; \"help\" lists all, \"quit\" "
            "ends.");
        std::fflush(stdout);
    }
}

std::optional<ControlTerminal::Clock::time_point> ControlTerminal::appendTo(
    std::vector<pollfd>& waiting) const {
    if (!m_open) {
        return std::nullopt;
    }
    if (!mayRead()) {
        return Clock::now() + LOOK_INTERVAL;
    }
    waiting.push_back({STDIN_FILENO, POLLIN, 0});
    return std::nullopt;
}

void ControlTerminal::serve(const Runner& runner) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    while (m_open && mayRead() && ::poll(&input, 1, 0) > 0) {
        std::array<char, 4096> bytes{};
        const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count <= 0) {
            m_open = false;
            return;
        }
        m_unfinished.append(bytes.data(), static_cast<std::size_t>(count));
        for (std::size_t end = 0; (end = m_unfinished.find('\n')) != std::string::npos;) {
            std::printf("%s\n", runner(m_unfinished.substr(0, end)).c_str());
            m_unfinished.erase(0, end + 1);
        }
        std::fflush(stdout);
    }
}

}  // namespace nubo::simulator
