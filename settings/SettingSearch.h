// SPDX-License-Identifier: MIT
#pragma once

#include "settings/Setting.h"

#include <QList>
#include <QString>

/// The settings that @p pattern names, in the order of the table: a key, a group of keys ("gps",
/// "wifi.adhoc") or a key with '*' and '?' in it. Thread-safe.
[[nodiscard]] QList<const stSetting*> matchingSettings(const QString& pattern);

/// The word of @p known that @p word was probably meant to be; empty when none is close.
/// Thread-safe.
[[nodiscard]] QString closestWord(const QString& word, const QStringList& known);

/// Why there is no setting @p key, with the one that was probably meant. Thread-safe.
[[nodiscard]] QString noSuchSetting(const QString& key);
