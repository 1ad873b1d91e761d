// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

/// What stands in the page area while no camera is open: a picture and a line of text.
class ClWidgetNotConnect : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetNotConnect(QWidget* parent);
};
