// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessibleWidget>

/// What assistive technology sees of a ClWidgetApInfo: an entry of a list that can be pressed.
class ClAccessibleApInfo : public QAccessibleWidget {
public:
    explicit ClAccessibleApInfo(QWidget* row);

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& actionName) override;
};
