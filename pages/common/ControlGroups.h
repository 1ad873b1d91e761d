// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QRadioButton;

/// Controls that belong together, in one widget that a screen reader announces as a group: give it
/// an accessible name or make it a label's buddy.
class ClControlGroup : public QWidget {
    Q_OBJECT

public:
    explicit ClControlGroup(QWidget* parent);

    /// A group of @p control alone, which becomes its child. For a combo box: its accessible name
    /// is its value, so the group has to say what it is for.
    ClControlGroup(const QString& name, QWidget* control, QWidget* parent);
};

/// A label that names what is set, and below it radio buttons, exclusive among themselves. The
/// first one is checked until another is.
class ClRadioGroup : public ClControlGroup {
    Q_OBJECT

public:
    ClRadioGroup(const QString& label, QWidget* parent);

    /// The button belongs to the group.
    QRadioButton* addButton(const QString& text);
};
