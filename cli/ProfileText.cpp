// SPDX-License-Identifier: MIT
#include "cli/ProfileText.h"

#include "settings/SettingValue.h"

#include <algorithm>

namespace {

constexpr char16_t QUOTE = u'"';
constexpr char16_t ESCAPE = u'\\';

}  // namespace

QString profileValue(const stSetting& setting, const QVariant& value) {
    const QString text = valueText(setting, value);
    return setting.kind == SettingKind::Text ? profileQuoted(text) : text;
}

QString profileQuoted(const QString& text) {
    const bool isPlain = !text.isEmpty() && text == text.trimmed() && !text.startsWith(QUOTE) &&
                         std::ranges::all_of(text, [](QChar letter) { return letter.isPrint(); });
    if (isPlain) {
        return text;
    }
    QString quoted(QUOTE);
    for (const QChar letter : text) {
        if (letter == QUOTE || letter == ESCAPE) {
            quoted += ESCAPE;
            quoted += letter;
        } else if (letter.isPrint()) {
            quoted += letter;
        } else {
            quoted += QStringLiteral("\\u%1").arg(letter.unicode(), 4, 16, QLatin1Char('0'));
        }
    }
    return quoted + QUOTE;
}

std::optional<QString> profileUnquoted(const QString& value) {
    if (!value.startsWith(QUOTE)) {
        return value;
    }
    QString text;
    for (qsizetype i = 1; i < value.size(); ++i) {
        if (value[i] == QUOTE) {
            return i == value.size() - 1 ? std::optional(text) : std::nullopt;
        }
        if (value[i] != ESCAPE) {
            text += value[i];
            continue;
        }
        if (++i >= value.size()) {
            break;
        }
        if (value[i] != u'u') {
            text += value[i];
            continue;
        }
        bool isNumber = false;
        const ushort code = value.mid(i + 1, 4).toUShort(&isNumber, 16);
        if (!isNumber || i + 4 >= value.size()) {
            return std::nullopt;
        }
        text += QChar(code);
        i += 4;
    }
    return std::nullopt;
}
