// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

class ClRollOverToolBtn;

/// What assistive technology sees of a ClRollOverToolBtn: a button that can be pressed, or one of
/// several to choose from when it is checkable.
///
/// The toolkit takes a checkable tool button for a check box and offers to toggle it, which changes
/// its looks without the click that the program listens to. Main thread.
class ClAccessibleRollOver : public QAccessibleWidget {
public:
    explicit ClAccessibleRollOver(ClRollOverToolBtn* button);

    /// Has these made for every ClRollOverToolBtn from now on; may be called again.
    static void install();

    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;
    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;

private:
    [[nodiscard]] ClRollOverToolBtn* button() const;
};
