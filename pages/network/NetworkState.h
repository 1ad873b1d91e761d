// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// What the network pages know of the camera's Wi-Fi, and whether they have complained yet. One
// state for the whole program, reached by these pages only: it outlives a camera that is unplugged.

inline constexpr quint32 WIFI_MODE_UNKNOWN = 0;  ///< not read yet, or Wi-Fi was switched off here

inline bool g_bIsWifiON = false;                  ///< as last read from the camera
inline quint32 g_ulWifiMode = WIFI_MODE_UNKNOWN;  ///< as last read from or written to the camera

/// Whether an error box has been shown since polling was started: a camera that fails again and
/// again gets one box, not a pile of them.
inline bool g_bIsShowError = false;
