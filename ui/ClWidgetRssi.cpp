// SPDX-License-Identifier: MIT
#include "ui/ClWidgetRssi.h"

#include "ui/Artwork.h"

#include <algorithm>
#include <array>

namespace {

struct stLevel {
    int from;  ///< the lowest strength that reaches it
    const char* picture;
};

// The strongest first.
constexpr std::array LEVELS{
    stLevel{80, ":img/ap_rssi3"},
    stLevel{30, ":/img/ap_rssi2"},
    stLevel{1, ":/img/ap_rssi1"},
};

QPixmap pictureOf(int rssi) {
    const auto* level =
        std::ranges::find_if(LEVELS, [rssi](const stLevel& each) { return rssi >= each.from; });
    return level == LEVELS.end() ? QPixmap() : artwork(QString::fromLatin1(level->picture));
}

}  // namespace

ClWidgetRssi::ClWidgetRssi(int rssi, QWidget* parent) : QLabel(parent) {
    setValue(rssi);
}

void ClWidgetRssi::setValue(int rssi) {
    const QPixmap picture = pictureOf(rssi);
    setPixmap(picture);
    setAccessibleName(picture.isNull() ? QString() : tr("Signal strength %1").arg(rssi));
    resize(picture.deviceIndependentSize().toSize());
}
