// SPDX-License-Identifier: MIT
#include "pages/basic/PeriodDialogs.h"

#include "pages/basic/ClBasicSettingText.h"
#include "pages/basic/ClTimeRow.h"
#include "pages/common/ControlGroups.h"
#include "settings/SettingTable.h"
#include "ui/ClDialogColumn.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

ClDialogAutoPoweroff::ClDialogAutoPoweroff(QWidget* parent) : ClDialogBase(parent) {
    auto* choice = new ClRadioGroup(tr("Set the time of auto power off"), this);
    m_never = choice->addButton(tr("Not auto power off"));
    m_timed = choice->addButton(tr("Time of auto power off"));
    m_time = new ClTimeRow(setting("camera.auto-power-off").range, this);
    m_time->setAccessibleName(m_timed->text());
    m_time->setContentsMargins(ClDialogColumn::DEPENDENT_INDENT, 0, 0, 0);
    m_time->setEnabled(false);
    connect(m_timed, &QRadioButton::toggled, this, &ClDialogAutoPoweroff::slotChangeSetting);
    connect(m_time, &ClTimeRow::sigValueChanged, this, &ClDialogAutoPoweroff::slotChangeValue);

    auto* column = new ClDialogColumn(this);
    column->addWidget(choice);
    column->addWidget(m_time);
    addButtons();
}

void ClDialogAutoPoweroff::setParam(const QVariantList& params) {
    if (params.isEmpty()) {
        return;
    }
    const unsigned int time = params[0].toUInt();
    (time != 0 ? m_timed : m_never)->setChecked(true);
    // Without a time it is the least one that the user starts from.
    m_time->setSeconds(time);
}

QVariantList ClDialogAutoPoweroff::getParam() {
    return {m_never->isChecked() ? QVariant(0) : QVariant(m_time->seconds())};
}

void ClDialogAutoPoweroff::slotChangeSetting(bool isTimed) {
    m_time->setEnabled(isTimed);
}

void ClDialogAutoPoweroff::slotChangeValue(int /*value*/) {
    m_time->keepInRange();
}

namespace {

constexpr int SECONDS_A_MINUTE = 60;
constexpr stSettingRange AUTO_WIFI_OFF = setting("wifi.auto-off").range;
constexpr int LEAST = AUTO_WIFI_OFF.least / SECONDS_A_MINUTE;
constexpr int GREATEST = AUTO_WIFI_OFF.most / SECONDS_A_MINUTE;

}  // namespace

ClDialogAutoWifiOff::ClDialogAutoWifiOff(QWidget* parent) : ClDialogBase(parent) {
    auto* choice = new ClRadioGroup(tr("Set the time of auto Wi-Fi off"), this);
    m_never = choice->addButton(tr("Not auto Wi-Fi off"));
    m_timed = choice->addButton(tr("Time of auto Wi-Fi off"));

    auto* time = new ClControlGroup(this);
    time->setAccessibleName(m_timed->text());
    time->setEnabled(false);
    connect(m_timed, &QRadioButton::toggled, time, &QWidget::setEnabled);
    m_minutes = new QSpinBox(time);
    m_minutes->setRange(LEAST, GREATEST);
    auto* unit = new QLabel(tr("Minutes"), time);
    unit->setBuddy(m_minutes);
    auto* row = new QHBoxLayout(time);
    row->setContentsMargins(ClDialogColumn::DEPENDENT_INDENT, 0, 0, 0);
    row->addWidget(m_minutes);
    row->addWidget(unit);
    row->addWidget(new QLabel(QStringLiteral("(%1 - %2)").arg(LEAST).arg(GREATEST), time));
    row->addStretch();

    auto* column = new ClDialogColumn(this);
    column->addWidget(choice);
    column->addWidget(time);
    addButtons();
}

void ClDialogAutoWifiOff::setParam(const QVariantList& params) {
    if (params.isEmpty()) {
        return;
    }
    const unsigned int time = params[0].toUInt();
    (time != 0 ? m_timed : m_never)->setChecked(true);
    if (time != 0) {
        m_minutes->setValue(static_cast<int>(time / SECONDS_A_MINUTE));
    }
}

QVariantList ClDialogAutoWifiOff::getParam() {
    return {m_never->isChecked() ? 0 : m_minutes->value() * SECONDS_A_MINUTE};
}

namespace {

void addRow(QVBoxLayout* column, const QString& text, ClTimeRow* row) {
    auto* label = new QLabel(text, column->parentWidget());
    label->setBuddy(row);
    column->addWidget(label);
    column->addWidget(row);
}

}  // namespace

ClDialogInterval::ClDialogInterval(QWidget* parent) : ClDialogBase(parent) {
    auto* choice = new ClRadioGroup(
        ClBasicSettingText::tr("Set the interval timer\nUse the interval timer that "
                               "keep capture at a certain interval"),
        this);
    m_use = choice->addButton(ClBasicSettingText::tr("Use interval timer"));
    m_notUse = choice->addButton(ClBasicSettingText::tr("Not use interval timer"));

    auto* settings = new QWidget(this);
    connect(m_use, &QRadioButton::toggled, settings, &QWidget::setEnabled);
    m_interval = new ClTimeRow(setting("interval.period").range, settings);
    m_delay = new ClTimeRow(setting("interval.delay").range, settings);
    connect(m_interval, &ClTimeRow::sigValueChanged, this, &ClDialogInterval::slotValueChange);
    connect(m_delay, &ClTimeRow::sigValueChanged, this, &ClDialogInterval::slotValueChange);
    auto* rows = new QVBoxLayout(settings);
    rows->setContentsMargins(ClDialogColumn::DEPENDENT_INDENT, 0, 0, 0);
    addRow(rows, ClBasicSettingText::tr("Time of interval that captured"), m_interval);
    addRow(rows, ClBasicSettingText::tr("Time of until start interval timer"), m_delay);

    auto* column = new ClDialogColumn(this);
    column->addWidget(choice);
    column->addWidget(settings);
    addButtons();
}

void ClDialogInterval::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        (params[0].toBool() ? m_use : m_notUse)->setChecked(true);
    }
    if (params.size() > 1) {
        m_delay->setSeconds(params[1].toUInt());
    }
    if (params.size() > 2) {
        m_interval->setSeconds(params[2].toUInt());
    }
}

QVariantList ClDialogInterval::getParam() {
    return {m_use->isChecked(), m_delay->seconds(), m_interval->seconds()};
}

void ClDialogInterval::slotValueChange(int /*value*/) {
    if (auto* row = qobject_cast<ClTimeRow*>(sender())) {
        row->keepInRange();
    }
}
