// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

/// The page of the stream settings. Main thread.
class ClWidgetStreamSetting : public ClWidgetBase {
    Q_OBJECT

public:
    using ClWidgetBase::ClWidgetBase;
};
