// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

/// A push button whose preferred width leaves room on both sides of its text: some desktops' styles
/// leave 4 pixels. A minimum size counts besides.
class ClTextButton : public QPushButton {
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    [[nodiscard]] QSize sizeHint() const override;
};
