// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// The caption bar of the frameless window, 600 pixels wide: a close button at the left and the
/// title in the middle. Presses beside the button pass on to the window, which is dragged by them.
class ClCaptionBar : public QWidget {
    Q_OBJECT

public:
    explicit ClCaptionBar(const QString& title, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    /// The user wants the window closed.
    void sigClose();
};
