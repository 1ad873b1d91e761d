// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace nubo::simulator {

/// What the command line of the program asks for.
struct Options {
    int cameras = 1;
    bool unplugged = false;
    bool help = false;
    bool version = false;
    bool asUser = false;  ///< the command heeds file permissions, even as root
    bool interactive = false;
    bool gadget = false;       ///< a real USB device port instead of the virtual bus
    std::string controller{};  ///< of that port; empty: the first free one
    std::string control = {};  ///< path of the control socket; empty: none
    std::string script = {};   ///< path of the script; empty: none
    std::chrono::milliseconds restartDelay{1000};
    std::uint32_t answerDelay = 0;  ///< milliseconds from each command to its answer
    std::vector<std::string> command = {};
};

/// Reads the arguments (without the program's name) into @p options; an empty text, or what is
/// wrong.
std::string parseOptions(std::span<const std::string> arguments, Options& options);

/// The text of --version.
std::string versionText();

/// The text of --help.
std::string optionHelp();

}  // namespace nubo::simulator
