// SPDX-License-Identifier: MIT
#include "simulator/BusPort.h"

#include "simulator/FilePermissions.h"

#include <set>
#include <utility>

namespace nubo::simulator {

BusPort::BusPort(VirtualUsbBus& bus, std::shared_ptr<VirtualDevice> device, DeviceOptions options)
    : m_bus(bus),
      m_device(std::move(device)),
      m_options(std::move(options)) {}

std::string BusPort::plug() {
    if (m_bus.deviceNumber(m_id)) {
        return "the camera is plugged in already";
    }
    bool plugged = false;
    if (m_id) {
        plugged = m_bus.replug(m_id);
    } else {
        m_id = m_bus.plug(m_device, m_options);
        plugged = static_cast<bool>(m_id);
    }
    return plugged ? "" : "the bus has no room";
}

std::string BusPort::unplug() {
    return m_bus.unplug(m_id) ? "" : "the camera is not plugged in";
}

std::string BusPort::addFault(const Fault& fault) {
    if (!m_id) {
        return "the camera has never been plugged in";
    }
    m_bus.addFault(m_id, fault);
    return {};
}

void BusPort::clearFaults() {
    m_bus.clearFaults(m_id);
}

std::string BusPort::setAccess(NodeAccess access) {
    if (access == NodeAccess::Denied && passesOverFilePermissions()) {
        return "root may open every node: start the simulator with --as-user";
    }
    m_options.access = access;
    m_bus.setNodeAccess(m_id, access);
    return {};
}

std::string BusPort::setBusy(bool busy) {
    m_options.busyInterfaces = busy ? std::set{0} : std::set<int>();
    m_bus.setBusyInterfaces(m_id, m_options.busyInterfaces);
    return {};
}

std::string BusPort::status() const {
    const auto number = m_bus.deviceNumber(m_id);
    const DeviceLog log = m_bus.log(m_id);
    return (number ? "device " + std::to_string(*number) : "unplugged") + ", open " +
           std::to_string(log.openHandles) + ", transfers " + std::to_string(log.transferCount) +
           ", commands " + std::to_string(log.commandCount);
}

}  // namespace nubo::simulator
