// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogInterval.h"

#include "pages/basic/ClBasicSettingText.h"
#include "pages/basic/ClTimeRow.h"
#include "pages/common/ClRadioGroup.h"
#include "ui/ClDialogColumn.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace {

constexpr unsigned int LEAST_INTERVAL = 1;  // seconds
constexpr unsigned int LEAST_DELAY = 0;     // seconds

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
    m_interval = new ClTimeRow(LEAST_INTERVAL, settings);
    m_delay = new ClTimeRow(LEAST_DELAY, settings);
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
