// SPDX-License-Identifier: MIT
#include "ui/ClIpv4Validator.h"

#include <QStringList>

#include <algorithm>

namespace {

constexpr qsizetype OCTETS = 4;
constexpr int OCTET_END = 256;
constexpr int FULL_FROM = 100;  // the least value of three digits

bool validOctet(const QString& part, int& value) {
    bool number = false;
    value = part.toInt(&number);
    return number && value < OCTET_END && (part.size() < 2 || value != 0);
}

}  // namespace

ClIpv4Validator::ClIpv4Validator(QObject* parent) : QValidator(parent) {}

QValidator::State ClIpv4Validator::validate(QString& input, int& pos) const {
    const QStringList parts = input.split(u'.');
    if (parts.size() > OCTETS) {
        return Invalid;
    }
    int octet = 0;
    for (qsizetype i = 0; i < parts.size(); ++i) {
        const bool yetToBeTyped = parts[i].isEmpty() && i == parts.size() - 1;
        if (yetToBeTyped) {
            octet = 0;
        } else if (!validOctet(parts[i], octet)) {
            return Invalid;
        }
    }
    if (parts.size() < OCTETS) {
        moveOn(input, pos, octet);
    }
    m_accepted = input;
    return Acceptable;
}

void ClIpv4Validator::moveOn(QString& input, int& pos, int lastOctet) const {
    const bool dotDeleted = input.size() < m_accepted.size() && m_accepted.endsWith(u'.');
    if (dotDeleted) {
        input.chop(1);
        // Negative when the text went at once or from its start: a line edit cannot stand there.
        pos = std::max(pos - 1, 0);
    } else if (lastOctet >= FULL_FROM) {
        input.append(u'.');
        ++pos;
    }
}
