// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"
#include "protocol/NuboRecords.h"

// What stands in the value replies that carry more than one value. A value that a reply lacks reads
// as 0 or empty. Thread-safe.

[[nodiscard]] stBattery battery(const VX_CMD& answer);
[[nodiscard]] stSdInfo sdInfo(const VX_CMD& answer);
[[nodiscard]] stWifiInfo wifiInfo(const VX_CMD& answer);
/// The way back: writes the values of @p info into @p answer.
void setWifiInfo(VX_CMD& answer, const stWifiInfo& info);
[[nodiscard]] AccesspointList accesspointList(const VX_CMD& answer);
