// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// A horizontal line between the sections of a page. Its height is the picture's, its width follows
/// the layout.
class ClLabelSepalator : public QLabel {
    Q_OBJECT

public:
    explicit ClLabelSepalator(QWidget* parent = nullptr);
};
