// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Verb.h"

// Help, made of the tables: what stands there is never missing here.

[[nodiscard]] QString overviewHelp();
[[nodiscard]] QString verbHelp(const stVerb& verb);
