// SPDX-License-Identifier: MIT
#include "tests/catalogue/CataloguePackets.h"

#include <QtEndian>

namespace {

constexpr qsizetype PARAMETER_DIGITS = 40;

QByteArray plainPacket(const char* code, const QByteArray& parameters, char filler) {
    const QByteArray given = QByteArray(parameters).replace(' ', QByteArray());
    return QByteArray("0000 <id> 20000000 ") + code + " 0000 " +
           given.leftJustified(PARAMETER_DIGITS, filler);
}

}  // namespace

QByteArray plainRequest(const char* code, const QByteArray& parameters) {
    return plainPacket(code, parameters, '0');
}

QByteArray textRequest(const char* length, const char* code, const QByteArray& text) {
    return QByteArray("0000 <id> ") + length + " " + code + " 0000 " + text +
           " 00000000 00000000 00000000";
}

QByteArray plainAnswer(const QByteArray& parameters) {
    return plainPacket("0000", parameters, '9');
}

QByteArray textAnswer(const char* length, const QByteArray& text, const char* third) {
    return QByteArray("0000 <id> ") + length + " 0000 0000 " + text + " " + third +
           " 99999999 99999999";
}

QByteArray refusal(quint16 code) {
    const quint16 wire = qToLittleEndian(code);
    return "0000 <id> 20000000 " +
           QByteArray(reinterpret_cast<const char*>(&wire), sizeof wire).toHex() + " 0000 " +
           QByteArray(PARAMETER_DIGITS, '0');
}
