// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

/// How often the bus is searched for cameras, and how long one that has been opened waits until it
/// is announced: it takes a while until it answers. Tests, which have no such camera, shorten them.
struct stUsbTimes {
    std::chrono::milliseconds search{1000};
    std::chrono::milliseconds connectWait{3000};
};
