// SPDX-License-Identifier: MIT
#include "ui/Artwork.h"

#include <QtCore/qapplicationstatic.h>
#include <QFile>
#include <QGuiApplication>
#include <QHash>
#include <QImage>
#include <QPainter>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <span>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal DOUBLED = 2.0;

using Pictures = QHash<std::pair<QString, qreal>, QPixmap>;
// Not QPixmapCache: it forgets what nobody holds for half a minute, by a timer that it keeps
// running.
Q_APPLICATION_STATIC(Pictures, pictures)

// The pictures are packed when the program is built (resources/pack): a PNG reader would cost the
// start a fifth of its time.
QPixmap decode(const QString& path) {
    std::array<quint32_le, 2> size;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) ||
        file.read(reinterpret_cast<char*>(size.data()), sizeof(size)) != sizeof(size)) {
        return {};
    }
    QImage image(static_cast<int>(size[0]), static_cast<int>(size[1]),
                 QImage::Format_ARGB32_Premultiplied);
    if (file.read(reinterpret_cast<char*>(image.bits()), image.sizeInBytes()) !=
        image.sizeInBytes()) {
        return {};
    }
    return QPixmap::fromImage(std::move(image));
}

QPixmap pictureFor(const QString& path, qreal devicePixelRatio) {
    if (devicePixelRatio == 1.0) {
        return decode(path);
    }
    QPixmap picture = decode(path + "@2x"_L1);
    if (picture.isNull()) {
        return artwork(path, 1.0);
    }
    if (devicePixelRatio != DOUBLED) {
        const QSizeF size = QSizeF(picture.size()) / DOUBLED * devicePixelRatio;
        picture = picture.scaled(size.toSize(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    picture.setDevicePixelRatio(devicePixelRatio);
    return picture;
}

}  // namespace

QPixmap artwork(const QString& path, qreal devicePixelRatio) {
    const std::pair key{path, std::max(devicePixelRatio, 1.0)};
    if (const auto known = pictures->constFind(key); known != pictures->cend()) {
        return *known;
    }
    return *pictures->insert(key, pictureFor(path, key.second));
}

QPixmap artwork(const QString& path) {
    return artwork(path, qGuiApp->devicePixelRatio());
}

QRegion artworkShape(const QString& path) {
    const QImage image =
        artwork(path, 1.0).toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
    const auto isOpaque = [](QRgb pixel) { return qAlpha(pixel) > 0; };
    // Rows that are alike are one rectangle.
    QRect rows;
    QRegion shape;
    for (int y = 0; y < image.height(); ++y) {
        const std::span pixels(reinterpret_cast<const QRgb*>(image.constScanLine(y)),
                               static_cast<std::size_t>(image.width()));
        const auto first = std::ranges::find_if(pixels, isOpaque);
        const auto last = std::find_if(pixels.rbegin(), pixels.rend(), isOpaque);
        const QRect row(QPoint(static_cast<int>(first - pixels.begin()), y),
                        QPoint(static_cast<int>(last.base() - pixels.begin()) - 1, y));
        if (row.left() == rows.left() && row.right() == rows.right()) {
            rows.setBottom(y);
        } else {
            shape += rows;
            rows = row;
        }
    }
    return shape + rows;
}

void drawArtwork(QPainter& painter, const QRect& area, const QPixmap& picture) {
    const qreal ratio = picture.devicePixelRatio();
    const QRectF source(QPointF(area.topLeft()) * ratio, QSizeF(area.size()) * ratio);
    painter.drawPixmap(QRectF(area), picture, source);
}
