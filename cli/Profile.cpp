// SPDX-License-Identifier: MIT
#include "cli/Profile.h"

#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ProfileText.h"
#include "cli/Verb.h"
#include "cli/WholeFiles.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>

#include <algorithm>

namespace {

/// A file that is larger is no profile.
constexpr qint64 LARGEST_PROFILE = 1024 * 1024;

const stCameraInRun ANY_CAMERA{QStringLiteral("S")};

QString where(int line) {
    return line == 0 ? QString() : QStringLiteral("line %1: ").arg(line);
}

stFailure wrong(int line, const QString& what) {
    return {ExitCode::WrongUse, where(line) + what, {}};
}

stFailure addEntry(const QString& key, const QString& text, int line,
                   QList<stProfileEntry>& entries) {
    const stSetting* const row = findSetting(key.toStdString());
    if (row == nullptr) {
        return wrong(line, noSuchSetting(key));
    }
    if (std::ranges::find(entries, row, &stProfileEntry::setting) != entries.end()) {
        return wrong(line, QStringLiteral("%1 stands twice").arg(key));
    }
    const bool isHidden = row->is(SECRET) && text == QLatin1String(HIDDEN_SECRET);
    if (row->isKept() && !isHidden) {
        entries.append({row, text, line});
    }
    return {};
}

stFailure parseLines(const QString& text, QList<stProfileEntry>& entries) {
    int number = 0;
    for (const QString& raw : text.split(u'\n')) {
        ++number;
        const QString line = raw.trimmed();
        if (line.isEmpty() || line.startsWith(u'#')) {
            continue;
        }
        const qsizetype end = line.indexOf(u'=');
        if (end < 0) {
            return wrong(number, QStringLiteral("\"%1\" is not KEY = VALUE").arg(line));
        }
        const auto value = profileUnquoted(line.mid(end + 1).trimmed());
        if (!value) {
            return wrong(number, QStringLiteral("the quotes are wrong"));
        }
        if (const stFailure failure = addEntry(line.left(end).trimmed(), *value, number, entries)) {
            return failure;
        }
    }
    return {};
}

stFailure parseObject(const QJsonObject& object, QList<stProfileEntry>& entries) {
    const QJsonValue inner = object.value(QStringLiteral("settings"));
    const QJsonObject values = inner.isObject() ? inner.toObject() : object;
    for (auto value = values.begin(); value != values.end(); ++value) {
        const stSetting* const row = findSetting(value.key().toStdString());
        QString text = value->toVariant().toString();
        if (row != nullptr && value->isBool() && row->kind != SettingKind::Switch) {
            return wrong(
                0, QStringLiteral("%1: a switch is not %2").arg(value.key(), rangeText(*row)));
        }
        if (value->isObject() || value->isArray() || value->isNull()) {
            return wrong(0, QStringLiteral("%1 has no plain value").arg(value.key()));
        }
        if (const stFailure failure = addEntry(value.key(), text, 0, entries)) {
            return failure;
        }
    }
    return {};
}

QVariant valueFor(const stProfileEntry& entry, const stCameraInRun& camera) {
    return parseValue(*entry.setting, filledIn(entry.text, camera)).value;
}

/// Whether something in the value stands for the camera, and may be shown.
bool isTemplate(const stProfileEntry& entry) {
    return isForEachCamera(entry.text) && !entry.setting->is(SECRET);
}

}  // namespace

stFailure parseProfile(const QByteArray& file, QList<stProfileEntry>& entries) {
    // Some editors mark UTF-8 at its beginning.
    static constexpr QByteArrayView MARK("\xEF\xBB\xBF");
    const QByteArray bytes = file.startsWith(MARK) ? file.mid(MARK.size()) : file;
    entries.clear();
    if (bytes.trimmed().startsWith('{')) {
        QJsonParseError error;
        const QJsonDocument document = QJsonDocument::fromJson(bytes, &error);
        return document.isObject() ? parseObject(document.object(), entries)
                                   : wrong(0, error.errorString());
    }
    QStringDecoder decoder(QStringDecoder::Utf8);
    const QString text = decoder(bytes);
    return decoder.hasError() ? wrong(0, QStringLiteral("not a profile: the text is not UTF-8"))
                              : parseLines(text, entries);
}

stFailure readProfile(const QString& path, ClConsole& console, stProfile& profile) {
    const QString what = QStringLiteral("a profile");
    QByteArray bytes;
    stFailure failure = path == QLatin1String("-") ? console.readInput(what, LARGEST_PROFILE, bytes)
                                                   : readWhole(path, what, LARGEST_PROFILE, bytes);
    if (failure) {
        return failure;
    }
    profile.path = path;
    failure = parseProfile(bytes, profile.entries);
    if (failure) {
        failure.message = path + QLatin1String(": ") + failure.message;
        return failure;
    }
    QList<stWantedValue> wanted;
    return wantedOf(profile, ANY_CAMERA, wanted);
}

stFailure wantedOf(const stProfile& profile, const stCameraInRun& camera,
                   QList<stWantedValue>& wanted) {
    for (const stProfileEntry& entry : profile.entries) {
        const stParsedValue parsed = parseValue(*entry.setting, filledIn(entry.text, camera));
        if (!parsed.isValid()) {
            return wrong(0, profile.path + QLatin1String(": ") + where(entry.line) + parsed.error);
        }
        wanted.append({entry.setting, parsed.value});
    }
    return {};
}

QString entryText(const ClReport& report, const stProfileEntry& entry) {
    return isTemplate(entry) ? profileQuoted(entry.text)
                             : report.shown(*entry.setting, valueFor(entry, ANY_CAMERA));
}

QJsonValue entryJson(const ClReport& report, const stProfileEntry& entry) {
    return isTemplate(entry) ? QJsonValue(entry.text)
                             : report.shownJson(*entry.setting, valueFor(entry, ANY_CAMERA));
}

bool isSame(const stProfileEntry& one, const stProfileEntry& other) {
    const auto isSameFor = [&](const stCameraInRun& camera) {
        return valueFor(one, camera) == valueFor(other, camera);
    };
    return isSameFor(ANY_CAMERA) && isSameFor({QStringLiteral("T"), 2});
}

bool isForEachCamera(const QString& text) {
    return filledIn(text, ANY_CAMERA) != text;
}

QString filledIn(const QString& text, const stCameraInRun& camera) {
    QString filled = text;
    filled.replace(QLatin1String("{serial}"), camera.serial);
    return filled.replace(QLatin1String("{n}"), QString::number(camera.number));
}
