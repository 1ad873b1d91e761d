// SPDX-License-Identifier: MIT
#include "ui/ClWidgetApInfo.h"

#include "ui/ApInfoParts.h"
#include "ui/WidgetLook.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>

namespace {

constexpr QSize SIZE{550, 49};
constexpr int LOWERED = 2;  ///< pixels by which the parts sit lower than on the smaller button

}  // namespace

ClWidgetApInfo::ClWidgetApInfo(const QString& ssid, int type, int rssi)
    : m_parts(*this, ssid, type, rssi) {
    setFixedSize(SIZE);
    adjustPartsPos();
    setFocusPolicy(Qt::TabFocus);
}

void ClWidgetApInfo::adjustPartsPos() {
    m_parts.adjustPartsPos(LOWERED);
}

void ClWidgetApInfo::select() {
    Q_EMIT sigSelect(m_parts.ssid(), m_parts.isEncrypted());
}

void ClWidgetApInfo::enterEvent(QEnterEvent* /*event*/) {
    setBackground(AP_ROW_HOVER_COLOUR);
}

void ClWidgetApInfo::leaveEvent(QEvent* /*event*/) {
    setBackground(AP_ROW_COLOUR);
}

// The first press of a double click must not begin to drag the window away from under it.
void ClWidgetApInfo::mousePressEvent(QMouseEvent* event) {
    event->accept();
}

void ClWidgetApInfo::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) {
        select();
    }
}

void ClWidgetApInfo::keyPressEvent(QKeyEvent* event) {
    constexpr std::array SELECTING{Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space};
    const bool isSelecting = std::ranges::find(SELECTING, event->key()) != SELECTING.end();
    if (isSelecting && !event->isAutoRepeat()) {
        select();
    } else {
        QWidget::keyPressEvent(event);
    }
}

void ClWidgetApInfo::paintEvent(QPaintEvent* /*event*/) {
    if (hasFocus()) {
        QPainter painter(this);
        drawApFocus(painter, rect(), 0);
    }
}

void ClWidgetApInfo::setBackground(const QColor& colour) {
    setColour(this, QPalette::Window, colour);
}
