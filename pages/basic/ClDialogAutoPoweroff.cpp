// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogAutoPoweroff.h"

#include "pages/basic/ClTimeRow.h"
#include "pages/common/ClRadioGroup.h"
#include "ui/ClDialogColumn.h"

#include <QRadioButton>

namespace {

constexpr unsigned int LEAST_TIME = 60;  // seconds

}  // namespace

ClDialogAutoPoweroff::ClDialogAutoPoweroff(QWidget* parent) : ClDialogBase(parent) {
    auto* choice = new ClRadioGroup(tr("Set the time of auto power off"), this);
    m_never = choice->addButton(tr("Not auto power off"));
    m_timed = choice->addButton(tr("Time of auto power off"));
    m_time = new ClTimeRow(LEAST_TIME, this);
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
