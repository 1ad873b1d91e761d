// SPDX-License-Identifier: MIT
#include "ui/ClAccessibleButton.h"

#include "ui/ButtonKeys.h"
#include "ui/ClRollOverToolBtn.h"

#include <QCheckBox>
#include <QPushButton>

ClAccessibleButton::ClAccessibleButton(QAbstractButton* button) : QAccessibleWidget(button) {}

QString ClAccessibleButton::text(QAccessible::Text kind) const {
    const bool isCalledByItsText = kind == QAccessible::Name &&
                                   button()->accessibleName().isEmpty() &&
                                   !button()->text().isEmpty();
    // Some desktops mark a letter of each button.
    return isCalledByItsText ? button()->text().remove(u'&') : QAccessibleWidget::text(kind);
}

QAccessible::Role ClAccessibleButton::role() const {
    if (qobject_cast<QCheckBox*>(button()) != nullptr) {
        return QAccessible::CheckBox;
    }
    const bool isChoice =
        button()->isCheckable() && qobject_cast<ClRollOverToolBtn*>(button()) != nullptr;
    return isChoice ? QAccessible::RadioButton : QAccessible::Button;
}

QAccessible::State ClAccessibleButton::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.checkable = button()->isCheckable();
    state.checked = button()->isChecked();
    state.pressed = button()->isDown();
    const auto* pushButton = qobject_cast<QPushButton*>(button());
    state.defaultButton = pushButton != nullptr && pushButton->isDefault();
    return state;
}

QStringList ClAccessibleButton::actionNames() const {
    QStringList names = QAccessibleWidget::actionNames();
    if (button()->isEnabled()) {
        names.prepend(clickAction());
    }
    return names;
}

void ClAccessibleButton::doAction(const QString& actionName) {
    if (actionName != clickAction()) {
        QAccessibleWidget::doAction(actionName);
    } else if (button()->isEnabled()) {
        // Returns at once, whatever dialog the click may open.
        button()->animateClick();
    }
}

QStringList ClAccessibleButton::keyBindingsForAction(const QString& actionName) const {
    return actionName == clickAction() ? keysOf(*button())
                                       : QAccessibleWidget::keyBindingsForAction(actionName);
}

QAbstractButton* ClAccessibleButton::button() const {
    return static_cast<QAbstractButton*>(widget());
}

QString ClAccessibleButton::clickAction() const {
    const bool isToggle = button()->isCheckable() && role() != QAccessible::RadioButton;
    return isToggle ? toggleAction() : pressAction();
}
