// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <QWidget>

/// An empty picture of the size of @p widget, for what it is expected to paint.
inline QImage blank(const QWidget& widget) {
    const qreal ratio = widget.devicePixelRatioF();
    QImage image((QSizeF(widget.size()) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    return image;
}

/// What @p widget paints itself, on nothing and regardless of its mask; with its children when
/// @p flags say so.
inline QImage painted(QWidget& widget, QWidget::RenderFlags flags = {}) {
    QImage image = blank(widget);
    // A mask that starts below the top would shift the whole picture.
    widget.render(&image, QPoint(), QRegion(), flags | QWidget::IgnoreMask);
    return image;
}

/// blank() with @p picture at @p position.
inline QImage blankWith(const QWidget& widget, const QPixmap& picture, QPoint position = {}) {
    QImage image = blank(widget);
    QPainter(&image).drawPixmap(position, picture);
    return image;
}
