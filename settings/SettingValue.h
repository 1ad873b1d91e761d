// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Setting.h"

#include <QJsonValue>
#include <QString>
#include <QVariant>

// The values of settings as text: as users write them, and as they are told. A value is a QVariant
// of the type that its kind names. Nothing here asks a camera; all functions are thread-safe.

/// What became of a text: a value, or the reason why it is none.
struct stParsedValue {
    QVariant value;  ///< invalid with an error
    QString error;   ///< as in "live.frame-rate: 5 is not one of 30, 15, 10, 6, 1"; a secret is not
                     ///< repeated

    [[nodiscard]] bool isValid() const { return value.isValid(); }
};

/// The value that @p text stands for, checked against the range of @p setting.
[[nodiscard]] stParsedValue parseValue(const stSetting& setting, const QString& text);

/// The value that a JSON file holds: of the type that valueJson() gives, or a string.
[[nodiscard]] stParsedValue parseJson(const stSetting& setting, const QJsonValue& json);

/// @p value as parseValue() takes it. What the camera tells beside the range comes as its number.
[[nodiscard]] QString valueText(const stSetting& setting, const QVariant& value);

/// @p value for programs: switches as bool, numbers, durations (seconds) and capacities (bytes) as
/// number, all else as valueText() has it.
[[nodiscard]] QJsonValue valueJson(const stSetting& setting, const QVariant& value);

/// What the setting may be set to, as in "one of 30, 15, 10, 6, 1" or "a number from 0 to 4".
[[nodiscard]] QString rangeText(const stSetting& setting);

/// The name of a kind, as in "time zone".
[[nodiscard]] QString kindText(SettingKind kind);

/// The regular expression of a text that is in range.
[[nodiscard]] QString textPattern(const stSettingRange& range);

/// Stands for a secret that is not shown.
inline constexpr auto HIDDEN_SECRET = "********";
