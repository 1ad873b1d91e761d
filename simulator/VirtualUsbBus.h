// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceLog.h"
#include "simulator/DeviceOptions.h"
#include "simulator/Fault.h"
#include "simulator/VirtualDevice.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace nubo::simulator {

class BusState;

/// Names a device on the bus. It stays the same when the device is unplugged and plugged in again.
struct DeviceId {
    int value = 0;  ///< counts from 1; 0 names no device
    explicit operator bool() const { return value != 0; }
    friend bool operator==(const DeviceId&, const DeviceId&) = default;
};

/// A USB bus behind the real libusb of this process and of its children, whose devices are plugged
/// and unplugged at run time.
///
/// One bus at a time in a process. Construct it before the first libusb call and before any
/// thread; destroy it after the last handle of this process is closed and libusb has ended. The
/// process runs with LD_PRELOAD=libumockdev-preload.so.0 (see isAvailable). At most 50 handles may
/// be open at once in one client process; plugging and unplugging has no such limit.
///
/// Functions that name a device have no effect, or return an empty value, for an id that this bus
/// has not given. All functions may be called from any thread, but from no VirtualDevice.
class VirtualUsbBus {
public:
    /// True when the process runs with the preloaded library; without it libusb sees the machine's
    /// own devices, and not this bus.
    static bool isAvailable();

    VirtualUsbBus();
    /// Unplugs all devices.
    ~VirtualUsbBus();
    VirtualUsbBus(const VirtualUsbBus&) = delete;
    VirtualUsbBus& operator=(const VirtualUsbBus&) = delete;

    /// Adds a device and plugs it in; clients have been notified when this returns. No device (0)
    /// when all 127 device numbers are in use.
    DeviceId plug(std::shared_ptr<VirtualDevice> device, const DeviceOptions& options = {});

    /// Plugs an unplugged device in again, under a new device number. False when it is plugged in.
    bool replug(DeviceId id);

    /// Pulls the device: every call on it fails with ENODEV from now on, and transfers on their way
    /// end as the kernel ends them. Its id, log and faults stay. False when it is not plugged in;
    /// then a restart that is under way does not bring it back.
    bool unplug(DeviceId id);

    /// Cancels the departures and restarts that devices have asked for, and waits for the one under
    /// way.
    ///
    /// libumockdev ends this process when libusb ends while a change is being announced to it. Call
    /// this before libusb ends, in a test that cannot know whether a device is leaving. Not from a
    /// VirtualDevice.
    void settle();

    /// The devices that are plugged in, in the order of their ids.
    std::vector<DeviceId> devices() const;
    /// The device number on the bus (1 to 127); nothing while the device is unplugged.
    std::optional<int> deviceNumber(DeviceId id) const;

    /// What has happened to the device until now.
    DeviceLog log(DeviceId id) const;
    /// Waits until the log fulfils the condition; false after @p timeout.
    bool waitForLog(DeviceId id, const std::function<bool(const DeviceLog&)>& condition,
                    std::chrono::milliseconds timeout) const;
    /// Waits until @p count transfers have finished since the device was first plugged in.
    bool waitForTransfers(DeviceId id, std::uint64_t count,
                          std::chrono::milliseconds timeout) const;
    /// Waits until the device is on the bus, or off it; false after @p timeout.
    bool waitForPlugged(DeviceId id, bool plugged, std::chrono::milliseconds timeout) const;

    /// Adds a fault; its transfers are counted from now.
    void addFault(DeviceId id, const Fault& fault);
    void clearFaults(DeviceId id);

    /// From now on claiming one of these interfaces is refused; claims that stand are kept.
    void setBusyInterfaces(DeviceId id, const std::set<int>& interfaces);
    /// From now on the node answers opening so. Handles that are open stay open.
    void setNodeAccess(DeviceId id, NodeAccess access);

private:
    std::unique_ptr<BusState> m_state;
};

}  // namespace nubo::simulator
