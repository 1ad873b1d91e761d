// SPDX-License-Identifier: MIT
#include "ui/ClRollOverToolBtn.h"

#include <QBitmap>
#include <QPaintEvent>
#include <QPainter>

ClRollOverToolBtn::ClRollOverToolBtn(QWidget* parent) : QToolButton(parent) {
    setAttribute(Qt::WA_Hover);
}

void ClRollOverToolBtn::setImgShow(const QIcon& imgShow) {
    m_imgShow = imgShow;
    update();
}

void ClRollOverToolBtn::setState(QIcon::State state) {
    m_state = state;
    update();
}

void ClRollOverToolBtn::setOpacity(qreal opacity) {
    m_opacity = opacity;
    update();
}

void ClRollOverToolBtn::paintEvent(QPaintEvent* event) {
    const QPixmap shown = picture(devicePixelRatioF());
    if (shown.isNull()) {
        clearMask();
        QToolButton::paintEvent(event);
    } else {
        // A mask counts device independent pixels, so it takes the 1x picture. It holds every pixel
        // that is not wholly transparent: soft edges stay soft.
        setMask(picture(1.0).mask());
        QPainter painter(this);
        painter.setClipRect(event->rect());
        painter.setOpacity(m_opacity);
        painter.drawPixmap(0, 0, shown);
    }
    event->accept();
}

QIcon::Mode ClRollOverToolBtn::iconMode() const {
    if (!isEnabled()) {
        return QIcon::Disabled;
    }
    if (isDown() || isChecked()) {
        return QIcon::Selected;
    }
    return underMouse() || hasFocus() ? QIcon::Active : QIcon::Normal;
}

QPixmap ClRollOverToolBtn::picture(qreal devicePixelRatio) const {
    QPixmap found = m_imgShow.pixmap(size(), devicePixelRatio, iconMode(), state());
    const QSize wanted = (QSizeF(size()) * devicePixelRatio).toSize();
    if (found.isNull() || found.size() == wanted) {
        return found;
    }
    found = found.scaled(wanted, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    found.setDevicePixelRatio(devicePixelRatio);
    return found;
}
