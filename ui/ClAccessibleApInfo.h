// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

/// What assistive technology sees of a ClWidgetApInfo: an entry of a list that can be pressed.
class ClAccessibleApInfo : public QAccessibleWidget {
public:
    explicit ClAccessibleApInfo(QWidget* row);

    /// Has these made for every ClWidgetApInfo from now on, and lists for every ClWidgetApList; may
    /// be called again.
    static void install();

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
};
