// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The other programs that have the node of a USB device open, as in "nubo-setting-tool (pid
/// 4711)"; empty when none can be seen. Programs of other users show to root alone.
[[nodiscard]] QString nodeHolders(int bus, int device);
