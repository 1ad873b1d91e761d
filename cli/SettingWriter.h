// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Verb.h"
#include "settings/ClSettingAccess.h"

#include <QList>

/// A value that is to be set.
struct stWantedValue {
    const stSetting* setting;
    QVariant value;
    /// The clock is to be set to the computer's, as it is then.
    bool isNow = false;
};

/// A value that differs from the camera's.
struct stDifference {
    stWantedValue wanted;
    QVariant before;
};

/// Reads from the camera what of @p wanted differs, in the order of the table. What cannot be read
/// goes to the report.
[[nodiscard]] QList<stDifference> readDifferences(stRun& run, const QList<stWantedValue>& wanted);

/// Writes @p differences in their order, those that travel together with one command, and reads
/// each back; the report learns of every one. Stops at the first failure; with @p keepsGoing only
/// when the link fails.
void writeDifferences(stRun& run, const QList<stDifference>& differences, bool keepsGoing);
