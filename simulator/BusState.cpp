// SPDX-License-Identifier: MIT
#include "simulator/BusState.h"

#include "simulator/UsbDescriptors.h"

#include <filesystem>
#include <set>
#include <system_error>
#include <utility>

namespace nubo::simulator {

namespace {

constexpr int LAST_DEVICE_NUMBER = 127;

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

DeviceId BusState::add(std::shared_ptr<VirtualDevice> virtualDevice, const DeviceOptions& options) {
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

bool BusState::plugIn(DeviceId id) {
    const std::lock_guard topology(m_topology);
    const auto device = m_devices.find(id.value);
    return device != m_devices.end() && plugInLocked(id, device->second);
}

bool BusState::pull(DeviceId id) {
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

bool BusState::plugInLocked(DeviceId id, Device& device) {
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
        ++device.record->log.timesPlugged;
        node = makeNode(id, device);
        device.record->device->plugged();
        device.record->serialNumber = device.record->device->serialNumber();
        access = device.record->options.access;
    }
    const auto handler = node->makeHandler();
    const std::string& serialNumber = device.record->serialNumber;
    const auto descriptors =
        encodeDescriptors(device.record->options.description, !serialNumber.empty());
    if (!m_testbed.add(*address, {descriptors, serialNumber}, handler.get())) {
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

void BusState::pullLocked(Device& device) {
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

void BusState::pullLater(DeviceId id, std::uint64_t changes) {
    m_scheduler.runAfter({}, [this, id, changes] {
        const std::lock_guard topology(m_topology);
        Device& device = m_devices.at(id.value);
        if (device.changes == changes) {
            pullLocked(device);
        }
    });
}

void BusState::restartLater(DeviceId id, std::uint64_t changes) {
    pullLater(id, changes);
    m_scheduler.runAfter(m_devices.at(id.value).record->options.restartDelay, [this, id, changes] {
        const std::lock_guard topology(m_topology);
        Device& device = m_devices.at(id.value);
        if (device.changes == changes + 1) {
            plugInLocked(id, device);
        }
    });
}

std::shared_ptr<DeviceNode> BusState::makeNode(DeviceId id, const Device& device) {
    const std::uint64_t changes = device.changes;
    return std::make_shared<DeviceNode>(
        device.record,
        DeviceHooks{m_mutex, m_changed, m_memory, [this, id, changes] { pullLater(id, changes); },
                    [this, id, changes] { restartLater(id, changes); }});
}

std::optional<BusAddress> BusState::freeAddress() const {
    std::set<int> ports;
    std::set<int> numbers;
    for (const auto& [id, device] : m_devices) {
        if (device.node) {
            ports.insert(device.address.port);
            numbers.insert(device.address.number);
        }
    }
    if (numbers.size() == LAST_DEVICE_NUMBER) {
        return std::nullopt;
    }
    BusAddress address{1, m_lastNumber};
    do {
        address.number = address.number % LAST_DEVICE_NUMBER + 1;
    } while (numbers.contains(address.number));
    while (ports.contains(address.port)) {
        ++address.port;
    }
    return address;
}

void BusState::shutDown() {
    m_scheduler.stop();
    const std::lock_guard topology(m_topology);
    for (auto& [id, device] : m_devices) {
        if (device.node) {
            pullLocked(device);
        }
    }
}

std::vector<DeviceId> BusState::plugged() const {
    const std::lock_guard lock(m_mutex);
    std::vector<DeviceId> ids;
    for (const auto& [id, device] : m_devices) {
        if (device.node) {
            ids.push_back(DeviceId{id});
        }
    }
    return ids;
}

std::optional<int> BusState::number(DeviceId id) const {
    const std::lock_guard lock(m_mutex);
    const auto device = m_devices.find(id.value);
    if (device == m_devices.end() || !device->second.node) {
        return std::nullopt;
    }
    return device->second.address.number;
}

void BusState::setAccess(DeviceId id, NodeAccess access) {
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

}  // namespace nubo::simulator
