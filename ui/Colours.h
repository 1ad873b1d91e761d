// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

// The colours that several parts of the window share.

inline constexpr QColor TEXT_COLOUR{0x2B, 0x30, 0x36};
inline constexpr QColor ACCENT_COLOUR{0x1F, 0x6F, 0xB2};
inline constexpr QColor GOOD_COLOUR{26, 97, 9};  ///< of a value that is as it should be
