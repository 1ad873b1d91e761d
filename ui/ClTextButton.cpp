// SPDX-License-Identifier: MIT
#include "ui/ClTextButton.h"

namespace {

constexpr int ROOM = 14;  ///< pixels on each side

}  // namespace

QSize ClTextButton::sizeHint() const {
    const QSize text = fontMetrics().size(Qt::TextShowMnemonic, this->text());
    return QPushButton::sizeHint().expandedTo({text.width() + 2 * ROOM, 0});
}
