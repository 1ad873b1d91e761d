// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

/// What assistive technology sees of a push button, a check box or a ClRollOverToolBtn: its action
/// does what a click does.
///
/// The toolkit offers to toggle a checkable button, which changes its looks without the click that
/// the program listens to. A ClRollOverToolBtn that is checkable is one of several to choose from.
class ClAccessibleButton : public QAccessibleWidget {
public:
    explicit ClAccessibleButton(QAbstractButton* button);

    [[nodiscard]] QString text(QAccessible::Text kind) const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& actionName) const override;

private:
    [[nodiscard]] QAbstractButton* button() const;
    [[nodiscard]] QString clickAction() const;
};
