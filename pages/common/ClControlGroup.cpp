// SPDX-License-Identifier: MIT
#include "pages/common/ClControlGroup.h"

#include <QVBoxLayout>

ClControlGroup::ClControlGroup(QWidget* parent) : QWidget(parent) {}

ClControlGroup::ClControlGroup(const QString& name, QWidget* control, QWidget* parent)
    : ClControlGroup(parent) {
    setAccessibleName(name);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(control);
}
