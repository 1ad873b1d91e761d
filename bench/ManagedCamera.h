// SPDX-License-Identifier: MIT
#pragma once

#include "usb/ClUsbManager.h"

#include <QMetaObject>

#include <utility>

class ClUsbController;

namespace bench {

/// A USB manager that has opened and announced a camera on the bus, as the main window has one.
/// Main thread.
class ManagedCamera {
public:
    /// Opens the first camera that can be opened. @return whether one was announced in time.
    [[nodiscard]] bool open();

    [[nodiscard]] ClUsbManager& manager() { return m_manager; }
    [[nodiscard]] ClUsbController* controller() const { return m_controller; }

    /// Runs @p work on the manager's own thread, where the tool runs it too, and returns when it is
    /// done. The manager searches no bus meanwhile: the timer of the search is this thread's.
    template <class Work>
    void runOnWorker(Work work) {
        QMetaObject::invokeMethod(&m_manager, std::move(work), Qt::BlockingQueuedConnection);
    }

private:
    ClUsbManager m_manager;
    ClUsbController* m_controller = nullptr;
};

}  // namespace bench
