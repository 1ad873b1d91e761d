// SPDX-License-Identifier: MIT
#include "ui/ClLabelSepalator.h"

#include "ui/Artwork.h"

ClLabelSepalator::ClLabelSepalator(QWidget* parent) : QLabel(parent) {
    const QPixmap line = artwork(QStringLiteral(":/img/bg_line"));
    setPixmap(line);
    setFixedHeight(line.deviceIndependentSize().toSize().height());
}
