// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

#include <QDateTime>
#include <QTimer>

#include <array>
#include <cstdint>
#include <functional>

class QLineEdit;
class QPushButton;

/// Asks for the camera's date and time: typed, taken from a calendar, or following the computer's
/// clock while "Synchronize PC" is on.
///
/// Parameters in and out: the date and time (QDateTime, local time), of which the date and the time
/// of day count: one that daylight saving skips on this computer is shown and comes out as it is.
/// The fields accept dates that do not exist and the hour 24, which come out as an invalid value.
class ClDialogTime : public ClDialogBase {
    Q_OBJECT

public:
    using Clock = std::function<QDateTime()>;

    /// @p clock returns the computer's time.
    explicit ClDialogTime(
        QWidget* parent = nullptr, Clock clock = [] { return QDateTime::currentDateTime(); });

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

public Q_SLOTS:
    /// Stays open, with a message, while a field is empty or the year out of range.
    void accept() override;
    /// Switches the synchronisation on or off.
    void slotChangeEditable();
    /// Follows the clock.
    void slotTimerFired();
    void slotShowCalendar();

private:
    enum Field : std::uint8_t { Year, Month, Day, Hour, Minute, Second, FIELDS };

    [[nodiscard]] int value(Field field) const;
    [[nodiscard]] QDate date() const;
    /// Rewrites the fields in which @p time differs from @p shown.
    void showTime(const QDateTime& time, const QDateTime& shown);

    Clock m_clock;
    QTimer m_timer;
    bool m_isSynchronising = false;
    QDateTime m_lastShown;  ///< while synchronising
    std::array<QLineEdit*, FIELDS> m_fields{};
    QPushButton* m_synchronize;
    QPushButton* m_calendar;
};
