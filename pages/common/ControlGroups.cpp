// SPDX-License-Identifier: MIT
#include "pages/common/ControlGroups.h"

#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

ClControlGroup::ClControlGroup(QWidget* parent) : QWidget(parent) {}

ClControlGroup::ClControlGroup(const QString& name, QWidget* control, QWidget* parent)
    : ClControlGroup(parent) {
    setAccessibleName(name);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(control);
}

ClRadioGroup::ClRadioGroup(const QString& label, QWidget* parent) : ClControlGroup(parent) {
    setAccessibleName(label);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(new QLabel(label, this));
}

QRadioButton* ClRadioGroup::addButton(const QString& text) {
    auto* button = new QRadioButton(text, this);
    // Until a radio button has had the focus, Qt has Tab stop at the first one, and Space would
    // then change the choice. So only the checked one takes the focus by Tab.
    button->setFocusPolicy(Qt::ClickFocus);
    connect(button, &QRadioButton::toggled, button, [button](bool isChecked) {
        button->setFocusPolicy(isChecked ? Qt::StrongFocus : Qt::ClickFocus);
    });
    button->setChecked(findChildren<QRadioButton*>().size() == 1);
    layout()->addWidget(button);
    return button;
}
