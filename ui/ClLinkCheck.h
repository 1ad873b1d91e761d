// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The check mark of the access point that the camera is linked to; empty at first.
class ClLinkCheck : public QLabel {
    Q_OBJECT

public:
    explicit ClLinkCheck(QWidget* parent = nullptr);

    /// Shows or removes the mark and resizes the label to it.
    void setCheck(bool checked);
};
