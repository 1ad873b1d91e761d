// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClRollOverToolBtn.h"

/// A button of the mode bar, 112 x 84: a picture above a caption of one or two lines, on a
/// background that shows only when the button is hovered, pressed or checked.
class ClButtonMode : public ClRollOverToolBtn {
    Q_OBJECT

public:
    /// @p image is the resource path of the mode's picture, @p caption the translated text. A
    /// caption too wide for the button wraps.
    ClButtonMode(const QString& image, const QString& caption, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString m_image;
};
