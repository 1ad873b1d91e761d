// SPDX-License-Identifier: MIT
#include "ui/ClLinkCheck.h"

#include "ui/Artwork.h"

ClLinkCheck::ClLinkCheck(QWidget* parent) : QLabel(parent) {}

void ClLinkCheck::setCheck(bool checked) {
    setPixmap(checked ? artwork(QStringLiteral(":/img/ap_check")) : QPixmap());
    setAccessibleName(checked ? tr("Linked") : QString());
    adjustSize();
}
