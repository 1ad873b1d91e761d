// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

/// A page that notes what the main window does with it.
class RecordingPage : public ClWidgetBase {
    Q_OBJECT

public:
    using ClWidgetBase::ClWidgetBase;

    void showInit(bool fromPolling) override {
        inits.append(fromPolling);
        stopsBeforeInit = stops;
    }
    void stopPolling() override {
        ++stops;
        ClWidgetBase::stopPolling();
    }

    QList<bool> inits;        ///< the flag of each showInit()
    int stops = 0;            ///< calls of stopPolling()
    int stopsBeforeInit = 0;  ///< calls of stopPolling() until the latest showInit()
    QList<VX_CMD> received;

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand) override { received.append(clCommand); }
};
