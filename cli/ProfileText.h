// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Setting.h"

#include <QString>
#include <QVariant>

#include <optional>

// Values as a profile has them behind "key = ": as they are, or in quotes where blanks at the ends,
// quotes or characters that cannot be printed would be lost.

/// @p value of @p setting as a profile has it.
[[nodiscard]] QString profileValue(const stSetting& setting, const QVariant& value);

/// @p text as a profile has it.
[[nodiscard]] QString profileQuoted(const QString& text);

/// The text that a profile's @p value stands for; nothing when its quotes are wrong.
[[nodiscard]] std::optional<QString> profileUnquoted(const QString& value);
