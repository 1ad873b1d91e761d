// SPDX-License-Identifier: MIT
#include "protocol/TextPackets.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

/// The packets that carry texts: one string, two strings sent, two strings received.
class TextPacketTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneStringIsSentInPlaceOfTwoParameters_data();
    void oneStringIsSentInPlaceOfTwoParameters();
    void oneStringIsReceivedInPlaceOfTwoParameters_data();
    void oneStringIsReceivedInPlaceOfTwoParameters();
    void anAnswerReplacesTheStringOfTheRequest();
    void whatFollowsTheStringIsSentBehindIt();
    void textsAreSentWithTheirOwnLength();

    void twoStringsAreSentForAWifiNetwork_data();
    void twoStringsAreSentForAWifiNetwork();

    void twoStringsAreReceivedBehindTheFirstParameter_data();
    void twoStringsAreReceivedBehindTheFirstParameter();
    void recordsKeepTheirHeader();
    void valuePacketsArePlain();
};

void TextPacketTest::oneStringIsSentInPlaceOfTwoParameters_data() {
    QTest::addColumn<QString>("string");
    QTest::addColumn<QByteArray>("packet");

    const QByteArray plain =
        "0000 <id> 20000000 3058 0000 00000000 00000000 00000000 00000000 00000000";
    QTest::newRow("null") << QString() << plain;
    QTest::newRow("empty") << QStringLiteral("") << plain;
    QTest::newRow("abc")
        << QStringLiteral("abc")
        << QByteArray("0000 <id> 1f000000 3058 0000 03000000 616263 00000000 00000000 00000000");
    QTest::newRow("one character")
        << QStringLiteral("x")
        << QByteArray("0000 <id> 1d000000 3058 0000 01000000 78 00000000 00000000 00000000");
    QTest::newRow("four characters")
        << QStringLiteral("nubo")
        << QByteArray("0000 <id> 20000000 3058 0000 04000000 6e75626f 00000000 00000000 00000000");
    QTest::newRow("Latin-1")
        << QStringLiteral("\u00e9\u00ff")
        << QByteArray("0000 <id> 1e000000 3058 0000 02000000 e9ff 00000000 00000000 00000000");
    QTest::newRow("beyond Latin-1")
        << QStringLiteral("a\u30ab\u30e1b")
        << QByteArray("0000 <id> 20000000 3058 0000 04000000 613f3f62 00000000 00000000 00000000");
    QTest::newRow("with a zero inside")
        << QString::fromLatin1("a\0b", 3)
        << QByteArray("0000 <id> 1f000000 3058 0000 03000000 610062 00000000 00000000 00000000");
    QTest::newRow("300 characters")
        << QString(300, u'z')
        << QByteArray("0000 <id> 48010000 3058 0000 2c010000") + QByteArray("7a").repeated(300) +
               QByteArray("00000000 00000000 00000000");
}

void TextPacketTest::oneStringIsSentInPlaceOfTwoParameters() {
    QFETCH(QString, string);
    QFETCH(QByteArray, packet);
    const ClNuboCommandString command(string, 0x5830);
    const QByteArray expected = wireBytes(packet, command.id());
    QCOMPARE(wireText(command.getData()), wireText(expected));
    QCOMPARE(command.length(), static_cast<unsigned int>(expected.size()));
    QCOMPARE(command.param(1), static_cast<unsigned int>(string.size()));
}

void TextPacketTest::oneStringIsReceivedInPlaceOfTwoParameters_data() {
    QTest::addColumn<QByteArray>("tail");
    QTest::addColumn<QString>("string");
    QTest::addColumn<QList<unsigned int>>("params");

    QTest::newRow("abc") << QByteArray("03000000 616263 07000000 08000000 09000000")
                         << QStringLiteral("abc") << QList<unsigned int>{3, 0, 7, 8, 9};
    QTest::newRow("none") << QByteArray("00000000 06000000 07000000 08000000 09000000") << QString()
                          << QList<unsigned int>{0, 6, 7, 8, 9};
    QTest::newRow("Latin-1") << QByteArray("02000000 e9ff 00000000 00000000 00000000")
                             << QStringLiteral("\u00e9\u00ff")
                             << QList<unsigned int>{2, 0, 0, 0, 0};
    QTest::newRow("with a zero inside")
        << QByteArray("03000000 610062 00000000 00000000 00000000")
        << QString::fromLatin1("a\0b", 3) << QList<unsigned int>{3, 0, 0, 0, 0};
    QTest::newRow("count beyond the packet")
        << QByteArray("09000000 616263") << QStringLiteral("abc")
        << QList<unsigned int>{9, 0, 0, 0, 0};
}

void TextPacketTest::oneStringIsReceivedInPlaceOfTwoParameters() {
    QFETCH(QByteArray, tail);
    QFETCH(QString, string);
    QFETCH(QList<unsigned int>, params);
    ClNuboCommandString command(QString(), 0x5030);
    command.setData(wireBytes("0100 3412 1f000000 fbff 0000" + tail));
    QCOMPARE(command.string(), string);
    QCOMPARE(command.type(), 1);
    QCOMPARE(command.id(), 0x1234);
    QCOMPARE(command.length(), 31U);
    QCOMPARE(command.getError(), 0xFFFB);
    for (int number = 1; number <= ClNuboCommand::PARAM_COUNT; ++number) {
        QCOMPARE(command.param(number), params[number - 1]);
    }
}

void TextPacketTest::anAnswerReplacesTheStringOfTheRequest() {
    ClNuboCommandString command(QStringLiteral("before"), 0x5030);
    command.setData(
        wireBytes("0000 3412 20000000 0000 0000 00000000 00000000 00000000 00000000 00000000"));
    QCOMPARE(command.string(), QString());
}

void TextPacketTest::whatFollowsTheStringIsSentBehindIt() {
    const QByteArray packet =
        wireBytes("0000 3412 1f000000 3058 0000 03000000 616263 07000000 08000000 09000000");
    ClNuboCommandString command(QString(), 0);
    command.setData(packet);
    QCOMPARE(wireText(command.getData()), wireText(packet));
}

void TextPacketTest::textsAreSentWithTheirOwnLength() {
    ClNuboCommandString text(QString(), 0);
    text.setData(wireBytes("0000 3412 ff000000 3058 0000 03000000 616263"));
    QCOMPARE(wireText(text.getData()),
             wireText(wireBytes(
                 "0000 3412 1f000000 3058 0000 03000000 616263 00000000 00000000 00000000")));

    ClNuboCommandConnectWifi network(QStringLiteral("net"), QStringLiteral("key"));
    network.setData(
        wireBytes("0000 3412 ff000000 0768 0000 01000000 02000000 03000000 04000000 05000000"));
    QCOMPARE(wireText(network.getData()),
             wireText(wireBytes(
                 "0000 3412 1e000000 0768 0000 03000000 6e6574 03000000 6b6579 05000000")));
}

void TextPacketTest::twoStringsAreSentForAWifiNetwork_data() {
    QTest::addColumn<QString>("ssid");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("packet");

    const QByteArray bare = "0000 <id> 18000000 0768 0000 00000000 00000000 00000000";
    QTest::newRow("null") << QString() << QString() << bare;
    QTest::newRow("empty") << QStringLiteral("") << QStringLiteral("") << bare;
    QTest::newRow("both")
        << QStringLiteral("net") << QStringLiteral("secret")
        << QByteArray(
               "0000 <id> 21000000 0768 0000 03000000 6e6574 06000000 736563726574 00000000");
    QTest::newRow("open network")
        << QStringLiteral("net") << QString()
        << QByteArray("0000 <id> 1b000000 0768 0000 03000000 6e6574 00000000 00000000");
    QTest::newRow("beyond Latin-1")
        << QStringLiteral("\u732b") << QStringLiteral("\u00fc")
        << QByteArray("0000 <id> 1a000000 0768 0000 01000000 3f 01000000 fc 00000000");
}

void TextPacketTest::twoStringsAreSentForAWifiNetwork() {
    QFETCH(QString, ssid);
    QFETCH(QString, key);
    QFETCH(QByteArray, packet);
    const ClNuboCommandConnectWifi command(ssid, key);
    const QByteArray expected = wireBytes(packet, command.id());
    QCOMPARE(wireText(command.getData()), wireText(expected));
    QCOMPARE(command.length(), static_cast<unsigned int>(expected.size()));
}

void TextPacketTest::twoStringsAreReceivedBehindTheFirstParameter_data() {
    QTest::addColumn<QByteArray>("tail");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");

    QTest::newRow("both") << QByteArray("03000000 6e6574 02000000 6162") << QStringLiteral("net")
                          << QStringLiteral("ab");
    QTest::newRow("none") << QByteArray("00000000 00000000") << QString() << QString();
    QTest::newRow("only the first")
        << QByteArray("03000000 6e6574 00000000") << QStringLiteral("net") << QString();
    QTest::newRow("only the second")
        << QByteArray("00000000 02000000 6162") << QString() << QStringLiteral("ab");
    QTest::newRow("Latin-1") << QByteArray("01000000 e9 01000000 ff") << QStringLiteral("\u00e9")
                             << QStringLiteral("\u00ff");
    QTest::newRow("with something behind") << QByteArray("01000000 61 01000000 62 63646566")
                                           << QStringLiteral("a") << QStringLiteral("b");
    QTest::newRow("first count beyond the packet")
        << QByteArray("ff000000 6e6574 02000000 6162") << QString::fromLatin1("net\2\0\0\0ab", 9)
        << QString();
    QTest::newRow("second count beyond the packet")
        << QByteArray("03000000 6e6574 00ffffff 6162") << QStringLiteral("net")
        << QStringLiteral("ab");
}

void TextPacketTest::twoStringsAreReceivedBehindTheFirstParameter() {
    QFETCH(QByteArray, tail);
    QFETCH(QString, first);
    QFETCH(QString, second);
    const QByteArray packet = wireBytes("0000 3412 1d000000 0000 0000 07000000" + tail);

    const ClNuboCommandWifiInfo1 wifi(packet);
    QCOMPARE(wifi.firstString(), first);
    QCOMPARE(wifi.secondString(), second);
    const ClNuboCommandAccesspointInfo1 accesspoint(packet);
    QCOMPARE(accesspoint.firstString(), first);
    QCOMPARE(accesspoint.secondString(), second);
    QCOMPARE(accesspoint.param(1), 7U);
}

void TextPacketTest::recordsKeepTheirHeader() {
    const ClNuboCommandWifiInfo1 record(
        wireBytes("0100 3412 1d000000 f9ff 0000 07000000 03000000 6e6574 02000000 6162"));
    QCOMPARE(record.type(), 1);
    QCOMPARE(record.id(), 0x1234);
    QCOMPARE(record.length(), 29U);
    QCOMPARE(record.getError(), 0xFFF9);
    QCOMPARE(record.param(1), 7U);
    QCOMPARE(record.param(2), 0U);
}

void TextPacketTest::valuePacketsArePlain() {
    const QByteArray packet =
        wireBytes("0000 3412 20000000 0000 0000 01000000 02000000 03000000 04000000 05000000");
    QCOMPARE(ClNuboCommandWifiInfo2(packet).getData(), packet);
    QCOMPARE(ClNuboCommandAccesspointInfo2(packet).getData(), packet);
}

const TestSubject registered = subjectWithoutScreen<TextPacketTest>();
#include "TextPacketTest.moc"
