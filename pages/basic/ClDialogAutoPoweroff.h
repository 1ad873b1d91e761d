// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class ClTimeRow;
class QRadioButton;

/// Asks after what time the camera switches itself off.
///
/// Parameters in and out: the time (unsigned int, seconds, a minute to 72 hours); 0 (out: int) for
/// never.
class ClDialogAutoPoweroff : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogAutoPoweroff(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

public Q_SLOTS:
    void slotChangeSetting(bool isTimed);
    /// Keeps the time in its range.
    void slotChangeValue(int value);

private:
    QRadioButton* m_never = nullptr;
    QRadioButton* m_timed = nullptr;
    ClTimeRow* m_time;
};
