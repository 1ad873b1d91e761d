// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogCalendar.h"

#include "pages/basic/ClBasicSettingText.h"
#include "ui/ClDialogColumn.h"

#include <QCalendarWidget>
#include <QToolButton>

#include <array>

namespace {

struct stMonthButton {
    const char* objectName;  ///< given by the toolkit
    const char* name;
};

constexpr std::array MONTH_BUTTONS{
    stMonthButton{"qt_calendar_prevmonth", QT_TRANSLATE_NOOP("ClDialogCalendar", "Previous month")},
    stMonthButton{"qt_calendar_nextmonth", QT_TRANSLATE_NOOP("ClDialogCalendar", "Next month")},
};

}  // namespace

ClDialogCalendar::ClDialogCalendar(QWidget* parent)
    : ClDialogBase(parent),
      m_calendar(new QCalendarWidget(this)) {
    // The name is that of the days, which have the keyboard.
    m_calendar->focusProxy()->setAccessibleName(ClBasicSettingText::tr("Calendar"));
    for (const stMonthButton& row : MONTH_BUTTONS) {
        auto* button = m_calendar->findChild<QToolButton*>(QLatin1String(row.objectName));
        if (button != nullptr) {
            button->setAccessibleName(tr(row.name));
        }
    }
    m_calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
    m_calendar->setDateRange(QDate(FIRST_YEAR, 1, 1), QDate(LAST_YEAR, 12, 31));
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
