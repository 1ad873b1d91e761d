// SPDX-License-Identifier: MIT
#include "pages/common/ClControlGroup.h"

#include <QAccessibleWidget>
#include <QVBoxLayout>

namespace {

// Asked for the class of the object and for each of its bases in turn.
QAccessibleInterface* createGrouping(const QString& className, QObject* object) {
    const bool own = className == QLatin1String(ClControlGroup::staticMetaObject.className());
    auto* group = own ? qobject_cast<ClControlGroup*>(object) : nullptr;
    return group != nullptr ? new QAccessibleWidget(group, QAccessible::Grouping) : nullptr;
}

}  // namespace

ClControlGroup::ClControlGroup(QWidget* parent) : QWidget(parent) {
    // Installing it again does nothing.
    QAccessible::installFactory(createGrouping);
}

ClControlGroup::ClControlGroup(const QString& name, QWidget* control, QWidget* parent)
    : ClControlGroup(parent) {
    setAccessibleName(name);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(control);
}
