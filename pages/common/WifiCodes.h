// SPDX-License-Identifier: MIT
#pragma once

// The camera's codes for its Wi-Fi.

inline constexpr unsigned int WIFI_MODE_INFRASTRUCTURE = 1;
inline constexpr unsigned int WIFI_MODE_ADHOC = 2;

inline constexpr unsigned int WIFI_NOT_LINKED = 1;
inline constexpr unsigned int WIFI_LINKED = 2;
inline constexpr unsigned int WIFI_ADHOC_LINKED = 3;
