// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualCamera.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/support/Patience.h"
#include "tests/support/ShortUsbTimes.h"
#include "tests/usb/ThreadTask.h"
#include "tests/usb/UserInterface.h"
#include "usb/ClUsbManager.h"

#include <chrono>
#include <future>
#include <map>
#include <memory>

/// As the bus takes it.
inline constexpr std::chrono::milliseconds PATIENCE{PATIENCE_MS};

/// What a loaded machine under a sanitizer may add to a time-out, in milliseconds. A wait without
/// end goes far beyond it.
inline constexpr qint64 SLACK_MS = 6'000;

/// A camera that accepts the commands to restart and to switch itself off, and stays, so that
/// one camera serves many tests.
class SteadyCamera : public nubo::simulator::VirtualCamera {
public:
    bool wantsRestart() override { return false; }
    bool wantsPowerOff() override { return false; }
};

/// For tests that make every search pass, but the first one, themselves.
inline constexpr stUsbTimes NO_SEARCH{.search = std::chrono::hours(1),
                                      .connectWait = SHORT_USB_TIMES.connectWait};

/// A USB manager on a virtual bus, as the main window has it: its thread runs, and start()
/// initialises it.
///
/// A hub stands for the devices that a real bus always has: libusb's list is never empty.
struct ManagerBench {
    enum class Hub { PluggedIn, Missing };

    explicit ManagerBench(Hub hub = Hub::PluggedIn, const stUsbTimes& times = SHORT_USB_TIMES);
    explicit ManagerBench(const stUsbTimes& times) : ManagerBench(Hub::PluggedIn, times) {}
    ~ManagerBench() { bus.settle(); }
    ManagerBench(const ManagerBench&) = delete;
    ManagerBench& operator=(const ManagerBench&) = delete;

    /// Plugs in a camera. @p charge of its battery distinguishes it from others.
    nubo::simulator::DeviceId plugCamera(const nubo::simulator::DeviceOptions& options = {},
                                         std::uint32_t charge = 85);
    /// Initialises the manager with the camera's identity, on this thread.
    [[nodiscard]] int start() const;
    /// Runs @p work on the manager's thread, waits for its end and returns what it returns.
    template <class Work>
    auto runOnWorker(Work work) const {
        // Shared: it may still be ending there when its result is here.
        const auto task =
            std::make_shared<std::packaged_task<std::invoke_result_t<Work&>()>>(std::move(work));
        auto result = task->get_future();
        ThreadTask::start(*manager, [task] { (*task)(); });
        return result.get();
    }
    /// Runs one search pass on the manager's thread and waits for its end.
    int search() const;
    /// Waits until the device's node is open @p handles times. The search goes on meanwhile.
    [[nodiscard]] bool waitForHandles(nubo::simulator::DeviceId id, int handles) const;
    /// Asks the announced cameras which they are.
    [[nodiscard]] std::map<unsigned int, ClUsbController*> controllersByCharge();

    nubo::simulator::VirtualUsbBus bus;
    std::unique_ptr<ClUsbManager> manager;
    UserInterface ui;
};

/// The options of a device of this identity, a camera in everything else.
[[nodiscard]] nubo::simulator::DeviceOptions deviceOfIdentity(stVendorProduct identity);

/// The camera's identity.
inline constexpr stVendorProduct CAMERA{NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID};

/// Waits until the next command gets another transaction id than the ones before: ids go by the
/// clock's milliseconds, and what a camera has left over of one command would answer the other.
void waitForAnotherId();

/// How many file descriptors this process has open.
[[nodiscard]] qsizetype openFileCount();
