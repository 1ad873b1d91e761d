// SPDX-License-Identifier: MIT
#include "ui/ClButtonApInfo.h"

#include "ui/ApInfoParts.h"
#include "ui/Artwork.h"

#include <QPainter>

namespace {

constexpr QSize SIZE{568, 44};
constexpr int CORNER_RADIUS = 5;  ///< of the picture

}  // namespace

ClButtonApInfo::ClButtonApInfo(const QString& ssid, int type, int rssi, QWidget* parent)
    : QPushButton(parent),
      m_parts(*this, ssid, type, rssi) {
    setFixedSize(SIZE);
    adjustPartsPos();
    // The picture is the background.
    setAutoFillBackground(false);
}

void ClButtonApInfo::adjustPartsPos() {
    m_parts.adjustPartsPos(0);
}

void ClButtonApInfo::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.drawPixmap(rect(), artwork(QStringLiteral(":/img/ap_button"), devicePixelRatioF()));
    // As everywhere, a button that was clicked shows no focus.
    if (hasFocus() && window()->testAttribute(Qt::WA_KeyboardFocusChange)) {
        drawApFocus(painter, rect(), CORNER_RADIUS);
    }
}
