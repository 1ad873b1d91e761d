// SPDX-License-Identifier: MIT
#include "pages/common/ClRadioGroup.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

ClRadioGroup::ClRadioGroup(const QString& label, QWidget* parent) : ClControlGroup(parent) {
    setAccessibleName(label);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new QLabel(label, this));
}

QRadioButton* ClRadioGroup::addButton(const QString& text) {
    auto* button = new QRadioButton(text, this);
    // Tab stops at the checked button. The toolkit sees to that only after a button has had the
    // keyboard, and gives it to the first one until then, where a blank would change the choice.
    button->setFocusPolicy(Qt::ClickFocus);
    connect(button, &QRadioButton::toggled, button, [button](bool isChecked) {
        button->setFocusPolicy(isChecked ? Qt::StrongFocus : Qt::ClickFocus);
    });
    button->setChecked(findChildren<QRadioButton*>().size() == 1);
    layout()->addWidget(button);
    return button;
}
