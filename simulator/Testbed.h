// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/GObjectPtr.h"

#include <umockdev.h>

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace nubo::simulator {

/// Where one device stands on the bus.
struct BusAddress {
    int port = 1;    ///< the socket: 1 and up
    int number = 1;  ///< the device number: 1 to 127
};

/// What can be read of a device without opening it.
struct SystemEntry {
    const std::vector<std::uint8_t>& descriptors;
    const std::string& serialNumber;  ///< Latin-1; empty: none
};

/// The emulated sysfs and device nodes. Its calls come from one thread at a time, and never from
/// the thread that serves the ioctls.
class Testbed {
public:
    /// Puts the testbed's folder into the environment: no other thread may run yet.
    Testbed();

    /// True when this process runs with the preloaded library, without which nothing is emulated.
    static bool isPreloaded();

    /// Makes the node, whose ioctls go to @p handler, and the sysfs entry, and sends the add event.
    /// False when the testbed refuses; then nothing is left behind.
    bool add(const BusAddress& address, const SystemEntry& entry, UMockdevIoctlBase* handler);

    /// Sends the remove event, removes entry and node, and accepts no further client.
    void remove(const BusAddress& address);

    /// The real path of the device's node.
    std::filesystem::path nodePath(const BusAddress& address) const;

private:
    GObjectPtr<UMockdevTestbed> m_testbed;
};

}  // namespace nubo::simulator
