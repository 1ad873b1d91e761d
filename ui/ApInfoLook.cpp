// SPDX-License-Identifier: MIT
#include "ui/ApInfoLook.h"

#include <QPainter>

namespace {

constexpr QColor FOCUS_COLOUR{0x18, 0x5A, 0x94};  // darker than the accent, for the rows are grey
constexpr qreal FOCUS_WIDTH = 2;

}  // namespace

void drawApFocus(QPainter& painter, const QRect& area, qreal radius) {
    constexpr qreal INSET = FOCUS_WIDTH / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(FOCUS_COLOUR, FOCUS_WIDTH));
    painter.drawRoundedRect(QRectF(area).adjusted(INSET, INSET, -INSET, -INSET), radius, radius);
}
