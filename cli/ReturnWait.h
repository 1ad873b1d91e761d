// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ClReport.h"

#include <functional>

/// Waits until the camera that was @p before has left its port, has come back and answers; then it
/// is @p after. Between two looks it calls @p betweenLooks, unless that is null. The failure says
/// what is missing after @p patienceMs, or that the user wishes to end.
[[nodiscard]] stFailure waitForReturn(const stCameraIdentity& before, int patienceMs,
                                      stCameraIdentity& after,
                                      const std::function<void()>& betweenLooks = {});
