// SPDX-License-Identifier: MIT
#include "ui/TextContrast.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr std::array TEXTS{QPalette::WindowText, QPalette::Text, QPalette::ButtonText};
constexpr std::array GROUNDS{QPalette::Window, QPalette::Base, QPalette::Button};
// The accessibility guidelines (WCAG 2) ask for 4.5; what a style shades takes some of it.
constexpr qreal READABLE = 4.8;
constexpr qreal STEP = 0.02;

qreal luminance(const QColor& colour) {
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

qreal contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

bool isReadable(const QColor& text, const QPalette& palette) {
    return std::ranges::all_of(GROUNDS, [&](QPalette::ColorRole ground) {
        return contrast(text, palette.color(QPalette::Disabled, ground)) >= READABLE;
    });
}

QColor mixed(const QColor& from, const QColor& to, qreal share) {
    const auto part = [share](qreal one, qreal other) { return one + (other - one) * share; };
    return QColor::fromRgbF(static_cast<float>(part(from.redF(), to.redF())),
                            static_cast<float>(part(from.greenF(), to.greenF())),
                            static_cast<float>(part(from.blueF(), to.blueF())));
}

}  // namespace

QPalette withReadableDisabledText(QPalette palette) {
    for (const QPalette::ColorRole role : TEXTS) {
        const QColor disabled = palette.color(QPalette::Disabled, role);
        const QColor enabled = palette.color(QPalette::Active, role);
        QColor text = disabled;
        for (qreal share = STEP; share <= 1 && !isReadable(text, palette); share += STEP) {
            text = mixed(disabled, enabled, share);
        }
        if (text != disabled) {
            palette.setColor(QPalette::Disabled, role, text);
        }
    }
    return palette;
}
