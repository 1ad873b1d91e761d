// SPDX-License-Identifier: MIT
#include "cli/Profile.h"

#include "cli/ClConsole.h"
#include "cli/ProfileText.h"
#include "cli/Verb.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringDecoder>

#include <algorithm>

namespace {

/// A file that is larger is no profile.
constexpr qint64 LARGEST_PROFILE = 1024 * 1024;

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

}  // namespace

stFailure parseProfile(const QByteArray& bytes, QList<stProfileEntry>& entries) {
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

stFailure readProfile(const QString& path, ClConsole& console, QList<stProfileEntry>& entries) {
    QByteArray bytes;
    if (path == QLatin1String("-")) {
        bytes = console.readInput();
    } else {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly)) {
            return {ExitCode::Computer, QStringLiteral("%1: %2").arg(path, file.errorString()), {}};
        }
        bytes = file.read(LARGEST_PROFILE + 1);
    }
    if (bytes.size() > LARGEST_PROFILE) {
        return wrong(0, QStringLiteral("%1: too large for a profile").arg(path));
    }
    stFailure failure = parseProfile(bytes, entries);
    if (failure) {
        failure.message = path + QLatin1String(": ") + failure.message;
    }
    return failure;
}

QString filledIn(const QString& text, const QString& serial, int number) {
    QString filled = text;
    filled.replace(QLatin1String("{serial}"), serial);
    return filled.replace(QLatin1String("{n}"), QString::number(number));
}
