// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#include <malloc.h>
#include <cstddef>

// What the program may take, whatever a hostile camera does.

/// A transaction with a camera that talks of other things all the time.
inline constexpr qint64 LONGEST_TRANSACTION_MS = 9000;
/// More than before the camera was plugged in.
inline constexpr std::size_t MOST_MEMORY = 64U << 20U;

/// Of this process, in bytes.
inline std::size_t memoryInUse() {
    const auto memory = mallinfo2();
    return memory.uordblks + memory.hblkhd;
}
