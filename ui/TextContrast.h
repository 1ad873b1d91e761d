// SPDX-License-Identifier: MIT
#pragma once

#include <QPalette>

/// @p palette with disabled texts that can be read: where the desktop's are too near to what they
/// stand on, they come as near to the enabled ones as it takes, and no nearer, for they are to look
/// disabled. Any thread.
[[nodiscard]] QPalette withReadableDisabledText(QPalette palette);
