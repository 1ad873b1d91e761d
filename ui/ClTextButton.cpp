// SPDX-License-Identifier: MIT
#include "ui/ClTextButton.h"

namespace {

constexpr int ROOM = 14;  ///< pixels on each side

}  // namespace

QSize ClTextButton::sizeHint() const {
    const int textWidth = fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return QPushButton::sizeHint().expandedTo({textWidth + 2 * ROOM, 0});
}
