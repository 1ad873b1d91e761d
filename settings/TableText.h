// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <string_view>

/// A text of the constant tables (UTF-8) as users see it.
[[nodiscard]] inline QString toText(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
