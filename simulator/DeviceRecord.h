// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceLog.h"
#include "simulator/DeviceOptions.h"
#include "simulator/Fault.h"
#include "simulator/VirtualDevice.h"

#include <memory>
#include <string>

namespace nubo::simulator {

/// What outlives one plugging-in: the device, and what is set and logged for it. Guarded by the
/// mutex of the bus.
struct DeviceRecord {
    std::shared_ptr<VirtualDevice> device;
    DeviceOptions options;
    std::string serialNumber;  ///< as it was when the device was plugged in
    FaultPlan faults;
    DeviceLog log;
};

}  // namespace nubo::simulator
