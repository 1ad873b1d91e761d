// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

/// The page of the network settings. Main thread.
class ClWidgetNetworkSetting : public ClWidgetBase {
    Q_OBJECT

public:
    using ClWidgetBase::ClWidgetBase;
};
