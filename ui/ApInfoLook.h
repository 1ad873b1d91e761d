// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>

class QPainter;
class QRect;

// The rows of access points are light on any desktop, so that their text has to be dark.

inline constexpr QColor AP_ROW_COLOUR{185, 193, 202};
inline constexpr QColor AP_ROW_HOVER_COLOUR{206, 212, 218};
inline constexpr QColor AP_SEPARATOR_COLOUR{136, 140, 145};

/// Marks the row that covers @p area as the one that has the focus. @p radius rounds its
/// corners.
void drawApFocus(QPainter& painter, const QRect& area, qreal radius);
