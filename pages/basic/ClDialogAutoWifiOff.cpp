// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogAutoWifiOff.h"

#include "pages/common/ClRadioGroup.h"
#include "ui/ClDialogColumn.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

namespace {

constexpr int SECONDS_A_MINUTE = 60;
constexpr int LEAST = 1;      // minutes
constexpr int GREATEST = 10;  // minutes

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
