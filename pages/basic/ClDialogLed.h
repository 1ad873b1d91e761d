// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QRadioButton;

/// Asks whether the camera's LED lights when it is switched on.
///
/// Parameters in and out: whether it lights (bool).
class ClDialogLed : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogLed(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QRadioButton* m_light = nullptr;
    QRadioButton* m_notLight = nullptr;
};
