// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "ui/Ipv4.h"

#include <QTest>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// The mask as one number: its zeros are contiguous when, inverted, it is one less than a power of
// two. Octets of 240 are not taken.
bool maskByArithmetic(std::array<unsigned int, 4> octets) {
    quint32 mask = 0;
    for (const unsigned int octet : octets) {
        if (octet == 240) {
            return false;
        }
        mask = mask << 8 | octet;
    }
    const quint32 hosts = ~mask;
    return (hosts & (hosts + 1)) == 0;
}

QString dotted(std::array<unsigned int, 4> octets) {
    return u"%1.%2.%3.%4"_s.arg(octets[0]).arg(octets[1]).arg(octets[2]).arg(octets[3]);
}

}  // namespace

/// Host addresses and subnet masks.
class Ipv4Test : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void judgesHostAddresses_data();
    void judgesHostAddresses();
    void judgesEveryOctetOfAnAddress_data();
    void judgesEveryOctetOfAnAddress();

    void judgesSubnetMasks_data();
    void judgesSubnetMasks();
    void judgesEveryPairOfMaskOctets_data();
    void judgesEveryPairOfMaskOctets();
    void judgesMasksWithAnyFourOctets();
};

void Ipv4Test::judgesHostAddresses_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    const auto row = [](const QString& text, bool valid) {
        QTest::newRow(text.isEmpty() ? "empty" : qPrintable(text)) << text << valid;
    };
    row(u"192.168.0.1"_s, true);
    row(u"010.001.000.1"_s, true);
    row(u"0.0.0.1"_s, true);
    row(u"255.255.255.254"_s, true);
    row(u"192.168.0.0"_s, false);
    row(u"192.168.0.255"_s, false);
    row(u"192.168.0.01"_s, false);
    row(u"256.1.1.1"_s, false);
    row(u"1.256.1.1"_s, false);
    row(u"1.1.256.1"_s, false);
    row(u"0192.168.0.1"_s, false);
    row(u"192.168.0"_s, false);
    row(u"192.168.0."_s, false);
    row(u"192.168.0.1.1"_s, false);
    row(u"192.168..1"_s, false);
    row(u"192,168,0,1"_s, false);
    row(u" 192.168.0.1"_s, false);
    row(u"192.168.0.1 "_s, false);
    row(u"192.168.0.1\n"_s, false);
    row(u"-1.168.0.1"_s, false);
    row(u"１９２.168.0.1"_s, false);
    row(u"a.b.c.d"_s, false);
    row(QString(), false);
}

void Ipv4Test::judgesHostAddresses() {
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QCOMPARE(validIpv4(text), valid);
}

void Ipv4Test::judgesEveryOctetOfAnAddress_data() {
    QTest::addColumn<int>("place");
    for (int place = 0; place < 4; ++place) {
        QTest::addRow("octet %d", place + 1) << place;
    }
}

void Ipv4Test::judgesEveryOctetOfAnAddress() {
    QFETCH(int, place);
    for (int value = 0; value < 1000; ++value) {
        for (int digits = 1; digits <= 4; ++digits) {
            const QString octet = u"%1"_s.arg(value, digits, 10, QChar(u'0'));
            QStringList parts(4, u"1"_s);
            parts[place] = octet;
            const bool padded = octet.size() > QString::number(value).size();
            const bool valid =
                place < 3 ? value < 256 && octet.size() <= 3 : value > 0 && value < 255 && !padded;
            const QString text = parts.join(u'.');
            QVERIFY2(validIpv4(text) == valid, qPrintable(text));
        }
    }
}

void Ipv4Test::judgesSubnetMasks_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    const auto row = [](const QString& text, bool valid) {
        QTest::newRow(text.isEmpty() ? "empty" : qPrintable(text)) << text << valid;
    };
    row(u"255.255.255.0"_s, true);
    row(u"255.255.255.255"_s, true);
    row(u"255.255.248.0"_s, true);
    row(u"255.128.0.0"_s, true);
    row(u"0.0.0.0"_s, true);
    row(u"000.00.0.000"_s, true);
    row(u"255.255.240.0"_s, false);
    row(u"240.0.0.0"_s, false);
    row(u"255.0.255.0"_s, false);
    row(u"255.255.255.1"_s, false);
    row(u"255.255.253.0"_s, false);
    row(u"0.255.255.255"_s, false);
    row(u"128.128.0.0"_s, false);
    row(u"255.255.255"_s, false);
    row(u"255.255.255.0.0"_s, false);
    row(u"255.255.255."_s, false);
    row(u"255.255.255.256"_s, false);
    row(u"255.255.255.0\n"_s, false);
    row(QString(), false);
}

void Ipv4Test::judgesSubnetMasks() {
    QFETCH(QString, text);
    QFETCH(bool, valid);
    QCOMPARE(validSubnetmask(text), valid);
}

void Ipv4Test::judgesEveryPairOfMaskOctets_data() {
    QTest::addColumn<std::size_t>("place");
    for (std::size_t place = 0; place < 3; ++place) {
        QTest::addRow("octets %zu and %zu", place + 1, place + 2) << place;
    }
}

void Ipv4Test::judgesEveryPairOfMaskOctets() {
    QFETCH(std::size_t, place);
    int valid = 0;
    for (unsigned int left = 0; left < 256; ++left) {
        for (unsigned int right = 0; right < 256; ++right) {
            std::array<unsigned int, 4> octets{255, 255, 255, 255};
            std::fill(octets.begin() + static_cast<std::ptrdiff_t>(place), octets.end(), 0U);
            octets[place] = left;
            octets[place + 1] = right;
            const bool expected = maskByArithmetic(octets);
            valid += expected ? 1 : 0;
            if (validSubnetmask(dotted(octets)) != expected) {
                QFAIL(qPrintable(dotted(octets)));
            }
        }
    }
    // 0, 128 ... 254 without 240 before a zero, and 255 before each of the same and 255.
    QCOMPARE(valid, 7 + 8);
}

void Ipv4Test::judgesMasksWithAnyFourOctets() {
    constexpr std::array OCTETS{0U,   1U,   64U,  127U, 128U, 192U, 224U,
                                240U, 248U, 252U, 253U, 254U, 255U};
    int valid = 0;
    for (const unsigned int first : OCTETS) {
        for (const unsigned int second : OCTETS) {
            for (const unsigned int third : OCTETS) {
                for (const unsigned int fourth : OCTETS) {
                    const std::array octets{first, second, third, fourth};
                    const bool expected = maskByArithmetic(octets);
                    valid += expected ? 1 : 0;
                    if (validSubnetmask(dotted(octets)) != expected) {
                        QFAIL(qPrintable(dotted(octets)));
                    }
                }
            }
        }
    }
    // The 33 lengths of a network, without the four that end in an octet of 240.
    QCOMPARE(valid, 33 - 4);
}

const TestSubject registered = subjectWithoutApplication<Ipv4Test>();
#include "Ipv4Test.moc"
