// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceNode.h"
#include "simulator/DeviceRecord.h"
#include "simulator/Scheduler.h"
#include "simulator/Testbed.h"
#include "simulator/VirtualUsbBus.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace nubo::simulator {

/// What is plugged into a VirtualUsbBus, and where.
///
/// Lock order: topology (what is plugged in where, one change at a time), then mutex (the records).
/// The testbed is called with topology alone, since its thread may wait for the mutex.
class BusState {
public:
    DeviceId add(std::shared_ptr<VirtualDevice> virtualDevice, const DeviceOptions& options);
    bool plugIn(DeviceId id);
    bool pull(DeviceId id);
    void settle() { m_scheduler.settle(); }
    void shutDown();

    std::vector<DeviceId> plugged() const;
    std::optional<int> number(DeviceId id) const;
    void setAccess(DeviceId id, NodeAccess access);

    /// Runs @p use on the record of the device under the mutex, if there is such a device.
    template <class Use>
    void withRecord(DeviceId id, Use use) const {
        const std::lock_guard lock(m_mutex);
        if (const auto device = m_devices.find(id.value); device != m_devices.end()) {
            use(*device->second.record);
        }
    }

    /// Waits until @p condition holds for the device, which it is given under the mutex.
    template <class Condition>
    bool waitFor(DeviceId id, std::chrono::milliseconds timeout, Condition condition) const {
        std::unique_lock lock(m_mutex);
        const auto device = m_devices.find(id.value);
        return device != m_devices.end() &&
               m_changed.wait_for(lock, timeout, [&] { return condition(device->second); });
    }

    struct Device {
        std::shared_ptr<DeviceRecord> record;
        std::shared_ptr<DeviceNode> node;  ///< null while unplugged
        BusAddress address;
        std::uint64_t changes = 0;  ///< how often it was plugged in or unplugged
    };

private:
    bool plugInLocked(DeviceId id, Device& device);
    void pullLocked(Device& device);
    void pullLater(DeviceId id, std::uint64_t changes);
    void restartLater(DeviceId id, std::uint64_t changes);
    std::shared_ptr<DeviceNode> makeNode(DeviceId id, const Device& device);
    std::optional<BusAddress> freeAddress() const;

    std::mutex m_topology;
    mutable std::mutex m_mutex;
    mutable std::condition_variable m_changed;
    std::map<int, Device> m_devices;
    int m_lastNumber = 0;
    TransferMemory m_memory;
    Testbed m_testbed;
    Scheduler m_scheduler;
};

}  // namespace nubo::simulator
