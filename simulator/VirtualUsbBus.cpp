// SPDX-License-Identifier: MIT
#include "simulator/VirtualUsbBus.h"

#include "simulator/BusState.h"
#include "simulator/Testbed.h"

#include <utility>

namespace nubo::simulator {

bool VirtualUsbBus::isAvailable() {
    return Testbed::isPreloaded();
}

VirtualUsbBus::VirtualUsbBus() : m_state(std::make_unique<BusState>()) {}

VirtualUsbBus::~VirtualUsbBus() {
    m_state->shutDown();
}

DeviceId VirtualUsbBus::plug(std::shared_ptr<VirtualDevice> device, const DeviceOptions& options) {
    return m_state->add(std::move(device), options);
}

bool VirtualUsbBus::replug(DeviceId id) {
    return m_state->plugIn(id);
}

bool VirtualUsbBus::unplug(DeviceId id) {
    return m_state->pull(id);
}

void VirtualUsbBus::settle() {
    m_state->settle();
}

std::vector<DeviceId> VirtualUsbBus::devices() const {
    return m_state->plugged();
}

std::optional<int> VirtualUsbBus::deviceNumber(DeviceId id) const {
    return m_state->number(id);
}

DeviceLog VirtualUsbBus::log(DeviceId id) const {
    DeviceLog copy;
    m_state->withRecord(id, [&](const DeviceRecord& record) { copy = record.log; });
    return copy;
}

bool VirtualUsbBus::waitForLog(DeviceId id, const std::function<bool(const DeviceLog&)>& condition,
                               std::chrono::milliseconds timeout) const {
    return m_state->waitFor(
        id, timeout, [&](const BusState::Device& device) { return condition(device.record->log); });
}

bool VirtualUsbBus::waitForTransfers(DeviceId id, std::uint64_t count,
                                     std::chrono::milliseconds timeout) const {
    return waitForLog(
        id, [&](const DeviceLog& log) { return log.transferCount >= count; }, timeout);
}

bool VirtualUsbBus::waitForPlugged(DeviceId id, bool plugged,
                                   std::chrono::milliseconds timeout) const {
    return m_state->waitFor(id, timeout, [&](const BusState::Device& device) {
        return (device.node != nullptr) == plugged;
    });
}

void VirtualUsbBus::addFault(DeviceId id, const Fault& fault) {
    m_state->withRecord(id, [&](DeviceRecord& record) { record.faults.add(fault); });
}

void VirtualUsbBus::clearFaults(DeviceId id) {
    m_state->withRecord(id, [](DeviceRecord& record) { record.faults.clear(); });
}

void VirtualUsbBus::setBusyInterfaces(DeviceId id, const std::set<int>& interfaces) {
    m_state->withRecord(id,
                        [&](DeviceRecord& record) { record.options.busyInterfaces = interfaces; });
}

void VirtualUsbBus::setNodeAccess(DeviceId id, NodeAccess access) {
    m_state->setAccess(id, access);
}

}  // namespace nubo::simulator
