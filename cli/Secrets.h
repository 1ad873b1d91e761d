// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"

#include <QString>

class ClConsole;

/// Reads a secret from the file at @p path, or from standard input for "-", without the line end
/// that an editor leaves behind.
[[nodiscard]] stFailure readSecret(const QString& path, ClConsole& console, QString& secret);
