// SPDX-License-Identifier: MIT
//
// Values of settings as users and programs write them. The input:
//
//     offset  width  field
//          0      1  row in the table of settings
//          1         the text, in UTF-8
#include "cli/ProfileText.h"
#include "fuzz/Check.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTarget.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace {

bool isInRange(const stSetting& setting, qint64 number) {
    const stSettingRange& range = setting.range;
    return (range.hasNone && number == 0) || (number >= range.least && number <= range.most);
}

void checkType(const stSetting& setting, const QVariant& value) {
    switch (setting.kind) {
        case SettingKind::Switch:
            FUZZ_CHECK(value.typeId() == QMetaType::Bool);
            break;
        case SettingKind::Number:
        case SettingKind::Duration:
        case SettingKind::Capacity:
            FUZZ_CHECK(value.typeId() == QMetaType::LongLong);
            FUZZ_CHECK(isInRange(setting, value.toLongLong()));
            break;
        case SettingKind::Choice:
            FUZZ_CHECK(value.typeId() == QMetaType::LongLong || value.typeId() == QMetaType::QSize);
            break;
        case SettingKind::Text: {
            const QString text = value.toString();
            FUZZ_CHECK(value.typeId() == QMetaType::QString);
            FUZZ_CHECK(isInRange(setting, text.size()));
            FUZZ_CHECK(
                std::ranges::all_of(text, [](QChar c) { return c >= u' ' && c <= u'\xFF'; }));
            break;
        }
        case SettingKind::Address:
        case SettingKind::Netmask:
            FUZZ_CHECK(value.typeId() == QMetaType::QString);
            break;
        case SettingKind::TimeZone:
            FUZZ_CHECK(value.toLongLong() >= 0 && value.toLongLong() <= 24);
            break;
        case SettingKind::Clock:
            FUZZ_CHECK(value.toDateTime().isValid());
            break;
    }
}

/// A value is told so that it is taken again, as the same.
void checkParsed(const stSetting& setting, const QString& text, const stParsedValue& parsed) {
    FUZZ_CHECK(parsed.isValid() == parsed.error.isEmpty());
    if (!parsed.isValid()) {
        const QString named = text.isEmpty() ? QStringLiteral("nothing") : text;
        const QString what = setting.is(SECRET) ? QStringLiteral("this") : named;
        const auto key =
            QString::fromLatin1(setting.key.data(), static_cast<qsizetype>(setting.key.size()));
        FUZZ_CHECK(parsed.error == QStringLiteral("%1: ").arg(key) + what +
                                       QStringLiteral(" is not ") + rangeText(setting));
        return;
    }
    checkType(setting, parsed.value);
    const QString told = valueText(setting, parsed.value);
    const stParsedValue again = parseValue(setting, told);
    FUZZ_CHECK(again.isValid());
    FUZZ_CHECK(valueText(setting, again.value) == told);
    FUZZ_CHECK(setting.kind == SettingKind::Clock || again.value == parsed.value);
    const stParsedValue fromJson = parseJson(setting, valueJson(setting, parsed.value));
    FUZZ_CHECK(fromJson.isValid());
    FUZZ_CHECK(valueText(setting, fromJson.value) == told);
    const auto unquoted = profileUnquoted(profileValue(setting, parsed.value));
    FUZZ_CHECK(unquoted == told);
}

void checkJson(const stSetting& setting, const QByteArray& text) {
    const QJsonArray array = QJsonDocument::fromJson('[' + text + ']').array();
    if (!array.isEmpty()) {
        const stParsedValue parsed = parseJson(setting, array.first());
        FUZZ_CHECK(parsed.isValid() == parsed.error.isEmpty());
        if (parsed.isValid()) {
            checkType(setting, parsed.value);
        }
    }
}

void checkQuotes(const QString& text) {
    const QString quoted = profileQuoted(text);
    FUZZ_CHECK(profileUnquoted(quoted) == text);
    FUZZ_CHECK(quoted == quoted.trimmed());
    FUZZ_CHECK(!quoted.contains(u'\n') && !quoted.contains(u'\r'));
    static_cast<void>(profileUnquoted(text));
}

void checkSearch(const QString& pattern) {
    const QList<const stSetting*> found = matchingSettings(pattern);
    FUZZ_CHECK(found.size() <= static_cast<qsizetype>(settings().size()));
    FUZZ_CHECK(!noSuchSetting(pattern).isEmpty());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const stSetting& setting = settings()[input.number<quint8>() % settings().size()];
    const QByteArray bytes = input.bytes(static_cast<qsizetype>(size));
    const QString text = QString::fromUtf8(bytes);
    checkParsed(setting, text, parseValue(setting, text));
    checkJson(setting, bytes);
    checkQuotes(text);
    checkSearch(text.left(64));
    return 0;
}
