// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QComboBox;

/// Asks for the camera's time zone.
///
/// Parameters in and out: the zone (unsigned int) as the camera counts it: 0 to 12 hours east of
/// Greenwich, and 12 more than the hours west of it from 13 to 24. A zone that does not exist shows
/// none, and "OK" waits for a choice.
class ClDialogTimezone : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogTimezone(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QComboBox* m_zone;
};
