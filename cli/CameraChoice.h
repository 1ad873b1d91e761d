// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ClCameraFinder.h"
#include "cli/Verb.h"

/// The cameras that the arguments choose: the one named by -c, the only one, or all. With --wait
/// it waits for one to be there. The failure says why there is none, or which there are to choose
/// from.
[[nodiscard]] stFailure chooseCameras(const stArguments& arguments, ClCameraFinder& finder,
                                      std::vector<stCamera>& cameras);

/// Opens @p camera; with --wait it waits until nobody else holds it. A camera that was unplugged
/// and plugged in again meanwhile is looked for anew at its port, and @p camera is that one then;
/// but not with --all, whose cameras share @p finder.
[[nodiscard]] std::unique_ptr<ClSession> openCamera(const stArguments& arguments,
                                                    ClCameraFinder& finder, stCamera& camera,
                                                    stFailure& failure);

/// The serial number that the camera tells; empty when it tells none.
[[nodiscard]] QString serialOf(ClSession& camera);
