// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceLog.h"
#include "simulator/Fault.h"
#include "simulator/FileDescriptor.h"
#include "simulator/UsbDescriptors.h"
#include "simulator/VirtualDevice.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <thread>
#include <vector>

struct usb_functionfs_event;

namespace nubo::simulator {

/// What a pipe needs of its port, which outlives it. The functions are called with the pipe's lock
/// held, so they only schedule the change.
struct GadgetHooks {
    std::function<void()> leaveBus;  ///< in the middle of a transfer
    std::function<void()> powerOff;  ///< with everything said
    std::function<void()> restart;   ///< the same, to come back
};

/// The endpoints of a gadget, served on threads of their own: what the host writes goes to the
/// device, what the device sends goes to the host. Unplugging ends what is under way; the threads
/// go on with the next plugging-in.
class GadgetPipe {
public:
    GadgetPipe(std::shared_ptr<VirtualDevice> device, GadgetHooks hooks);
    /// Waits for the threads: the gadget has to be unbound.
    ~GadgetPipe();
    GadgetPipe(const GadgetPipe&) = delete;
    GadgetPipe& operator=(const GadgetPipe&) = delete;

    /// Tells the kernel the interface and starts serving. An empty text, or what went wrong.
    std::string open(const std::filesystem::path& folder, const AlternateSetting& setting);

    /// To be told before the gadget is bound, and after it is unbound.
    void plugged();
    void unplugged();

    /// An empty text, or why a gadget cannot do this.
    static std::string refusal(const Fault& fault);
    void addFault(const Fault& fault);
    void clearFaults();

    DeviceLog log() const;
    /// A host has configured the device.
    bool isConfigured() const;

private:
    using Lock = std::unique_lock<std::mutex>;
    using Packet = std::vector<std::uint8_t>;

    void watchEvents();
    void handleEvent(const usb_functionfs_event& event);
    void readPackets();
    void sendPackets();
    void receive(const Packet& piece);
    void sendNext(Lock& lock);
    bool sendPacket(Lock& lock, const Packet& packet);
    bool wait(Lock& lock, std::chrono::milliseconds time);
    void halt();
    void end();

    const std::shared_ptr<VirtualDevice> m_device;
    const GadgetHooks m_hooks;
    FileDescriptor m_control;
    FileDescriptor m_in;
    FileDescriptor m_out;
    FileDescriptor m_wake;  ///< an event that ends the wait for events

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    bool m_stopping = false;
    bool m_configured = false;
    std::uint64_t m_plugging = 0;  ///< counts the times of plugging in and unplugging
    FaultPlan m_faults;
    std::vector<Fault> m_armed;  ///< faults for the next packet to the host
    DeviceLog m_log;
    std::vector<std::thread> m_threads;
};

}  // namespace nubo::simulator
