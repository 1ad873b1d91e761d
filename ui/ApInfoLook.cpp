// SPDX-License-Identifier: MIT
#include "ui/ApInfoLook.h"

#include <QPainter>

namespace {

constexpr QColor FOCUS_COLOUR{0x1F, 0x6F, 0xB2};
constexpr qreal FOCUS_WIDTH = 2;

}  // namespace

void drawApFocus(QPainter& painter, const QRect& area, qreal radius) {
    constexpr qreal INSET = FOCUS_WIDTH / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(FOCUS_COLOUR, FOCUS_WIDTH));
    painter.drawRoundedRect(QRectF(area).adjusted(INSET, INSET, -INSET, -INSET), radius, radius);
}
