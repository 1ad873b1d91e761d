// SPDX-License-Identifier: MIT
#include "settings/SettingValue.h"

#include "settings/CameraClock.h"
#include "settings/Duration.h"
#include "settings/NetworkAddress.h"
#include "settings/TableText.h"
#include "settings/TimeZone.h"

#include <QDateTime>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace {

bool isNamed(std::string_view name, const QString& text) {
    return text.compare(toText(name), Qt::CaseInsensitive) == 0;
}

QVariant choiceValue(const stSettingChoice& choice) {
    if (const auto* const size = std::get_if<QSize>(&choice.value)) {
        return *size;
    }
    return qint64{std::get<unsigned int>(choice.value)};
}

bool isInRange(const stSettingRange& range, qint64 number) {
    return (range.hasNone && number == 0) ||
           (number >= range.least && number <= range.most && number % range.step == 0);
}

QVariant parseSwitch(const QString& text) {
    static constexpr std::array ON{"on", "true", "yes", "1"};
    static constexpr std::array OFF{"off", "false", "no", "0"};
    const auto isText = [&text](const char* word) { return isNamed(word, text); };
    if (std::ranges::any_of(ON, isText)) {
        return true;
    }
    return std::ranges::any_of(OFF, isText) ? QVariant(false) : QVariant();
}

QVariant parseNumber(const stSettingRange& range, const QString& text) {
    bool isNumber = false;
    const qint64 number = text.toLongLong(&isNumber);
    return isNumber && isInRange(range, number) ? QVariant(number) : QVariant();
}

QVariant parseDuration(const stSettingRange& range, const QString& text) {
    const std::optional<qint64> seconds =
        range.hasNone && isNamed("off", text) ? std::optional<qint64>(0) : durationFromText(text);
    return seconds && isInRange(range, *seconds) ? QVariant(*seconds) : QVariant();
}

QVariant parseChoice(const stSettingRange& range, const QString& text) {
    const auto found = std::ranges::find_if(range.choices, [&text](const stSettingChoice& choice) {
        return isNamed(choice.name, text) || (!choice.alias.empty() && isNamed(choice.alias, text));
    });
    return found == range.choices.end() ? QVariant() : choiceValue(*found);
}

QVariant parseText(const stSettingRange& range, const QString& text) {
    const QRegularExpression pattern(QRegularExpression::anchoredPattern(textPattern(range)));
    return pattern.match(text).hasMatch() ? QVariant(text) : QVariant();
}

QVariant parseAddress(const stSettingRange& range, const QString& text) {
    const auto address =
        range.hasNone && isNamed("none", text) ? std::optional(0U) : addressFromText(text);
    const bool isTaken = address && (isHostAddress(*address) || (range.hasNone && *address == 0));
    return isTaken ? QVariant(addressText(*address)) : QVariant();
}

QVariant parseNetmask(const QString& text) {
    const auto mask = netmaskFromText(text);
    return mask ? QVariant(addressText(*mask)) : QVariant();
}

QVariant parseTimeZone(const QString& text) {
    const auto zone = zoneFromText(text);
    return zone ? QVariant(qint64{*zone}) : QVariant();
}

QVariant parseClock(const stSettingRange& range, const QString& text) {
    if (isNamed("now", text)) {
        return cameraClockNow();
    }
    static const QRegularExpression FORM(QRegularExpression::anchoredPattern(
        QStringLiteral(R"((\d{4}-\d\d-\d\d)[T ](\d\d:\d\d)(:\d\d)?)")));
    const QRegularExpressionMatch match = FORM.match(text);
    if (!match.hasMatch()) {
        return {};
    }
    const QDate date = QDate::fromString(match.captured(1), Qt::ISODate);
    const QTime time = QTime::fromString(match.captured(2) + match.captured(3), Qt::ISODate);
    const bool isTaken =
        date.isValid() && time.isValid() && date.year() >= range.least && date.year() <= range.most;
    return isTaken ? QVariant(QDateTime(date, time, Qt::UTC)) : QVariant();
}

QVariant parse(const stSetting& setting, const QString& text) {
    const stSettingRange& range = setting.range;
    switch (setting.kind) {
        case SettingKind::Switch:
            return parseSwitch(text);
        case SettingKind::Number:
        case SettingKind::Capacity:
            return parseNumber(range, text);
        case SettingKind::Duration:
            return parseDuration(range, text);
        case SettingKind::Choice:
            return parseChoice(range, text);
        case SettingKind::Text:
            return parseText(range, text);
        case SettingKind::Address:
            return parseAddress(range, text);
        case SettingKind::Netmask:
            return parseNetmask(text);
        case SettingKind::TimeZone:
            return parseTimeZone(text);
        case SettingKind::Clock:
            return parseClock(range, text);
    }
    return {};
}

stParsedValue refusal(const stSetting& setting, const QString& text) {
    const QString named = text.isEmpty() ? QStringLiteral("nothing") : text;
    return {{},
            QStringLiteral("%1: %2 is not %3")
                .arg(toText(setting.key), setting.is(SECRET) ? QStringLiteral("this") : named,
                     rangeText(setting))};
}

QString choiceText(const stSettingRange& range, const QVariant& value) {
    const auto found = std::ranges::find_if(range.choices, [&value](const stSettingChoice& choice) {
        return choiceValue(choice) == value;
    });
    if (found != range.choices.end()) {
        return toText(found->name);
    }
    return value.typeId() == QMetaType::QSize ? QStringLiteral("unknown") : value.toString();
}

QString charactersText(SettingCharacters characters) {
    switch (characters) {
        case SettingCharacters::Alphanumeric:
            return QStringLiteral("letters and digits");
        case SettingCharacters::Visible:
            return QStringLiteral("printable ASCII characters without spaces");
        case SettingCharacters::OneByte:
            break;
    }
    return QStringLiteral("printable characters of Latin-1");
}

QString numbersText(const stSettingRange& range) {
    return range.most == range.least
               ? QStringLiteral("a number")
               : QStringLiteral("a number from %1 to %2").arg(range.least).arg(range.most);
}

QString durationsText(const stSettingRange& range) {
    QString text =
        range.hasNone ? QStringLiteral("off or a duration") : QStringLiteral("a duration");
    text +=
        QStringLiteral(" from %1 to %2").arg(durationText(range.least), durationText(range.most));
    if (range.step > 1) {
        text += QStringLiteral(" in steps of ") + durationText(range.step);
    }
    return text;
}

}  // namespace

stParsedValue parseValue(const stSetting& setting, const QString& text) {
    const QVariant value = parse(setting, text);
    return value.isValid() ? stParsedValue{value, {}} : refusal(setting, text);
}

stParsedValue parseJson(const stSetting& setting, const QJsonValue& json) {
    const bool isNumeric =
        setting.kind == SettingKind::Number || setting.kind == SettingKind::Duration ||
        setting.kind == SettingKind::Capacity || setting.kind == SettingKind::Choice;
    if (json.isBool() && setting.kind == SettingKind::Switch) {
        return {json.toBool(), {}};
    }
    if (json.isDouble() && isNumeric) {
        return parseValue(setting, json.toVariant().toString());
    }
    return json.isString() ? parseValue(setting, json.toString())
                           : refusal(setting, json.toVariant().toString());
}

QString valueText(const stSetting& setting, const QVariant& value) {
    switch (setting.kind) {
        case SettingKind::Switch:
            return value.toBool() ? QStringLiteral("on") : QStringLiteral("off");
        case SettingKind::Duration:
            return setting.range.hasNone && value.toLongLong() == 0
                       ? QStringLiteral("off")
                       : durationText(value.toLongLong());
        case SettingKind::Choice:
            return choiceText(setting.range, value);
        case SettingKind::TimeZone:
            return zoneText(value.toLongLong());
        case SettingKind::Clock: {
            const QDateTime clock = value.toDateTime();
            return clock.isValid() ? clock.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss"))
                                   : QStringLiteral("unknown");
        }
        case SettingKind::Number:
        case SettingKind::Capacity:
        case SettingKind::Text:
        case SettingKind::Address:
        case SettingKind::Netmask:
            break;
    }
    return value.toString();
}

QJsonValue valueJson(const stSetting& setting, const QVariant& value) {
    switch (setting.kind) {
        case SettingKind::Switch:
            return value.toBool();
        case SettingKind::Number:
        case SettingKind::Duration:
        case SettingKind::Capacity:
            return value.toLongLong();
        case SettingKind::Choice: {
            // A choice that is called by a number is this number.
            const QString text = choiceText(setting.range, value);
            bool isNumber = false;
            const qint64 number = text.toLongLong(&isNumber);
            return isNumber ? QJsonValue(number) : QJsonValue(text);
        }
        default:
            return valueText(setting, value);
    }
}

QString rangeText(const stSetting& setting) {
    const stSettingRange& range = setting.range;
    switch (setting.kind) {
        case SettingKind::Switch:
            return QStringLiteral("one of on, off");
        case SettingKind::Number:
            return numbersText(range);
        case SettingKind::Duration:
            return durationsText(range);
        case SettingKind::Choice: {
            QStringList names;
            for (const stSettingChoice& choice : range.choices) {
                names.append(toText(choice.name));
            }
            return QStringLiteral("one of ") + names.join(QLatin1String(", "));
        }
        case SettingKind::Text:
            return QStringLiteral("%1 to %2 %3")
                .arg(range.least)
                .arg(range.most)
                .arg(charactersText(range.characters));
        case SettingKind::Address:
            return range.hasNone ? QStringLiteral("none or an IPv4 address of a host")
                                 : QStringLiteral("an IPv4 address of a host");
        case SettingKind::Netmask:
            return QStringLiteral("a netmask, as 255.255.255.0 or /24");
        case SettingKind::TimeZone:
            return QStringLiteral("a time zone from UTC-12 to UTC+12, or local");
        case SettingKind::Clock:
            return QStringLiteral("now or a time from %1 to %2, as %1-12-31T23:59:59")
                .arg(range.least)
                .arg(range.most);
        case SettingKind::Capacity:
            break;
    }
    return QStringLiteral("a number of bytes");
}

QString kindText(SettingKind kind) {
    switch (kind) {
        case SettingKind::Switch:
            return QStringLiteral("switch");
        case SettingKind::Number:
            return QStringLiteral("number");
        case SettingKind::Duration:
            return QStringLiteral("duration");
        case SettingKind::Choice:
            return QStringLiteral("choice");
        case SettingKind::Text:
            return QStringLiteral("text");
        case SettingKind::Address:
            return QStringLiteral("address");
        case SettingKind::Netmask:
            return QStringLiteral("netmask");
        case SettingKind::TimeZone:
            return QStringLiteral("time zone");
        case SettingKind::Clock:
            return QStringLiteral("clock");
        case SettingKind::Capacity:
            break;
    }
    return QStringLiteral("capacity");
}

QString textPattern(const stSettingRange& range) {
    const auto characters = [&range] {
        switch (range.characters) {
            case SettingCharacters::Alphanumeric:
                return QStringLiteral("[0-9a-zA-Z]");
            case SettingCharacters::Visible:
                return QStringLiteral("[!-~]");
            case SettingCharacters::OneByte:
                break;
        }
        return QStringLiteral(R"([ -~\x{A0}-\x{FF}])");
    };
    return QStringLiteral("%1{%2,%3}").arg(characters()).arg(range.least).arg(range.most);
}
