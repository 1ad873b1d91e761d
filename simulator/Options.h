// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <span>
#include <string>
#include <vector>

namespace nubo::simulator {

/// What the command line of the program asks for.
struct Options {
    int cameras = 1;
    bool unplugged = false;
    bool help = false;
    bool interactive = false;
    std::string control = {};  ///< path of the control socket; empty: none
    std::string script = {};   ///< path of the script; empty: none
    std::chrono::milliseconds restartDelay{1000};
    std::vector<std::string> command = {};
};

/// Reads the arguments (without the program's name) into @p options; an empty text, or what is
/// wrong.
std::string parseOptions(std::span<const std::string> arguments, Options& options);

/// The text of --help.
std::string optionHelp();

}  // namespace nubo::simulator
