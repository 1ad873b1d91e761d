// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>
#include <QRegion>
#include <QString>

class QPainter;
class QRect;

/// The picture at the resource path @p path (":/img/button1") for a surface of
/// @p devicePixelRatio: the 1x picture up to 1.0, at 2.0 the one named @p path + "@2x", at any
/// other ratio that one smoothly scaled to the surface's pixels, because a painter would drop or
/// double single pixels. Each has the device pixel ratio that it is for. Without a 2x picture the
/// 1x one serves all.
///
/// Each picture is made once, when it is first asked for, and kept until the application object
/// goes. A path that holds no picture gives a null pixmap. Its size in device independent pixels is
/// deviceIndependentSize().
[[nodiscard]] QPixmap artwork(const QString& path, qreal devicePixelRatio);

/// The picture for the sharpest screen, for labels, which are given theirs before their screen is
/// known.
[[nodiscard]] QPixmap artwork(const QString& path);

/// The part of the picture of ratio 1.0 at @p path that is not transparent, given that no row has a
/// hole. The toolkit's mask of a pixmap knows holes, and takes four times as long for it.
[[nodiscard]] QRegion artworkShape(const QString& path);

/// Draws the part @p area of @p picture, which lies at its natural size at the origin of the
/// painter.
void drawArtwork(QPainter& painter, const QRect& area, const QPixmap& picture);
