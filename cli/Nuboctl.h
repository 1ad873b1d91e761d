// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"

#include <QStringList>

class ClConsole;

/// One run of the program: @p words are those behind its name. Returns when everything is done and
/// every camera let go of. Cameras of --all are served each on a thread of its own, so that a slow
/// one delays no other; one camera is served on the caller's.
[[nodiscard]] ExitCode runNuboctl(const QStringList& words, ClConsole& console);
