// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ComputerChecks.h"
#include "cli/Verb.h"

/// Checks @p computer and the cameras on its bus from the bottom up, and tells each check, with the
/// remedy for what it finds. Starts the finder of @p run by itself.
void examine(stRun& run, const stComputer& computer);
