// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/PortCamera.h"
#include "tests/support/ScriptedPort.h"

/// The USB side with one live camera, which talks as scripted.
class FakeCameraAccess : public PortCamera<ScriptedPort> {
public:
    explicit FakeCameraAccess(const Script& script) : PortCamera(script) {}
};
