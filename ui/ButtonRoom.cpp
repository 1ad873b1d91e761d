// SPDX-License-Identifier: MIT
#include "ui/ButtonRoom.h"

#include <QPushButton>

namespace {

constexpr int ROOM = 14;  ///< pixels on each side

}  // namespace

void giveTextRoom(QPushButton* button, QSize least) {
    const QSize text = button->fontMetrics().size(Qt::TextShowMnemonic, button->text());
    button->setMinimumSize(least.expandedTo({text.width() + 2 * ROOM, 0}));
}
