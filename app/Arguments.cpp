// SPDX-License-Identifier: MIT
#include "app/Arguments.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

constexpr int WRONG_ARGUMENTS = 2;

constexpr const char* HELP = R"(Usage: nubo-setting-tool [OPTION]...
Sets up the NuBo camera at this computer's USB.

  --help     shows this text and ends
  --version  shows the version and ends

These go to the toolkit, each with a value:
  -platform NAME  the windowing system: xcb, wayland, offscreen, ...
  -style NAME     the look of the controls: Fusion, Windows, ...
  -display NAME   the X display instead of $DISPLAY
  -session ID     the session that a session manager restores
)";

// All of them take a value. The toolkit reads them with one dash or two.
constexpr std::array<std::string_view, 4> TOOLKIT_OPTIONS{"-platform", "-style", "-display",
                                                          "-session"};

bool isForToolkit(std::string_view argument) {
    if (argument.starts_with("--")) {
        argument.remove_prefix(1);
    }
    return std::ranges::find(TOOLKIT_OPTIONS, argument) != TOOLKIT_OPTIONS.end();
}

int refuse(const char* what, const char* argument) {
    std::fprintf(stderr, "nubo-setting-tool: %s '%s'; see --help\n", what, argument);
    return WRONG_ARGUMENTS;
}

}  // namespace

std::optional<int> answerArguments(std::span<char* const> arguments) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--help" || argument == "-h") {
            std::fputs(HELP, stdout);
            return EXIT_SUCCESS;
        }
        if (argument == "--version") {
            std::puts("nubo-setting-tool " NUBO_VERSION);
            return EXIT_SUCCESS;
        }
        if (!isForToolkit(argument)) {
            return refuse("unknown argument", arguments[i]);
        }
        if (++i == arguments.size()) {
            return refuse("no value after", arguments[i - 1]);
        }
    }
    return std::nullopt;
}
