// SPDX-License-Identifier: MIT
#include "tests/support/Contrast.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QHash>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionComboBox>
#include <QToolButton>

#include <algorithm>
#include <cmath>
#include <span>

namespace {

qreal luminance(const QColor& colour) {
    const auto linear = [](qreal part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// How many pixels have which colour.
using Colours = QHash<QRgb, int>;

Colours coloursOf(const QImage& picture) {
    const QImage opaque = picture.convertToFormat(QImage::Format_RGB32);
    Colours colours;
    for (int y = 0; y < opaque.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(opaque.constScanLine(y));
        for (const QRgb pixel : std::span(line, static_cast<std::size_t>(opaque.width()))) {
            ++colours[pixel];
        }
    }
    return colours;
}

template <class Option>
QRect elementOf(const QWidget& control, QStyle::SubElement element) {
    Option option;
    option.initFrom(&control);
    return control.style()->subElementRect(element, &option, &control);
}

/// What @p control writes itself, and where in it; of a control that writes nothing, nothing.
stShownText textOf(const QWidget& control) {
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        return {label->text(), label->contentsRect()};
    }
    if (const auto* box = qobject_cast<const QCheckBox*>(&control)) {
        return {box->text(), elementOf<QStyleOptionButton>(control, QStyle::SE_CheckBoxContents)};
    }
    if (const auto* radio = qobject_cast<const QRadioButton*>(&control)) {
        return {radio->text(),
                elementOf<QStyleOptionButton>(control, QStyle::SE_RadioButtonContents)};
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&control)) {
        return {button->text(),
                elementOf<QStyleOptionButton>(control, QStyle::SE_PushButtonContents)};
    }
    if (const auto* button = qobject_cast<const QToolButton*>(&control)) {
        return {button->text(), button->rect()};
    }
    if (const auto* edit = qobject_cast<const QLineEdit*>(&control)) {
        return {edit->text(), elementOf<QStyleOptionFrame>(control, QStyle::SE_LineEditContents)};
    }
    if (const auto* combo = qobject_cast<const QComboBox*>(&control)) {
        QStyleOptionComboBox option;
        option.initFrom(&control);
        return {combo->currentText(),
                control.style()->subControlRect(QStyle::CC_ComboBox, &option,
                                                QStyle::SC_ComboBoxEditField, &control)};
    }
    return {};
}

QList<stShownText> cellsOf(const QAbstractItemView& view) {
    QList<stShownText> cells;
    for (int row = 0; row < view.model()->rowCount(); ++row) {
        for (int column = 0; column < view.model()->columnCount(); ++column) {
            const QModelIndex cell = view.model()->index(row, column);
            cells.append(
                {cell.data().toString(), view.visualRect(cell).translated(view.viewport()->pos())});
        }
    }
    return cells;
}

}  // namespace

qreal contrast(const QColor& one, const QColor& other) {
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

QColor groundOf(const QImage& picture) {
    const Colours colours = coloursOf(picture);
    const auto most = std::max_element(colours.cbegin(), colours.cend());
    return most == colours.cend() ? QColor() : QColor::fromRgb(most.key());
}

qreal strongestContrast(const QImage& picture, const QColor& ground) {
    const Colours colours = coloursOf(picture);
    qreal strongest = 1;
    for (const QRgb colour : colours.keys()) {
        strongest = std::max(strongest, contrast(QColor::fromRgb(colour), ground));
    }
    return strongest;
}

QImage partOf(const QImage& picture, const QRect& place) {
    const qreal ratio = picture.devicePixelRatio();
    return picture.copy(
        QRectF(QPointF(place.topLeft()) * ratio, QSizeF(place.size()) * ratio).toRect());
}

QList<stShownText> shownTexts(const QWidget& window) {
    QList<stShownText> shown;
    for (const QWidget* const control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || control->visibleRegion().isEmpty()) {
            continue;
        }
        const auto* view = qobject_cast<const QAbstractItemView*>(control);
        const QList<stShownText> texts =
            view == nullptr ? QList<stShownText>{textOf(*control)} : cellsOf(*view);
        for (const stShownText& each : texts) {
            const QRect place = each.place & control->visibleRegion().boundingRect();
            if (!each.text.trimmed().isEmpty() && !place.isEmpty()) {
                shown.append({each.text, place.translated(control->mapTo(&window, QPoint()))});
            }
        }
    }
    return shown;
}
