// SPDX-License-Identifier: MIT
#include "pages/network/InfrastructureParts.h"

#include "pages/common/PageParts.h"
#include "ui/ClTextButton.h"

#include <QHBoxLayout>

namespace {

constexpr int BAR_WIDTH = 600;
constexpr int RIGHT_MARGIN = 15;
constexpr int SPACING = 10;

}  // namespace

QList<QPushButton*> addButtonBar(const QStringList& texts, int y, QWidget* page) {
    auto* bar = new QWidget(page);
    bar->setFixedWidth(BAR_WIDTH);
    auto* layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, RIGHT_MARGIN, 0);
    layout->setSpacing(SPACING);
    layout->addItem(new QSpacerItem(1, 1, QSizePolicy::Expanding, QSizePolicy::Minimum));
    QList<QPushButton*> buttons;
    for (const QString& text : texts) {
        auto* button = new ClTextButton(text, bar);
        button->setMinimumSize(BUTTON_MINIMUM);
        layout->addWidget(button);
        buttons.append(button);
    }
    bar->move(0, y);
    return buttons;
}
