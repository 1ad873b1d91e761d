// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Controls that belong together, in one widget that a screen reader announces as a group: give it
/// an accessible name or make it a label's buddy. Main thread.
class ClControlGroup : public QWidget {
    Q_OBJECT

public:
    explicit ClControlGroup(QWidget* parent);

    /// A group of @p control alone, which becomes its child: a combo box tells its value as its
    /// name, and is known by the group's.
    ClControlGroup(const QString& name, QWidget* control, QWidget* parent);
};
