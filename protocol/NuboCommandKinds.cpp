// SPDX-License-Identifier: MIT
#include "protocol/NuboCommandKinds.h"

namespace {
const QString DATE_FORMAT = QStringLiteral("yyyy/MM/dd");
const QString TIME_FORMAT = QStringLiteral("hh:mm:ss");
}  // namespace

QDateTime validOrNow(const QDateTime& time) {
    // An hour that daylight saving skips here may well exist where the camera is: the parts count.
    const bool isMeant = time.date().isValid() && time.time().isValid();
    return isMeant ? time : QDateTime::currentDateTime();
}

std::array<unsigned int, ClNuboCommand::PARAM_COUNT> packDateTime(const QDateTime& time) {
    const QDate date = time.date();
    const QTime clock = time.time();
    return {
        // Unsigned from the start: the camera may tell a year whose packed form needs all 32 bits.
        static_cast<unsigned int>(date.year()) * 10000 +
            static_cast<unsigned int>(date.month() * 100 + date.day()),
        static_cast<unsigned int>(clock.hour() * 10000 + clock.minute() * 100 + clock.second()),
    };
}

QDateTime unpackDateTime(unsigned int date, unsigned int time) {
    const auto part = [](unsigned int packed, unsigned int divisor, unsigned int modulus) {
        return static_cast<int>(packed / divisor % modulus);
    };
    const QDate day(static_cast<int>(date / 10000), part(date, 100, 100), part(date, 1, 100));
    const QTime clock(static_cast<int>(time / 10000), part(time, 100, 100), part(time, 1, 100));
    return day.isValid() && clock.isValid() ? QDateTime(day, clock) : QDateTime();
}

QString dateTimeToText(const QDateTime& time) {
    // By its parts: a time that daylight saving skips here has no text as a whole.
    return time.date().toString(DATE_FORMAT) + u' ' + time.time().toString(TIME_FORMAT);
}

QDateTime textToDateTime(const QString& text) {
    return QDateTime::fromString(text, DATE_FORMAT + u' ' + TIME_FORMAT);
}

unsigned int packLetter(const QString& country, qsizetype index) {
    const QByteArray letters = country.toLatin1();
    return index < letters.size() ? static_cast<unsigned char>(letters[index]) : 0;
}

QString unpackCountry(unsigned int first, unsigned int second) {
    QString country;
    for (const unsigned int letter : {first & 0xFF, second & 0xFF}) {
        if (letter == 0) {
            break;
        }
        country += QLatin1Char(static_cast<char>(letter));
    }
    return country;
}
