// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"
#include "cli/SettingWriter.h"
#include "settings/Setting.h"

#include <QJsonValue>
#include <QList>
#include <QString>

class ClConsole;
class ClReport;

/// A value as a profile has it, not yet checked.
struct stProfileEntry {
    const stSetting* setting = nullptr;
    QString text{};  ///< as parseValue() takes it
    int line = 0;    ///< counts from 1; 0 in JSON
};

/// The settings that a profile holds: "key = value" a line with '#' before comments, or JSON,
/// either the object of "get --json" or its "settings" alone. What no profile sets (what is only
/// told, changes by itself, or is a hidden secret) is left out. The failure names the line.
[[nodiscard]] stFailure parseProfile(const QByteArray& file, QList<stProfileEntry>& entries);

/// A profile, and the file it is from.
struct stProfile {
    QString path{};
    QList<stProfileEntry> entries{};
};

/// Reads and checks the profile at @p path, or on standard input for "-": its values are right,
/// whatever the camera's serial number.
[[nodiscard]] stFailure readProfile(const QString& path, ClConsole& console, stProfile& profile);

/// What stands in values and names for a camera of its own: "{serial}", and "{n}", its number in
/// the run, from 1.
struct stCameraInRun {
    QString serial{};
    int number = 1;
};

/// The values of @p profile for one camera; the failure names the first that is none.
[[nodiscard]] stFailure wantedOf(const stProfile& profile, const stCameraInRun& camera,
                                 QList<stWantedValue>& wanted);

/// What @p entry says: its value, or the text in which something stands for the camera.
[[nodiscard]] QString entryText(const ClReport& report, const stProfileEntry& entry);
[[nodiscard]] QJsonValue entryJson(const ClReport& report, const stProfileEntry& entry);

/// Whether both say the same for every camera.
[[nodiscard]] bool isSame(const stProfileEntry& one, const stProfileEntry& other);

/// Whether something in @p text stands for the camera.
[[nodiscard]] bool isForEachCamera(const QString& text);
/// @p text with the camera filled in.
[[nodiscard]] QString filledIn(const QString& text, const stCameraInRun& camera);
