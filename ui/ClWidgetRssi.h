// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The signal strength of an access point, as a picture of one to three bars.
class ClWidgetRssi : public QLabel {
    Q_OBJECT

public:
    explicit ClWidgetRssi(int rssi, QWidget* parent = nullptr);

    /// Shows @p rssi, about a percentage, and resizes to the picture. There is none for 0 and less.
    void setValue(int rssi);
};
