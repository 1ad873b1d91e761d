// SPDX-License-Identifier: MIT
#pragma once

#include "settings/SettingTable.h"
#include "ui/ClDialogBase.h"

class QCalendarWidget;

/// Asks for a date of the years that the camera's clock knows.
///
/// Parameters in and out: the date (QDate); an invalid one leaves what is selected.
class ClDialogCalendar : public ClDialogBase {
    Q_OBJECT

public:
    static constexpr int FIRST_YEAR = setting("camera.clock").range.least;
    static constexpr int LAST_YEAR = setting("camera.clock").range.most;

    explicit ClDialogCalendar(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QCalendarWidget* m_calendar;
};
