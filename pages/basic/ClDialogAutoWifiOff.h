// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QRadioButton;
class QSpinBox;

/// Asks after what time the camera switches its Wi-Fi off.
///
/// Parameters in: the time (unsigned int, seconds), 0 for never. Parameters out: the time (int,
/// seconds, whole minutes from 1 to 10), 0 for never.
class ClDialogAutoWifiOff : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogAutoWifiOff(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QRadioButton* m_never = nullptr;
    QRadioButton* m_timed = nullptr;
    QSpinBox* m_minutes = nullptr;
};
