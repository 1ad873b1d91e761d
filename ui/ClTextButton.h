// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

/// A push button with room on both sides of its text: some desktops' styles leave a text 4 pixels
/// from the border. Where the button is laid out it is that wide; its minimum size is whoever's
/// sets one.
class ClTextButton : public QPushButton {
    Q_OBJECT

public:
    using QPushButton::QPushButton;

    [[nodiscard]] QSize sizeHint() const override;
};
