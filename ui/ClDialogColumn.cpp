// SPDX-License-Identifier: MIT
#include "ui/ClDialogColumn.h"

#include "ui/ClDialogBase.h"

namespace {

constexpr int MARGIN = 16;   // pixels
constexpr int SPACING = 14;  // pixels

}  // namespace

ClDialogColumn::ClDialogColumn(QWidget* dialog) : QVBoxLayout(dialog) {
    setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    setSpacing(SPACING);
    // The toolkit would cut a dialog that has a least width of its own down to two thirds of the
    // screen. What is fixed it leaves alone, but then the least width is up to the layout.
    setSizeConstraint(QLayout::SetFixedSize);
}

QSize ClDialogColumn::sizeHint() const {
    return QVBoxLayout::sizeHint().expandedTo({ClDialogBase::MINIMUM_WIDTH, 0});
}
