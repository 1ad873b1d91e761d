// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/UsbDescriptors.h"

#include <chrono>
#include <set>

namespace nubo::simulator {

/// How the device's node answers an attempt to open it.
enum class NodeAccess {
    Allowed,
    Denied,   ///< a node without permissions: EACCES, but not for a root that may override them
    Missing,  ///< no node: ENOENT
};

struct DeviceOptions {
    DeviceDescription description = {};
    std::set<int> busyInterfaces = {};  ///< claiming one of them answers EBUSY
    NodeAccess access = NodeAccess::Allowed;
    std::chrono::milliseconds restartDelay{1000};  ///< time off the bus when the device restarts
};

}  // namespace nubo::simulator
