// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClControlGroup.h"

class QRadioButton;

/// A label that names what is set, and below it radio buttons, exclusive among themselves. The
/// first one is checked until another is.
class ClRadioGroup : public ClControlGroup {
    Q_OBJECT

public:
    ClRadioGroup(const QString& label, QWidget* parent);

    /// The button belongs to the group.
    QRadioButton* addButton(const QString& text);
};
