// SPDX-License-Identifier: MIT
#include "ui/Accessibility.h"

#include "ui/ClAccessibleApInfo.h"
#include "ui/ClAccessibleButton.h"

#include <QAbstractButton>
#include <QAccessibleWidget>
#include <QLabel>

#include <algorithm>
#include <array>

namespace {

/// What is made for the widgets of a class and of those derived from it.
struct stAccessibleClass {
    const char* name;
    QAccessibleInterface* (*create)(QWidget* widget);  ///< null: it is left to Qt
};

template <QAccessible::Role ROLE>
QAccessibleInterface* withRole(QWidget* widget) {
    return new QAccessibleWidget(widget, ROLE);
}

QAccessibleInterface* createButton(QWidget* widget) {
    return new ClAccessibleButton(qobject_cast<QAbstractButton*>(widget));
}

QAccessibleInterface* createRow(QWidget* widget) {
    return new ClAccessibleApInfo(widget);
}

// A picture that nobody has named says nothing.
QAccessibleInterface* createDecoration(QWidget* widget) {
    const auto* label = qobject_cast<const QLabel*>(widget);
    const bool isDecoration = !label->pixmap().isNull() && label->accessibleName().isEmpty();
    return isDecoration ? withRole<QAccessible::Whitespace>(widget) : nullptr;
}

// By name, for some are classes of the pages and of the program, which this folder does not know.
constexpr std::array CLASSES{
    stAccessibleClass{"ClControlGroup", withRole<QAccessible::Grouping>},
    stAccessibleClass{"ClLabelSepalator", withRole<QAccessible::Separator>},
    stAccessibleClass{"ClMainWidget", withRole<QAccessible::Window>},
    stAccessibleClass{"ClRollOverToolBtn", createButton},
    stAccessibleClass{"ClWidgetApInfo", createRow},
    stAccessibleClass{"ClWidgetApList", withRole<QAccessible::List>},
    stAccessibleClass{"QCheckBox", createButton},
    stAccessibleClass{"QLabel", createDecoration},
    stAccessibleClass{"QPushButton", createButton},
};

// Qt asks for the class of the object and then for each of its bases.
QAccessibleInterface* create(const QString& className, QObject* object) {
    const auto* found = std::ranges::find_if(CLASSES, [&className](const stAccessibleClass& row) {
        return className == QLatin1String(row.name);
    });
    return found == CLASSES.end() ? nullptr : found->create(static_cast<QWidget*>(object));
}

}  // namespace

void installAccessibility() {
    QAccessible::installFactory(create);
}
