// SPDX-License-Identifier: MIT
#include "ui/WidgetLook.h"

#include <QWidget>

void setBold(QWidget* widget) {
    QFont bold = widget->font();
    bold.setWeight(QFont::Bold);
    widget->setFont(bold);
}

void setColour(QWidget* widget, QPalette::ColorRole role, const QColor& colour) {
    QPalette colours = widget->palette();
    colours.setColor(role, colour);
    widget->setPalette(colours);
}
