// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

/// The seconds of "90", "90s", "5m" or "1h30m"; nothing for another text or one beyond 31 bits.
[[nodiscard]] std::optional<qint64> durationFromText(const QString& text);

/// As in "1h30m" and "0s".
[[nodiscard]] QString durationText(qint64 seconds);
