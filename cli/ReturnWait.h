// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ClReport.h"

#include <functional>

/// How long to wait for a camera, in milliseconds.
struct stReturnPatience {
    int leavingMs = 0;    ///< until it leaves the bus
    int returningMs = 0;  ///< until it is back, both together
};

/// Waits until the camera that was @p before has left its port, has come back and answers; then it
/// is @p after. One that stays on the bus is @p after as it was before. Between two looks it calls
/// @p betweenLooks, unless that is null. The failure says what is missing in the end, or that the
/// user wishes to end.
[[nodiscard]] stFailure waitForReturn(const stCameraIdentity& before,
                                      const stReturnPatience& patience, stCameraIdentity& after,
                                      const std::function<void()>& betweenLooks = {});
