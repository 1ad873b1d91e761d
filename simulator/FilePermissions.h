// SPDX-License-Identifier: MIT
#pragma once

#include <string>

namespace nubo::simulator {

/// True when programs that this process starts may open files that nobody has permission to open:
/// root's, unless heedFilePermissions() has been called.
bool passesOverFilePermissions();

/// From now on programs that this process starts heed file permissions, even as root. An empty
/// text, or what went wrong.
std::string heedFilePermissions();

}  // namespace nubo::simulator
