// SPDX-License-Identifier: MIT
#include "settings/NetworkAddress.h"

#include <QRegularExpression>

namespace {

constexpr int OCTETS = 4;
constexpr int BITS = 32;
constexpr int BITS_PER_OCTET = 8;
constexpr quint32 OCTET = 0xFF;

bool hasGap(quint32 mask) {
    const quint32 rest = ~mask;
    return (rest & (rest + 1)) != 0;
}

}  // namespace

std::optional<quint32> addressFromText(const QString& text) {
    static const QRegularExpression FORM(QRegularExpression::anchoredPattern(
        QStringLiteral(R"(([0-9]{1,3})\.([0-9]{1,3})\.([0-9]{1,3})\.([0-9]{1,3}))")));
    const QRegularExpressionMatch match = FORM.match(text);
    if (!match.hasMatch()) {
        return std::nullopt;
    }
    quint32 address = 0;
    for (int i = 1; i <= OCTETS; ++i) {
        const quint32 octet = match.captured(i).toUInt();
        if (octet > OCTET) {
            return std::nullopt;
        }
        address = address << BITS_PER_OCTET | octet;
    }
    return address;
}

std::optional<quint32> netmaskFromText(const QString& text) {
    if (text.startsWith(u'/')) {
        bool isNumber = false;
        const int length = text.mid(1).toInt(&isNumber);
        if (!isNumber || length < 0 || length > BITS) {
            return std::nullopt;
        }
        return length == 0 ? 0 : ~quint32{0} << (BITS - length);
    }
    const std::optional<quint32> mask = addressFromText(text);
    return mask && !hasGap(*mask) ? mask : std::nullopt;
}

QString addressText(quint32 address) {
    return QStringLiteral("%1.%2.%3.%4")
        .arg(address >> 24 & OCTET)
        .arg(address >> 16 & OCTET)
        .arg(address >> 8 & OCTET)
        .arg(address & OCTET);
}
