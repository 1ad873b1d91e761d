// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class ClTimeRow;
class QRadioButton;

/// Asks for the interval timer, by which the camera captures again and again.
///
/// Parameters in and out: whether it is used (bool), the delay before the first capture (unsigned
/// int, seconds, 0 to 72 hours), the time from one capture to the next (unsigned int, seconds, 1 to
/// 72 hours). Missing ones leave what is shown.
class ClDialogInterval : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogInterval(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

public Q_SLOTS:
    /// Keeps the row that has been changed in its range.
    void slotValueChange(int value);

private:
    QRadioButton* m_use = nullptr;
    QRadioButton* m_notUse = nullptr;
    ClTimeRow* m_interval;
    ClTimeRow* m_delay;
};
