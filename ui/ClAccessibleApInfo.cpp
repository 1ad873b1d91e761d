// SPDX-License-Identifier: MIT
#include "ui/ClAccessibleApInfo.h"

#include "ui/ClWidgetApInfo.h"

#include <QApplication>

ClAccessibleApInfo::ClAccessibleApInfo(QWidget* row)
    : QAccessibleWidget(row, QAccessible::ListItem) {}

QStringList ClAccessibleApInfo::actionNames() const {
    return QStringList{pressAction()} + QAccessibleWidget::actionNames();
}

void ClAccessibleApInfo::doAction(const QString& actionName) {
    if (actionName != pressAction()) {
        QAccessibleWidget::doAction(actionName);
        return;
    }
    auto* row = qobject_cast<ClWidgetApInfo*>(widget());
    const auto select = [row] {
        // An open dialog keeps mouse and keyboard off the row by itself.
        if (QApplication::activeModalWidget() == nullptr) {
            row->select();
        }
    };
    // Returns at once, whatever dialog the selection may open.
    QMetaObject::invokeMethod(row, select, Qt::QueuedConnection);
}
