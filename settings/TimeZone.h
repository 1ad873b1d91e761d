// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

// The camera's numbers of time zones: 0 to 12 for UTC to UTC+12, 13 to 24 for UTC-1 to UTC-12.

/// The zone of "UTC", "UTC+9", "+9" or "UTC-03:00", or "local" for that of this computer; nothing
/// for another text, and for zones that are not whole hours off.
[[nodiscard]] std::optional<unsigned int> zoneFromText(const QString& text);

/// As in "UTC+9"; a number that is no zone comes as it is.
[[nodiscard]] QString zoneText(qint64 zone);
