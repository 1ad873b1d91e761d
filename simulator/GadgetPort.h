// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraPort.h"
#include "simulator/GadgetPipe.h"
#include "simulator/GadgetSetup.h"
#include "simulator/Scheduler.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>

namespace nubo::simulator {

/// A USB device port of this computer: the camera is a real device to the host at the other end of
/// the cable. The cable is "pulled" by unbinding the gadget.
class GadgetPort : public CameraPort {
public:
    GadgetPort(std::shared_ptr<VirtualDevice> device, DeviceOptions options);
    ~GadgetPort() override;
    GadgetPort(const GadgetPort&) = delete;
    GadgetPort& operator=(const GadgetPort&) = delete;

    /// Takes the device controller of this name (empty: the first free one). An empty text, or what
    /// is missing and what to do.
    std::string open(const std::string& controller);

    std::string plug() override;
    std::string unplug() override;
    std::string addFault(const Fault& fault) override;
    void clearFaults() override { m_pipe.clearFaults(); }
    std::string setAccess(NodeAccess access) override;
    std::string setBusy(bool busy) override;
    std::string status() const override;

private:
    std::string plugLocked();
    void unplugLocked();
    void leaveAfter(std::chrono::milliseconds time);
    void restartLater();

    const std::shared_ptr<VirtualDevice> m_device;
    const DeviceOptions m_options;
    GadgetSetup m_setup;
    GadgetPipe m_pipe;
    mutable std::mutex m_mutex;  ///< taken before the pipe's
    bool m_plugged = false;
    std::uint64_t m_changes = 0;  ///< how often it was plugged in or unplugged
    Scheduler m_scheduler;
};

}  // namespace nubo::simulator
