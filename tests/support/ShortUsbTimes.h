// SPDX-License-Identifier: MIT
#pragma once

#include "usb/UsbTimes.h"

/// For tests that are not about these times.
inline constexpr stUsbTimes SHORT_USB_TIMES{.search = std::chrono::milliseconds(100),
                                            .connectWait = std::chrono::milliseconds(50)};
