// SPDX-License-Identifier: MIT
#include "ui/Ipv4.h"

#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>

namespace {

constexpr unsigned int FULL_OCTET = 255;
constexpr std::array LAST_MASK_OCTETS{0U, 128U, 192U, 224U, 248U, 252U, 254U};

const QRegularExpression& hostAddress() {
    static const QRegularExpression PATTERN(QRegularExpression::anchoredPattern(
        QStringLiteral(R"(^(?:[0-1]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5])\.)"
                       R"((?:[0-1]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5])\.)"
                       R"((?:[0-1]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5])\.)"
                       R"((?:[1-9]|[1-9][0-9]|1[0-9][0-9]|2[0-4][0-9]|25[0-4])$)")));
    return PATTERN;
}

const QRegularExpression& dottedQuad() {
    static const QRegularExpression PATTERN(QRegularExpression::anchoredPattern(
        QStringLiteral(R"(^(?:[0-1]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5])\.)"
                       R"((?:[0-1]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5])\.)"
                       R"((?:[0-1]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5])\.)"
                       R"((?:[0-1]?[0-9]?[0-9]|2[0-4][0-9]|25[0-5])$)")));
    return PATTERN;
}

}  // namespace

bool validIpv4(const QString& text) {
    return hostAddress().match(text).hasMatch();
}

bool validSubnetmask(const QString& text) {
    if (!dottedQuad().match(text).hasMatch()) {
        return false;
    }
    bool zerosOnly = false;
    for (const QString& part : text.split(u'.')) {
        const unsigned int octet = part.toUInt();
        if (zerosOnly) {
            if (octet != 0) {
                return false;
            }
        } else if (octet != FULL_OCTET) {
            if (std::ranges::find(LAST_MASK_OCTETS, octet) == LAST_MASK_OCTETS.end()) {
                return false;
            }
            zerosOnly = true;
        }
    }
    return true;
}
