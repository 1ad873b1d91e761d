// SPDX-License-Identifier: MIT
#include "app/AccessibleRoles.h"

#include "app/ClMainWidget.h"
#include "ui/ClLabelSepalator.h"

#include <QAccessibleWidget>

namespace {

QAccessibleInterface* accessibleOf(const QString& /*className*/, QObject* object) {
    if (auto* window = qobject_cast<ClMainWidget*>(object)) {
        return new QAccessibleWidget(window, QAccessible::Window);
    }
    if (auto* separator = qobject_cast<ClLabelSepalator*>(object)) {
        return new QAccessibleWidget(separator, QAccessible::Separator);
    }
    return nullptr;
}

}  // namespace

void installAccessibleRoles() {
    QAccessible::installFactory(&accessibleOf);
}
