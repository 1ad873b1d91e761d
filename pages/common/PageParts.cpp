// SPDX-License-Identifier: MIT
#include "pages/common/PageParts.h"

#include "ui/WidgetLook.h"

#include <QLabel>

QLabel* addLabel(const QString& text, QPoint place, QWidget* page) {
    auto* label = new QLabel(text, page);
    label->move(place);
    return label;
}

QLabel* addCaption(const QString& text, int right, int y, QWidget* page) {
    auto* label = new QLabel(text, page);
    moveEndTo(label, right, y);
    return label;
}

QLabel* addValue(QPoint place, QWidget* page) {
    auto* label = new QLabel(page);
    setBold(label);
    label->move(place);
    return label;
}

void setValue(QLabel* value, const QString& text) {
    value->setText(text);
    value->adjustSize();
}

void moveEndTo(QWidget* widget, int right, int y) {
    widget->move(right - widget->sizeHint().width(), y);
}
