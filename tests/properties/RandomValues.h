// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

#include <random>

/// Values to try an encoding with: the same ones in every run, on every computer.
class RandomValues {
public:
    explicit RandomValues(unsigned seed) : m_random(seed) {}

    /// Any number, and those at the ends of the range more often.
    [[nodiscard]] quint32 number() {
        const quint32 any = bits();
        switch (bits() % 8) {
            case 0:
                return any % 3;
            case 1:
                return ~(any % 3);
            case 2:
                return 1U << any % 32;
            default:
                return any;
        }
    }
    [[nodiscard]] quint32 below(quint32 limit) { return bits() % limit; }
    [[nodiscard]] bool isTrue() { return below(2) == 1; }

    [[nodiscard]] QByteArray bytes(quint32 most) {
        QByteArray bytes(static_cast<qsizetype>(below(most + 1)), '\0');
        for (char& byte : bytes) {
            byte = static_cast<char>(bits());
        }
        return bytes;
    }
    /// Characters that are one byte on the wire.
    [[nodiscard]] QString text(quint32 most) { return QString::fromLatin1(bytes(most)); }

    [[nodiscard]] QString address() {
        return QStringLiteral("%1.%2.%3.%4")
            .arg(below(256))
            .arg(below(256))
            .arg(below(256))
            .arg(below(256));
    }
    /// From 2000 to 2100.
    [[nodiscard]] QDateTime time() {
        const QDate date = QDate(2000, 1, 1).addDays(below(36'889));
        return {date, QTime(0, 0).addSecs(static_cast<int>(below(86'400)))};
    }

private:
    // 16 of the generator's 31 bits at a time: the lowest ones repeat soon.
    quint32 bits() {
        const quint32 high = static_cast<quint32>(m_random()) >> 12U & 0xFFFFU;
        return high << 16U | (static_cast<quint32>(m_random()) >> 12U & 0xFFFFU);
    }

    std::minstd_rand m_random;
};
