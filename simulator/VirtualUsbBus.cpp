// SPDX-License-Identifier: MIT
#include "simulator/VirtualUsbBus.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <filesystem>
#include <map>
#include <mutex>
#include <utility>

#include "simulator/DeviceNode.h"
#include "simulator/Scheduler.h"
#include "simulator/Testbed.h"

namespace nubo::simulator {

namespace {

constexpr int kLastDeviceNumber = 127;

void applyAccess(const std::filesystem::path& node, NodeAccess access) {
    using std::filesystem::perms;
    const std::filesystem::path hidden = node.string() + ".missing";
    std::error_code ignored;
    if (access == NodeAccess::Missing) {
        std::filesystem::rename(node, hidden, ignored);
        return;
    }
    std::filesystem::rename(hidden, node, ignored);
    const bool allowed = access == NodeAccess::Allowed;
    std::filesystem::permissions(node, allowed ? perms::owner_read | perms::owner_write : perms{},
                                 ignored);
}

}  // namespace

/// Lock order: topology (what is plugged in where, one change at a time), then mutex (the records).
/// The testbed is called with topology alone, since its thread may wait for the mutex.
class VirtualUsbBus::State {
public:
    DeviceId add(std::shared_ptr<VirtualDevice> virtualDevice, const DeviceOptions& options);
    bool plugIn(DeviceId id);
    bool pull(DeviceId id);
    void shutDown();

    std::vector<DeviceId> plugged() const;
    std::optional<int> number(DeviceId id) const;
    void setAccess(DeviceId id, NodeAccess access);

    /// Runs `use` on the record of the device under the mutex, if there is such a device.
    template <typename Use>
    void withRecord(DeviceId id, Use use) const {
        const std::lock_guard lock(m_mutex);
        if (const auto device = m_devices.find(id.value); device != m_devices.end()) {
            use(*device->second.record);
        }
    }

    /// Waits until `condition` holds for the device, which it is given under the mutex.
    template <typename Condition>
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
    Testbed m_testbed;
    Scheduler m_scheduler;
};

DeviceId VirtualUsbBus::State::add(std::shared_ptr<VirtualDevice> virtualDevice,
                                   const DeviceOptions& options) {
    const std::lock_guard topology(m_topology);
    const DeviceId id{static_cast<int>(m_devices.size()) + 1};
    auto record = std::make_shared<DeviceRecord>();
    record->device = std::move(virtualDevice);
    record->options = options;
    Device* device = nullptr;
    {
        const std::lock_guard lock(m_mutex);
        device = &m_devices[id.value];
        device->record = std::move(record);
    }
    if (plugInLocked(id, *device)) {
        return id;
    }
    const std::lock_guard lock(m_mutex);
    m_devices.erase(id.value);
    return {};
}

bool VirtualUsbBus::State::plugIn(DeviceId id) {
    const std::lock_guard topology(m_topology);
    const auto device = m_devices.find(id.value);
    return device != m_devices.end() && plugInLocked(id, device->second);
}

bool VirtualUsbBus::State::pull(DeviceId id) {
    const std::lock_guard topology(m_topology);
    const auto device = m_devices.find(id.value);
    if (device == m_devices.end()) {
        return false;
    }
    if (!device->second.node) {
        ++device->second.changes;
        return false;
    }
    pullLocked(device->second);
    return true;
}

bool VirtualUsbBus::State::plugInLocked(DeviceId id, Device& device) {
    const std::optional<BusAddress> address = freeAddress();
    if (device.node || !address) {
        return false;
    }
    NodeAccess access{};
    std::shared_ptr<DeviceNode> node;
    {
        const std::lock_guard lock(m_mutex);
        ++device.changes;
        device.address = *address;
        node = makeNode(id, device);
        device.record->device->plugged();
        ++device.record->log.timesPlugged;
        access = device.record->options.access;
    }
    const auto handler = node->makeHandler();
    const auto descriptors = encodeDescriptors(device.record->options.description);
    if (!m_testbed.add(*address, descriptors, handler.get())) {
        return false;
    }
    applyAccess(m_testbed.nodePath(*address), access);
    m_lastNumber = address->number;
    {
        const std::lock_guard lock(m_mutex);
        device.node = std::move(node);
    }
    m_changed.notify_all();
    return true;
}

void VirtualUsbBus::State::pullLocked(Device& device) {
    {
        const std::lock_guard lock(m_mutex);
        ++device.changes;
        device.node->leave();
    }
    m_testbed.remove(device.address);
    {
        const std::lock_guard lock(m_mutex);
        device.node.reset();
    }
    m_changed.notify_all();
}

void VirtualUsbBus::State::pullLater(DeviceId id, std::uint64_t changes) {
    m_scheduler.runAfter({}, [this, id, changes] {
        const std::lock_guard topology(m_topology);
        Device& device = m_devices.at(id.value);
        if (device.changes == changes) {
            pullLocked(device);
        }
    });
}

void VirtualUsbBus::State::restartLater(DeviceId id, std::uint64_t changes) {
    pullLater(id, changes);
    m_scheduler.runAfter(m_devices.at(id.value).record->options.restartDelay, [this, id, changes] {
        const std::lock_guard topology(m_topology);
        Device& device = m_devices.at(id.value);
        if (device.changes == changes + 1) {
            plugInLocked(id, device);
        }
    });
}

std::shared_ptr<DeviceNode> VirtualUsbBus::State::makeNode(DeviceId id, const Device& device) {
    const std::uint64_t changes = device.changes;
    return std::make_shared<DeviceNode>(
        device.record,
        DeviceHooks{m_mutex, m_changed, [this, id, changes] { pullLater(id, changes); },
                    [this, id, changes] { restartLater(id, changes); }});
}

std::optional<BusAddress> VirtualUsbBus::State::freeAddress() const {
    std::set<int> ports;
    std::set<int> numbers;
    for (const auto& [id, device] : m_devices) {
        if (device.node) {
            ports.insert(device.address.port);
            numbers.insert(device.address.number);
        }
    }
    if (numbers.size() == kLastDeviceNumber) {
        return std::nullopt;
    }
    BusAddress address{1, m_lastNumber};
    do {
        address.number = address.number % kLastDeviceNumber + 1;
    } while (numbers.contains(address.number));
    while (ports.contains(address.port)) {
        ++address.port;
    }
    return address;
}

void VirtualUsbBus::State::shutDown() {
    m_scheduler.stop();
    const std::lock_guard topology(m_topology);
    for (auto& [id, device] : m_devices) {
        if (device.node) {
            pullLocked(device);
        }
    }
}

std::vector<DeviceId> VirtualUsbBus::State::plugged() const {
    const std::lock_guard lock(m_mutex);
    std::vector<DeviceId> ids;
    for (const auto& [id, device] : m_devices) {
        if (device.node) {
            ids.push_back(DeviceId{id});
        }
    }
    return ids;
}

std::optional<int> VirtualUsbBus::State::number(DeviceId id) const {
    const std::lock_guard lock(m_mutex);
    const auto device = m_devices.find(id.value);
    if (device == m_devices.end() || !device->second.node) {
        return std::nullopt;
    }
    return device->second.address.number;
}

void VirtualUsbBus::State::setAccess(DeviceId id, NodeAccess access) {
    const std::lock_guard topology(m_topology);
    const auto device = m_devices.find(id.value);
    if (device == m_devices.end()) {
        return;
    }
    withRecord(id, [&](DeviceRecord& record) { record.options.access = access; });
    if (device->second.node) {
        applyAccess(m_testbed.nodePath(device->second.address), access);
    }
}

bool VirtualUsbBus::isAvailable() {
    return Testbed::isPreloaded();
}

VirtualUsbBus::VirtualUsbBus() : m_state(std::make_unique<State>()) {}

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
        id, timeout, [&](const State::Device& device) { return condition(device.record->log); });
}

bool VirtualUsbBus::waitForTransfers(DeviceId id, std::uint64_t count,
                                     std::chrono::milliseconds timeout) const {
    return waitForLog(
        id, [&](const DeviceLog& log) { return log.transferCount >= count; }, timeout);
}

bool VirtualUsbBus::waitForPlugged(DeviceId id, bool plugged,
                                   std::chrono::milliseconds timeout) const {
    return m_state->waitFor(id, timeout, [&](const State::Device& device) {
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
