// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClRollOverToolBtn.h"

/// A tab of the network page, 172 x 36: a text on a background that shows only when the tab is
/// hovered, pressed or checked. Whether it can be checked is up to the page.
class ClButtonNetworkTab : public ClRollOverToolBtn {
    Q_OBJECT

public:
    /// @p text is the translated text.
    explicit ClButtonNetworkTab(const QString& text, QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};
