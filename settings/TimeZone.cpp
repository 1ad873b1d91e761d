// SPDX-License-Identifier: MIT
#include "settings/TimeZone.h"

#include <QDateTime>
#include <QRegularExpression>

namespace {

constexpr int EASTMOST = 12;  // hours
constexpr int WESTMOST = 24;  // zone
constexpr int SECONDS_AN_HOUR = 3600;

std::optional<unsigned int> zoneOf(int hours) {
    if (hours < -EASTMOST || hours > EASTMOST) {
        return std::nullopt;
    }
    return static_cast<unsigned int>(hours < 0 ? EASTMOST - hours : hours);
}

}  // namespace

std::optional<unsigned int> zoneFromText(const QString& text) {
    if (text.compare(QLatin1String("local"), Qt::CaseInsensitive) == 0) {
        const int offset = QDateTime::currentDateTime().offsetFromUtc();
        return offset % SECONDS_AN_HOUR == 0 ? zoneOf(offset / SECONDS_AN_HOUR) : std::nullopt;
    }
    static const QRegularExpression FORM(
        QRegularExpression::anchoredPattern(
            QStringLiteral("(?:UTC|GMT|(?=[+-]))(?:([+-])([0-9]{1,2})(?::?00)?)?")),
        QRegularExpression::CaseInsensitiveOption);
    const QRegularExpressionMatch match = FORM.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    const int hours = match.captured(2).toInt();
    return zoneOf(match.captured(1) == QLatin1String("-") ? -hours : hours);
}

QString zoneText(qint64 zone) {
    if (zone < 0 || zone > WESTMOST) {
        return QString::number(zone);
    }
    const qint64 hours = zone > EASTMOST ? EASTMOST - zone : zone;
    return hours == 0 ? QStringLiteral("UTC")
                      : QStringLiteral("UTC%1%2").arg(hours > 0 ? u"+" : u"").arg(hours);
}
