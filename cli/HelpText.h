// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Verb.h"

#include <QJsonObject>

// Help, made of the tables: what stands there is never missing here.

[[nodiscard]] QString overviewHelp();
[[nodiscard]] QString verbHelp(const stVerb& verb);

/// All verbs, options and exit codes, for programs.
[[nodiscard]] QJsonObject overviewJson();
/// A verb with its options.
[[nodiscard]] QJsonObject verbJson(const stVerb& verb);
