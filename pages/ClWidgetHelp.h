// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

/// The help page. Main thread.
class ClWidgetHelp : public ClWidgetBase {
    Q_OBJECT

public:
    using ClWidgetBase::ClWidgetBase;

Q_SIGNALS:
    void sigUpdate(int iKind);  ///< an update of kind @p iKind is wanted
};
