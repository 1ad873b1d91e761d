// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class ClTimeRow;
class QRadioButton;
class QSpinBox;

// The dialogs of the basic settings that ask after what time something happens.

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
