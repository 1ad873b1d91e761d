// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualUsbBus.h"

// Every fault at every transfer, for programs whose transfers the linker sends to CliFaults.cpp
// (see CMakeLists.txt).

/// As long as this object lives, time-outs last a twentieth of their time. A transfer that a loaded
/// computer makes late then is one fault more: what a test asserts must hold for it too.
class ShortTimeouts {
public:
    ShortTimeouts();
    ~ShortTimeouts();
    ShortTimeouts(const ShortTimeouts&) = delete;
    ShortTimeouts& operator=(const ShortTimeouts&) = delete;
};

/// A row for every fault at each of the first @p transfers, in the column "fault".
void addFaultRows(unsigned transfers);

[[nodiscard]] bool makesCameraLeave(const nubo::simulator::Fault& fault);

/// Whether nobody holds the device any more, soon: the bus learns of the end of a handle later than
/// its owner, and not always when the device leaves meanwhile.
[[nodiscard]] bool isLetGo(const nubo::simulator::VirtualUsbBus& bus, nubo::simulator::DeviceId id);
