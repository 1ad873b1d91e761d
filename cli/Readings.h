// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Setting.h"

#include <span>

class ClReport;
class ClSession;

/// Reads @p rows from the camera: a line a value for people, and the settings for programs. What
/// cannot be read goes to the report; a failed link ends it.
void tellReadings(ClSession& camera, ClReport& report, std::span<const stSetting* const> rows);
