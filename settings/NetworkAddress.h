// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

// IPv4 addresses and netmasks as numbers, the first octet on top.

/// The address of four dotted numbers up to 255; nothing for another text.
[[nodiscard]] std::optional<quint32> addressFromText(const QString& text);

/// The netmask of a dotted text or of a length as in "/24"; nothing when it has a gap.
[[nodiscard]] std::optional<quint32> netmaskFromText(const QString& text);

/// Dotted.
[[nodiscard]] QString addressText(quint32 address);

/// Whether a host may have @p address: its last number is neither 0 nor 255.
[[nodiscard]] constexpr bool isHostAddress(quint32 address) {
    return (address & 0xFF) != 0 && (address & 0xFF) != 0xFF;
}
