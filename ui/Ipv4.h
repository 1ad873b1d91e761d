// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Whether @p text is the address of a host: four octets, the first three with up to three digits,
/// the last one from 1 to 254 without leading zeros. Thread-safe.
[[nodiscard]] bool validIpv4(const QString& text);

/// Whether @p text is a dotted-quad subnet mask that the camera takes: octets of 255, then one of
/// 0, 128, 192, 224, 248, 252 or 254, then zeros. An octet of 240 is refused. Thread-safe.
[[nodiscard]] bool validSubnetmask(const QString& text);
