// SPDX-License-Identifier: MIT
#pragma once

#include <QVBoxLayout>

/// The column that all controls of a dialog stand in, with the margins and the spacing of all
/// dialogs.
///
/// The dialog is always just as large as the column needs and at least
/// ClDialogBase::MINIMUM_WIDTH wide: neither the user nor a small screen makes it any smaller.
class ClDialogColumn : public QVBoxLayout {
    Q_OBJECT

public:
    explicit ClDialogColumn(QWidget* dialog);

    /// The indent of controls that depend on the radio button above them: they begin below its
    /// text.
    static constexpr int DEPENDENT_INDENT = 22;  // pixels

    [[nodiscard]] QSize sizeHint() const override;
};
