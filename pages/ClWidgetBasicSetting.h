// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

/// The page of the basic settings. Main thread.
class ClWidgetBasicSetting : public ClWidgetBase {
    Q_OBJECT

public:
    using ClWidgetBase::ClWidgetBase;
};
