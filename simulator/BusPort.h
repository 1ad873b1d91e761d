// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraPort.h"
#include "simulator/VirtualUsbBus.h"

#include <memory>

namespace nubo::simulator {

/// A port of the virtual bus, which outlives it.
class BusPort : public CameraPort {
public:
    BusPort(VirtualUsbBus& bus, std::shared_ptr<VirtualDevice> device, DeviceOptions options);

    std::string plug() override;
    std::string unplug() override;
    std::string addFault(const Fault& fault) override;
    void clearFaults() override;
    std::string setAccess(NodeAccess access) override;
    std::string setBusy(bool busy) override;
    std::string status() const override;

private:
    VirtualUsbBus& m_bus;
    std::shared_ptr<VirtualDevice> m_device;
    DeviceOptions m_options;
    DeviceId m_id;  ///< no device until it is plugged in for the first time
};

}  // namespace nubo::simulator
