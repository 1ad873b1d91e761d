// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Verb.h"

/// Reads the words behind the name of the program. The failure is WrongUse, with what is wrong. No
/// verb stands for the overview of help.
[[nodiscard]] stFailure parseArguments(const QStringList& words, stArguments& arguments);
