// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"
#include "usb/LibusbOwners.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <vector>

class ClSession;

/// A camera on the bus.
struct stCamera {
    libusb_device* device = nullptr;  ///< belongs to the finder's list
    QString port{};                   ///< as in "1-2"
    int bus = 0;
    int number = 0;    ///< of the device on its bus
    QString serial{};  ///< as its USB descriptors tell it; empty when they do not

    /// As in "1:5".
    [[nodiscard]] QString place() const { return QStringLiteral("%1:%2").arg(bus).arg(number); }
};

/// Looks for cameras, and opens them. One thread at a time, but for open().
class ClCameraFinder {
public:
    /// Starts libusb; must succeed before anything else is called.
    [[nodiscard]] stFailure start();

    /// Looks at the bus. The cameras come in the order of their ports, and live until the next
    /// look.
    [[nodiscard]] std::vector<stCamera> look();

    /// The vendors and products that the latest look saw, as in "1d6b:0002".
    [[nodiscard]] QStringList identities() const;

    /// Opens @p camera; the failure says why it cannot be opened, and who holds it. Any thread.
    [[nodiscard]] static std::unique_ptr<ClSession> open(const stCamera& camera,
                                                         stFailure& failure);

private:
    LibusbContext m_context;
    LibusbDeviceList m_devices;  ///< of the latest look
};
