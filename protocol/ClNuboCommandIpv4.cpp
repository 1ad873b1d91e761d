// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommandIpv4.h"

#include <QStringList>

namespace {

// Part i sits 24 - 8i bits up; a fifth part starts again at the top, as the shift counts modulo 32.
unsigned int packAddress(const QString& address) {
    unsigned int packed = 0;
    unsigned int shift = 24;
    for (const QString& part : address.split(u'.', Qt::SkipEmptyParts)) {
        packed += part.toUInt() << shift;
        shift = (shift - 8) % 32;
    }
    return packed;
}

}  // namespace

ClNuboCommandIpv4::ClNuboCommandIpv4(const QString& address, unsigned short code)
    : ClNuboCommand(code, packAddress(address), 0, 0, 0, 0, 0, 0, PLAIN_LENGTH) {}

QString ClNuboCommandIpv4::getAddress() const {
    const unsigned int packed = param(1);
    return QStringLiteral("%1.%2.%3.%4")
        .arg(packed >> 24 & 0xFF)
        .arg(packed >> 16 & 0xFF)
        .arg(packed >> 8 & 0xFF)
        .arg(packed & 0xFF);
}
