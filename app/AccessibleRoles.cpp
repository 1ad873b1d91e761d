// SPDX-License-Identifier: MIT
#include "app/AccessibleRoles.h"

#include "app/ClMainWidget.h"
#include "ui/ClLabelSepalator.h"

#include <QAccessibleWidget>

namespace {

// A picture that nobody has named says nothing.
bool isDecoration(const QObject* object) {
    const auto* label = qobject_cast<const QLabel*>(object);
    return label != nullptr && !label->pixmap().isNull() && label->accessibleName().isEmpty();
}

QAccessibleInterface* accessibleOf(const QString& /*className*/, QObject* object) {
    if (auto* window = qobject_cast<ClMainWidget*>(object)) {
        return new QAccessibleWidget(window, QAccessible::Window);
    }
    if (auto* separator = qobject_cast<ClLabelSepalator*>(object)) {
        return new QAccessibleWidget(separator, QAccessible::Separator);
    }
    if (isDecoration(object)) {
        return new QAccessibleWidget(static_cast<QWidget*>(object), QAccessible::Whitespace);
    }
    return nullptr;
}

}  // namespace

void installAccessibleRoles() {
    QAccessible::installFactory(&accessibleOf);
}
