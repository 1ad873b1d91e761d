// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

// Packets of conversations with the camera as wireBytes() takes them, written out by hand.

inline const QByteArray GET_BATTERY =
    "0000 <id> 20000000 3750 0000 00000000 00000000 00000000 00000000 00000000";
inline const QByteArray GET_WIFI_INFO =
    "0000 <id> 20000000 0150 0000 00000000 00000000 00000000 00000000 00000000";
inline const QByteArray GET_ACCESSPOINTS =
    "0000 <id> 20000000 0250 0000 00000000 00000000 00000000 00000000 00000000";

/// Success and nothing more.
inline const QByteArray DONE =
    "0000 <id> 20000000 0000 0000 00000000 00000000 00000000 00000000 00000000";
/// A camera that is busy (0xFFF9).
inline const QByteArray BUSY =
    "0000 <id> 20000000 f9ff 0000 00000000 00000000 00000000 00000000 00000000";
/// An answer of somebody else's transaction, with values that nobody must see.
inline const QByteArray FOREIGN =
    "0000 <other> 20000000 fbff 0000 99999999 99999999 99999999 99999999 99999999";
