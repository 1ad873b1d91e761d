// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The SSID of an access point, exactly as the camera gives it: never taken for markup.
///
/// An SSID that is wider than the label's maximum width ends in an ellipsis on screen and shows
/// whole as a tool tip; text() is the whole SSID always.
class ClLabelSsid : public QLabel {
    Q_OBJECT

public:
    explicit ClLabelSsid(QWidget* parent = nullptr);

    /// Resizes the label to its text, within @p width pixels.
    void fitInto(int width);

protected:
    void paintEvent(QPaintEvent* event) override;
};
