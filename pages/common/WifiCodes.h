// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingTable.h"

// The camera's codes for its Wi-Fi.

inline constexpr unsigned int WIFI_MODE_INFRASTRUCTURE =
    SettingChoices::number(SettingChoices::WIFI_MODES, "infrastructure");
inline constexpr unsigned int WIFI_MODE_ADHOC =
    SettingChoices::number(SettingChoices::WIFI_MODES, "adhoc");

inline constexpr unsigned int WIFI_NOT_LINKED =
    SettingChoices::number(SettingChoices::LINKS, "not-linked");
inline constexpr unsigned int WIFI_LINKED = SettingChoices::number(SettingChoices::LINKS, "linked");
inline constexpr unsigned int WIFI_ADHOC_LINKED =
    SettingChoices::number(SettingChoices::LINKS, "adhoc");
