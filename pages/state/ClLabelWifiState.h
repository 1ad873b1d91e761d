// SPDX-License-Identifier: MIT
#pragma once

#include <QLabel>

/// The badge that shows whether the camera is linked to a wireless network.
class ClLabelWifiState : public QLabel {
    Q_OBJECT

public:
    explicit ClLabelWifiState(QWidget* parent);

    /// Shows the link state as the camera reports it: 1 not linked, 2 linked, 3 ad-hoc. Any other
    /// state counts as linked and leaves the text.
    void setState(unsigned int state);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    unsigned int m_state = 1;
    QString m_picture;  ///< resource path
};
