// SPDX-License-Identifier: MIT
#include "simulator/Options.h"

#include "simulator/ControlLine.h"
#include "simulator/Words.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace nubo::simulator {

namespace {

constexpr int MOST_CAMERAS = 100;
constexpr int LONGEST_RESTART = 3'600'000;
constexpr int LONGEST_ANSWER = 60'000;

struct Option {
    std::string_view name;
    std::string_view value;  ///< what stands after it; empty when nothing does
    std::string_view explanation;
    /// False when @p value is none.
    bool (*apply)(Options& options, const std::string& value);
};

bool readNumber(std::string_view text, int least, int most, int& number) {
    const auto parsed = parseNumber<int>(text);
    if (!parsed || *parsed < least || *parsed > most) {
        return false;
    }
    number = *parsed;
    return true;
}

constexpr std::array OPTIONS = {
    Option{"--cameras", "N", "number of cameras, 1 to 100 (1 when left out)",
           [](Options& options, const std::string& value) {
               return readNumber(value, 1, MOST_CAMERAS, options.cameras);
           }},
    Option{"--unplugged", "", "starts with no camera plugged in",
           [](Options& options, const std::string&) { return options.unplugged = true; }},
    Option{"--gadget", "",
           "is a camera at this computer's USB device port; COMMAND may be left out",
           [](Options& options, const std::string&) { return options.gadget = true; }},
    Option{"--udc", "NAME", "the device controller of --gadget, of /sys/class/udc (the first free)",
           [](Options& options, const std::string& value) {
               options.controller = value;
               return !value.empty();
           }},
    Option{"--control", "PATH", "takes control lines from a Unix socket",
           [](Options& options, const std::string& value) {
               options.control = value;
               return !value.empty();
           }},
    Option{"--interactive", "", "takes control lines from standard input, as they are typed",
           [](Options& options, const std::string&) { return options.interactive = true; }},
    Option{"--script", "FILE", "takes control lines from a file; answers go to standard error",
           [](Options& options, const std::string& value) {
               options.script = value;
               return !value.empty();
           }},
    Option{"--restart-delay", "MS", "how long a restarting camera is off the bus (1000)",
           [](Options& options, const std::string& value) {
               int milliseconds = 0;
               const bool valid = readNumber(value, 0, LONGEST_RESTART, milliseconds);
               options.restartDelay = std::chrono::milliseconds(milliseconds);
               return valid;
           }},
    Option{"--answer-delay", "MS", "how long every camera takes for an answer (0)",
           [](Options& options, const std::string& value) {
               int milliseconds = 0;
               const bool valid = readNumber(value, 0, LONGEST_ANSWER, milliseconds);
               options.answerDelay = static_cast<std::uint32_t>(milliseconds);
               return valid;
           }},
    Option{"--as-user", "", "COMMAND heeds file permissions, even as root",
           [](Options& options, const std::string&) { return options.asUser = true; }},
    Option{"--version", "", "shows the version",
           [](Options& options, const std::string&) { return options.version = true; }},
    Option{"--help", "", "shows this text",
           [](Options& options, const std::string&) { return options.help = true; }},
};

std::string quoted(const std::string& text) {
    return "\"" + text + "\"";
}

}  // namespace

std::string parseOptions(std::span<const std::string> arguments, Options& options) {
    auto next = arguments.begin();
    while (next != arguments.end() && next->starts_with("-") && *next != "--") {
        const std::string& name = *next++;
        const auto option = std::ranges::find(OPTIONS, name, &Option::name);
        if (option == OPTIONS.end()) {
            return "no option " + quoted(name) + ", try --help";
        }
        std::string value;
        if (!option->value.empty()) {
            if (next == arguments.end()) {
                return name + " needs a value";
            }
            value = *next++;
        }
        if (!option->apply(options, value)) {
            return "no value for " + name + ": " + quoted(value);
        }
    }
    if (next != arguments.end() && *next == "--") {
        ++next;
    }
    options.command.assign(next, arguments.end());
    if (options.help || options.version) {
        return {};
    }
    if (options.command.empty() && !options.gadget) {
        return "no command to run, try --help";
    }
    if (options.gadget && options.cameras > 1) {
        return "--gadget is one camera: start the simulator once for every controller";
    }
    if (!options.gadget && !options.controller.empty()) {
        return "--udc is the controller of --gadget";
    }
    return {};
}

std::string versionText() {
    return "nubo-camera-simulator " SIMULATOR_VERSION "\n";
}

std::string optionHelp() {
    constexpr std::size_t LEFT_WIDTH = 20;
    std::string text =
        "Usage: nubo-camera-simulator [options] -- COMMAND...\n"
        "       nubo-camera-simulator --gadget [options] [-- COMMAND...]\n"
        "\n"
        "Runs COMMAND on a machine whose USB bus holds simulated cameras, and ends with its exit\n"
        "code (127 when it cannot be run, 128 and the signal when a signal ended it). With\n"
        "--gadget the camera is a real one to whatever is at the other end of the cable.\n"
        "\n"
        "Options:\n";
    for (const Option& option : OPTIONS) {
        std::string left(option.name);
        left += option.value.empty() ? "" : " " + std::string(option.value);
        left.resize(std::max(left.size(), LEFT_WIDTH), ' ');
        text += "  " + left + std::string(option.explanation) + "\n";
    }
    return text + "\n" + controlLineHelp();
}

}  // namespace nubo::simulator
