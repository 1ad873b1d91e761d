// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogLed.h"

#include "pages/common/ClRadioGroup.h"
#include "ui/ClDialogColumn.h"

#include <QRadioButton>

ClDialogLed::ClDialogLed(QWidget* parent) : ClDialogBase(parent) {
    auto* choice = new ClRadioGroup(tr("Can set to light led on power on"), this);
    m_light = choice->addButton(tr("Light"));
    m_notLight = choice->addButton(tr("Not light"));

    (new ClDialogColumn(this))->addWidget(choice);
    addButtons();
}

void ClDialogLed::setParam(const QVariantList& params) {
    if (!params.isEmpty()) {
        (params[0].toBool() ? m_light : m_notLight)->setChecked(true);
    }
}

QVariantList ClDialogLed::getParam() {
    return {m_light->isChecked()};
}
