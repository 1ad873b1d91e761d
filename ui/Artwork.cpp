// SPDX-License-Identifier: MIT
#include "ui/Artwork.h"

#include <QtCore/qapplicationstatic.h>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

using Pictures = QHash<std::pair<QString, bool>, QPixmap>;
// Not QPixmapCache: it forgets what nobody holds for half a minute, by a timer that it keeps
// running.
Q_APPLICATION_STATIC(Pictures, pictures)

// The format is named because resource names have no extension that would tell it.
QPixmap decode(const QString& path) {
    QImage image;
    image.load(path, "PNG");
    return QPixmap::fromImage(std::move(image));
}

QPixmap decode(const QString& path, bool doubled) {
    if (!doubled) {
        return decode(path);
    }
    QPixmap picture = decode(path + "@2x"_L1);
    if (picture.isNull()) {
        return artwork(path, 1.0);
    }
    picture.setDevicePixelRatio(2.0);
    return picture;
}

}  // namespace

QPixmap artwork(const QString& path, qreal devicePixelRatio) {
    const std::pair key{path, devicePixelRatio > 1.0};
    if (const auto known = pictures->constFind(key); known != pictures->cend()) {
        return *known;
    }
    return *pictures->insert(key, decode(path, key.second));
}

QPixmap artwork(const QString& path) {
    return artwork(path, qGuiApp->devicePixelRatio());
}

void drawArtwork(QPainter& painter, const QRect& area, const QPixmap& picture) {
    const qreal ratio = picture.devicePixelRatio();
    const QRectF source(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio);
    painter.drawPixmap(QRectF(area), picture, source);
}
