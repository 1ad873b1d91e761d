// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogTime.h"

#include "pages/basic/ClBasicSettingText.h"
#include "pages/basic/ClDialogCalendar.h"
#include "settings/CameraClock.h"
#include "ui/ClDialogColumn.h"
#include "ui/ClMessageBox.h"
#include "ui/ClTextButton.h"

#include <QHBoxLayout>
#include <QIntValidator>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds SYNCHRONISING_INTERVAL = 500ms;
constexpr int FIELD_SPACING = 5;  // pixels
constexpr int TIME_SPACING = 15;  // pixels, between date and time

struct stField {
    const char* name;
    const char* before;  ///< what separates it from the field before; null: an empty space
    int least;
    int greatest;
    int width;  ///< pixels, at most
};

constexpr std::array<stField, 6> FIELD_ROWS{{
    {QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Year"), nullptr, ClDialogCalendar::FIRST_YEAR,
     ClDialogCalendar::LAST_YEAR, 45},
    {QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Month"), "/", 1, 12, 25},
    {QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Day"), "/", 1, 31, 25},
    {QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Hour"), nullptr, 0, 24, 25},
    {QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Minute"), ":", 0, 59, 25},
    {QT_TRANSLATE_NOOP("ClWidgetBasicSetting", "Second"), ":", 0, 59, 25},
}};

// No value of a null time is one of a valid time.
std::array<int, 6> componentsOf(const QDateTime& time) {
    const QDate date = time.date();
    const QTime clock = time.time();
    return {date.year(), date.month(), date.day(), clock.hour(), clock.minute(), clock.second()};
}

/// Refuses, while it is being typed, what is above the top. The toolkit's own lets every number of
/// as many digits stand, and the dialog takes what stands there.
class TopValidator : public QIntValidator {
public:
    using QIntValidator::QIntValidator;

    State validate(QString& input, int& pos) const override {
        return input.toInt() > top() ? Invalid : QIntValidator::validate(input, pos);
    }
};

QLineEdit* createField(const stField& row, QWidget* parent) {
    auto* field = new QLineEdit(parent);
    auto* validator = new TopValidator(row.least, row.greatest, field);
    // Digits alone: what is read from the field knows no separators either.
    QLocale digits = QLocale::c();
    digits.setNumberOptions(QLocale::RejectGroupSeparator);
    validator->setLocale(digits);
    field->setValidator(validator);
    field->setMaximumWidth(row.width);
    field->setAccessibleName(ClBasicSettingText::tr(row.name));
    return field;
}

}  // namespace

ClDialogTime::ClDialogTime(QWidget* parent, Clock clock)
    : ClDialogBase(parent),
      m_clock(std::move(clock)) {
    auto* fields = new QHBoxLayout;
    fields->setSpacing(FIELD_SPACING);
    fields->addStretch();
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        if (FIELD_ROWS[i].before != nullptr) {
            fields->addWidget(new QLabel(QString::fromLatin1(FIELD_ROWS[i].before), this));
        } else if (i > 0) {
            fields->addSpacing(TIME_SPACING);
        }
        m_fields[i] = createField(FIELD_ROWS[i], this);
        fields->addWidget(m_fields[i]);
    }
    fields->addStretch();
    m_synchronize = new ClTextButton(ClBasicSettingText::tr("Synchronize PC"), this);
    m_synchronize->setCheckable(true);
    m_calendar = new ClTextButton(ClBasicSettingText::tr("Calendar"), this);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(m_synchronize);
    buttons->addWidget(m_calendar);
    auto* column = new ClDialogColumn(this);
    column->addLayout(fields);
    column->addLayout(buttons);
    addButtons();

    m_timer.setInterval(SYNCHRONISING_INTERVAL);
    connect(&m_timer, &QTimer::timeout, this, &ClDialogTime::slotTimerFired);
    connect(m_synchronize, &QPushButton::clicked, this, &ClDialogTime::slotChangeEditable);
    connect(m_calendar, &QPushButton::clicked, this, &ClDialogTime::slotShowCalendar);
}

void ClDialogTime::setParam(const QVariantList& params) {
    const QDateTime time = cameraClock(params.value(0).toDateTime());
    if (time.isValid()) {
        showTime(time, {});
    }
}

QVariantList ClDialogTime::getParam() {
    const QTime time(value(Hour), value(Minute), value(Second));
    // Given a date alone, QDateTime would make it midnight.
    return {time.isValid() ? QDateTime(date(), time) : QDateTime()};
}

void ClDialogTime::accept() {
    const auto isEmpty = [](const QLineEdit* field) { return field->text().isEmpty(); };
    if (std::ranges::any_of(m_fields, isEmpty)) {
        ClMessageBox::tell(this, ClBasicSettingText::tr("There are not input value"));
    } else if (value(Year) < ClDialogCalendar::FIRST_YEAR ||
               value(Year) > ClDialogCalendar::LAST_YEAR) {
        ClMessageBox::tell(this, ClBasicSettingText::tr("Invalid year\nSet from 2000 to 2100"));
    } else {
        ClDialogBase::accept();
    }
}

void ClDialogTime::slotChangeEditable() {
    m_isSynchronising = !m_isSynchronising;
    if (m_isSynchronising) {
        m_timer.start();
        slotTimerFired();
    } else {
        m_timer.stop();
        m_lastShown = {};
    }
    for (QLineEdit* const field : m_fields) {
        field->setEnabled(!m_isSynchronising);
    }
    m_calendar->setEnabled(!m_isSynchronising);
    m_synchronize->setChecked(m_isSynchronising);
}

void ClDialogTime::slotTimerFired() {
    const QDateTime now = m_clock();
    showTime(now, m_lastShown);
    m_lastShown = now;
}

void ClDialogTime::slotShowCalendar() {
    ClDialogCalendar calendar(this);
    calendar.setParam({date()});
    if (calendar.exec() == QDialog::Accepted) {
        const QDate chosen = calendar.getParam().value(0).toDate();
        m_fields[Year]->setText(QString::number(chosen.year()));
        m_fields[Month]->setText(QString::number(chosen.month()));
        m_fields[Day]->setText(QString::number(chosen.day()));
    }
}

int ClDialogTime::value(Field field) const {
    return m_fields[field]->text().toInt();
}

QDate ClDialogTime::date() const {
    return {value(Year), value(Month), value(Day)};
}

void ClDialogTime::showTime(const QDateTime& time, const QDateTime& shown) {
    const auto before = componentsOf(shown);
    const auto now = componentsOf(time);
    for (std::size_t i = 0; i < m_fields.size(); ++i) {
        if (now[i] != before[i]) {
            m_fields[i]->setText(QString::number(now[i]));
        }
    }
}
