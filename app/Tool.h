// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace TOOL {

/// The display name, in the language of the program, of the Wi-Fi country with @p code in any case.
/// A code without a name comes back in upper case.
[[nodiscard]] QString codeToName(const QString& code);

}  // namespace TOOL
