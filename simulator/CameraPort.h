// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceOptions.h"
#include "simulator/Fault.h"

#include <string>

namespace nubo::simulator {

/// What one simulated camera is plugged into: the virtual bus, or a real port of this computer.
///
/// Functions that return a text return an empty one when they are done, else why not. All may be
/// called from any thread.
class CameraPort {
public:
    virtual ~CameraPort() = default;

    virtual std::string plug() = 0;
    virtual std::string unplug() = 0;

    /// Adds a fault; what it strikes is counted from now.
    virtual std::string addFault(const Fault& fault) = 0;
    virtual void clearFaults() = 0;

    /// How the device node answers opening.
    virtual std::string setAccess(NodeAccess access) = 0;
    /// Whether claiming the interface is refused.
    virtual std::string setBusy(bool busy) = 0;

    /// Where the camera is plugged in, and what has happened to it.
    virtual std::string status() const = 0;

protected:
    CameraPort() = default;
    CameraPort(const CameraPort&) = default;
    CameraPort& operator=(const CameraPort&) = default;
};

}  // namespace nubo::simulator
