// SPDX-License-Identifier: MIT
#pragma once

#include <optional>
#include <span>

/// Answers what the program can answer before anything opens: "--help" and "--version" on standard
/// output, and an argument that it does not know by one line on standard error. Those of the
/// toolkit's options that "--help" lists are known and left for the toolkit. Any thread.
/// @p arguments are those after the program's name. @return the exit code (0, or 2 for a wrong
/// argument), or nothing when the program is to run.
[[nodiscard]] std::optional<int> answerArguments(std::span<char* const> arguments);
