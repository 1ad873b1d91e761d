// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>
#include <QMap>
#include <QString>

/// The resource path of the picture of each icon mode.
using ArtworkPaths = QMap<QIcon::Mode, QString>;

/// An icon that shows the artwork at @p paths, in both states, each picture at its natural size and
/// in the resolution of the surface. Nothing is decoded before it is asked for.
///
/// A mode without a picture falls back as in any other icon: to the other one of QIcon::Normal and
/// QIcon::Active, else to the first picture there is, coloured by the style where the style colours
/// that mode. A picture larger than the size asked for is shrunk to fit.
[[nodiscard]] QIcon artworkIcon(const ArtworkPaths& paths);
