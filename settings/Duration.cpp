// SPDX-License-Identifier: MIT
#include "settings/Duration.h"

#include <QRegularExpression>

#include <array>
#include <limits>

namespace {

struct stUnit {
    char16_t letter;
    qint64 seconds;
};

constexpr std::array UNITS{stUnit{u'h', 3600}, stUnit{u'm', 60}, stUnit{u's', 1}};

}  // namespace

std::optional<qint64> durationFromText(const QString& text) {
    static const QRegularExpression FORM(QRegularExpression::anchoredPattern(
        QStringLiteral("(?:([0-9]{1,9})h)?(?:([0-9]{1,9})m)?(?:([0-9]{1,9})s?)?")));
    const QRegularExpressionMatch match = FORM.match(text);
    if (text.isEmpty() || !match.hasMatch()) {
        return std::nullopt;
    }
    qint64 seconds = 0;
    for (std::size_t i = 0; i < UNITS.size(); ++i) {
        seconds += match.captured(static_cast<int>(i) + 1).toLongLong() * UNITS[i].seconds;
    }
    return seconds <= std::numeric_limits<qint32>::max() ? std::optional(seconds) : std::nullopt;
}

QString durationText(qint64 seconds) {
    QString text;
    for (const stUnit& unit : UNITS) {
        if (const qint64 count = seconds / unit.seconds; count != 0) {
            text += QString::number(count) + QChar(unit.letter);
            seconds %= unit.seconds;
        }
    }
    return text.isEmpty() ? QStringLiteral("0s") : text;
}
