// SPDX-License-Identifier: MIT
#include "ui/ClAccessibleRollOver.h"

#include "ui/ClRollOverToolBtn.h"

namespace {

// Asked for the class of the object and for each of its bases in turn.
QAccessibleInterface* create(const QString& className, QObject* object) {
    const bool own = className == QLatin1String(ClRollOverToolBtn::staticMetaObject.className());
    auto* button = own ? qobject_cast<ClRollOverToolBtn*>(object) : nullptr;
    return button != nullptr ? new ClAccessibleRollOver(button) : nullptr;
}

}  // namespace

ClAccessibleRollOver::ClAccessibleRollOver(ClRollOverToolBtn* button) : QAccessibleWidget(button) {}

void ClAccessibleRollOver::install() {
    QAccessible::installFactory(create);
}

QAccessible::Role ClAccessibleRollOver::role() const {
    return button()->isCheckable() ? QAccessible::RadioButton : QAccessible::Button;
}

QAccessible::State ClAccessibleRollOver::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button()->isCheckable();
    state.checked = button()->isChecked();
    state.pressed = button()->isDown();
    return state;
}

QStringList ClAccessibleRollOver::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (button()->isEnabled()) {
        names.prepend(pressAction());
    }
    return names;
}

void ClAccessibleRollOver::doAction(const QString& actionName) {
    if (actionName != pressAction()) {
        QAccessibleWidget::doAction(actionName);
    } else if (button()->isEnabled()) {
        // Returns at once, whatever dialog the click may open.
        button()->animateClick();
    }
}

ClRollOverToolBtn* ClAccessibleRollOver::button() const {
    return static_cast<ClRollOverToolBtn*>(widget());
}
