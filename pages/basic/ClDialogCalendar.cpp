// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogCalendar.h"

#include "pages/basic/ClBasicSettingText.h"
#include "ui/ClDialogColumn.h"
#include "ui/Colours.h"

#include <QCalendarWidget>
#include <QSpinBox>
#include <QTextCharFormat>
#include <QToolButton>

#include <array>

namespace {

struct stMonthButton {
    const char* objectName;  ///< given by the toolkit
    const char* name;
    QChar arrow;
};

constexpr std::array MONTH_BUTTONS{
    stMonthButton{"qt_calendar_prevmonth", QT_TRANSLATE_NOOP("ClDialogCalendar", "Previous month"),
                  u'\u2039'},
    stMonthButton{"qt_calendar_nextmonth", QT_TRANSLATE_NOOP("ClDialogCalendar", "Next month"),
                  u'\u203A'},
};

/// Of the bar above the days. The toolkit's own arrows are green discs, and its mark of the menu
/// of months is hardly visible on the accent colour.
const QString BAR_STYLE = QStringLiteral(
    "#qt_calendar_navigationbar { background: %1 }"
    "QToolButton { color: white; background: transparent; border-radius: 4px;"
    "              padding: 2px 8px; font-weight: bold }"
    "QToolButton:hover, QToolButton:pressed, QToolButton:open { background: rgba(0, 0, 0, 25%) }"
    "QToolButton::menu-indicator { image: none }"
    "#qt_calendar_prevmonth, #qt_calendar_nextmonth { font-size: 20px; padding: 0px 8px 3px 8px }");

constexpr QColor WEEKEND_ON_LIGHT{0xB4, 0x19, 0x08};
constexpr QColor WEEKEND_ON_DARK{0xF0, 0x6C, 0x64};
constexpr int MIDDLE_LIGHTNESS = 128;

/// Selected days and weekends are hard to read in the colours that the toolkit and some desktops
/// have for them.
void setReadableColours(QCalendarWidget& calendar) {
    QPalette colours = calendar.palette();
    colours.setColor(QPalette::Highlight, ACCENT_COLOUR);
    colours.setColor(QPalette::HighlightedText, Qt::white);
    calendar.setPalette(colours);
    const bool isDark = colours.color(QPalette::Base).lightness() < MIDDLE_LIGHTNESS;
    QTextCharFormat weekend;
    weekend.setForeground(isDark ? WEEKEND_ON_DARK : WEEKEND_ON_LIGHT);
    for (const Qt::DayOfWeek day : {Qt::Saturday, Qt::Sunday}) {
        calendar.setWeekdayTextFormat(day, weekend);
    }
}

}  // namespace

ClDialogCalendar::ClDialogCalendar(QWidget* parent)
    : ClDialogBase(parent),
      m_calendar(new QCalendarWidget(this)) {
    // The table of days takes the focus, so it is what a screen reader names.
    m_calendar->focusProxy()->setAccessibleName(ClBasicSettingText::tr("Calendar"));
    for (const stMonthButton& row : MONTH_BUTTONS) {
        auto* button = m_calendar->findChild<QToolButton*>(QLatin1String(row.objectName));
        if (button != nullptr) {
            button->setAccessibleName(tr(row.name));
            button->setToolButtonStyle(Qt::ToolButtonTextOnly);
            button->setText(row.arrow);
        }
    }
    if (auto* year = m_calendar->findChild<QSpinBox*>(QStringLiteral("qt_calendar_yearedit"))) {
        year->setAccessibleName(ClBasicSettingText::tr("Year"));
        // Without a frame its arrows would stand on the bar, dark on dark.
        year->setFrame(true);
    }
    if (auto* bar = m_calendar->findChild<QWidget*>(QStringLiteral("qt_calendar_navigationbar"))) {
        bar->setStyleSheet(BAR_STYLE.arg(ACCENT_COLOUR.name()));
    }
    setReadableColours(*m_calendar);
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
