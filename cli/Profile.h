// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"
#include "settings/Setting.h"

#include <QList>
#include <QString>

class ClConsole;

/// A value as a profile has it, not yet checked.
struct stProfileEntry {
    const stSetting* setting = nullptr;
    QString text{};  ///< as parseValue() takes it
    int line = 0;    ///< counts from 1; 0 in JSON
};

/// The settings that a profile holds: "key = value" a line with '#' before comments, or JSON,
/// either the object of "get --json" or its "settings" alone. What no profile sets (what is only
/// told, changes by itself, or is a hidden secret) is left out. The failure names the line.
[[nodiscard]] stFailure parseProfile(const QByteArray& bytes, QList<stProfileEntry>& entries);

/// As above from the file at @p path, or from standard input for "-".
[[nodiscard]] stFailure readProfile(const QString& path, ClConsole& console,
                                    QList<stProfileEntry>& entries);

/// @p text with what stands for a camera of its own in it: "{serial}", and "{n}", the number of the
/// camera in the run, from 1.
[[nodiscard]] QString filledIn(const QString& text, const QString& serial, int number);
