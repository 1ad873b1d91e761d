// SPDX-License-Identifier: MIT
#pragma once

#include <QDialog>
#include <QStringList>

#include <functional>
#include <memory>

/// A dialog of the tool, and what is to be expected of it.
struct stDialog {
    const char* name;
    std::function<std::unique_ptr<QDialog>()> create;
    const char* focus;    ///< the name of the control that has the focus first
    QStringList buttons;  ///< of the last row, the accepting one first
    const char* context;  ///< where the texts are looked up; null: they are the caller's
};

/// Every settings dialog and every kind of message box.
const QList<stDialog>& dialogs();

/// Adds a column "index", into dialogs(), and a data row for each of them.
void addDialogs();
/// The same without the message boxes.
void addSettingDialogs();

/// Makes a dialog and shows it.
std::unique_ptr<QDialog> openDialog(const stDialog& row);

/// How a screen reader calls @p control.
QString nameOf(QWidget* control);

/// The controls that Tab stops at, in its order.
QList<QWidget*> tabStops(QWidget& dialog);
