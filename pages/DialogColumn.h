// SPDX-License-Identifier: MIT
#pragma once

#include <QVBoxLayout>

/// What is only of use when the radio button above it is checked stands below that button's text.
constexpr int DEPENDENT_INDENT = 22;  // pixels

/// Gives @p dialog the column that its controls stand in, with the spacing of all dialogs, and has
/// it always as large as they need: a dialog with a least width of its own would otherwise be cut
/// down to what the toolkit grants on a small screen.
inline QVBoxLayout* createDialogColumn(QWidget* dialog) {
    constexpr int MARGIN = 16;   // pixels
    constexpr int SPACING = 14;  // pixels
    auto* const column = new QVBoxLayout(dialog);
    column->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    column->setSpacing(SPACING);
    column->setSizeConstraint(QLayout::SetFixedSize);
    return column;
}
