// SPDX-License-Identifier: MIT
#include "pages/ClDialogCalendar.h"

#include "pages/ClDialogTime.h"
#include "pages/ClWidgetBasicSetting.h"
#include "ui/ClDialogColumn.h"

#include <QCalendarWidget>

ClDialogCalendar::ClDialogCalendar(QWidget* parent)
    : ClDialogBase(parent),
      m_calendar(new QCalendarWidget(this)) {
    // The name is that of the days, which have the keyboard.
    m_calendar->focusProxy()->setAccessibleName(ClWidgetBasicSetting::tr("Calendar"));
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setDateRange(QDate(ClDialogTime::FIRST_YEAR, 1, 1),
                             QDate(ClDialogTime::LAST_YEAR, 12, 31));
    // The calendar keeps the Enter key to itself.
    connect(m_calendar, &QCalendarWidget::activated, this, &ClDialogCalendar::accept);

    (new ClDialogColumn(this))->addWidget(m_calendar);
    addButtons();
}

void ClDialogCalendar::setParam(const QVariantList& params) {
    m_calendar->setSelectedDate(params.value(0).toDate());
}

QVariantList ClDialogCalendar::getParam() {
    return {m_calendar->selectedDate()};
}
