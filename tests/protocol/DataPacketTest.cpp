// SPDX-License-Identifier: MIT
#include "protocol/DataPackets.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

#include <array>

/// The packets of a data phase: one packet sent, many packets received.
class DataPacketTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPayloadIsSentBehindAHeadOfEightBytes_data();
    void aPayloadIsSentBehindAHeadOfEightBytes();
    void aLargePayloadIsOnePacket();

    void dataArrivesInPieces();
    void continuationsAreNotParsed();
    void piecesOutliveTheBufferTheyCameIn();
    void theHeadOfTheFirstPacketMustMatch_data();
    void theHeadOfTheFirstPacketMustMatch();
    void aFreshReceiverStartsAgain();
    void aReceptionIsNeverSent();
};

void DataPacketTest::aPayloadIsSentBehindAHeadOfEightBytes_data() {
    QTest::addColumn<QByteArray>("payload");
    QTest::addColumn<QByteArray>("packet");
    QTest::newRow("null") << QByteArray() << QByteArray("0200 3412 00000000");
    QTest::newRow("empty") << QByteArray("") << QByteArray("0200 3412 00000000");
    QTest::newRow("text") << QByteArray("jpeg") << QByteArray("0200 3412 04000000 6a706567");
    QTest::newRow("with a zero inside")
        << QByteArray("a\0b", 3) << QByteArray("0200 3412 03000000 610062");
}

void DataPacketTest::aPayloadIsSentBehindAHeadOfEightBytes() {
    QFETCH(QByteArray, payload);
    QFETCH(QByteArray, packet);
    const QByteArray expected = wireText(wireBytes(packet));
    const ClNuboCommandDataSend data(0x1234, payload);
    QCOMPARE(wireText(data.getData()), expected);
    QCOMPARE(data.id(), 0x1234);
    const ClNuboCommandDataSend twin(0x1234, payload.constData(), static_cast<int>(payload.size()));
    QCOMPARE(wireText(twin.getData()), expected);
}

void DataPacketTest::aLargePayloadIsOnePacket() {
    const QByteArray payload(0x123456, 'x');
    const QByteArray packet = ClNuboCommandDataSend(0x1234, payload).getData();
    QCOMPARE(wireText(packet.left(8)), QByteArray("02 00 34 12 56 34 12 00"));
    QCOMPARE(packet.size(), 0x123456 + 8);
    QVERIFY(packet.endsWith(payload));
}

void DataPacketTest::dataArrivesInPieces() {
    ClNuboCommandDataReceive data(0x1234, 10);
    QVERIFY(data.isIncomplete());
    QVERIFY(data.addData(wireBytes("0200 3412 0a000000 04000000 61626364")));
    QCOMPARE(data.receivedData(), QByteArray("abcd"));
    QVERIFY(data.isIncomplete());
    QVERIFY(data.addData(QByteArray("efg")));
    QVERIFY(data.isIncomplete());
    QVERIFY(data.addData("hij", 3));
    QCOMPARE(data.receivedData(), QByteArray("abcdefghij"));
    QVERIFY(!data.isIncomplete());
    QCOMPARE(data.type(), 2);
}

void DataPacketTest::continuationsAreNotParsed() {
    ClNuboCommandDataReceive data(0x1234, 24);
    const QByteArray head = wireBytes("0200 3412 18000000 00000000");
    QVERIFY(data.addData(head));
    QCOMPARE(data.receivedData(), QByteArray());
    QVERIFY(data.addData(head));
    QCOMPARE(data.receivedData(), head);
    QVERIFY(data.addData(wireBytes("0200 9999 99000000 00000000")));
    QCOMPARE(data.receivedData(), head + wireBytes("0200 9999 99000000 00000000"));
}

void DataPacketTest::piecesOutliveTheBufferTheyCameIn() {
    ClNuboCommandDataReceive data(0x1234, 4);
    QVERIFY(data.addData(wireBytes("0200 3412 04000000 00000000")));
    std::array buffer{'a', 'b', 'c', 'd'};
    QVERIFY(data.addData(buffer.data(), static_cast<int>(buffer.size())));
    buffer.fill('-');
    QCOMPARE(data.receivedData(), QByteArray("abcd"));
}

void DataPacketTest::theHeadOfTheFirstPacketMustMatch_data() {
    QTest::addColumn<QByteArray>("packet");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QByteArray>("kept");
    QTest::newRow("right") << QByteArray("0200 3412 0a000000 02000000 6162") << true
                           << QByteArray("ab");
    QTest::newRow("any packet type")
        << QByteArray("ffff 3412 0a000000 02000000 6162") << true << QByteArray("ab");
    QTest::newRow("wrong id") << QByteArray("0200 3512 0a000000 02000000 6162") << false
                              << QByteArray("ab");
    QTest::newRow("wrong size") << QByteArray("0200 3412 0b000000 02000000 6162") << false
                                << QByteArray("ab");
    QTest::newRow("both wrong") << QByteArray("0200 0000 00000000 02000000 6162") << false
                                << QByteArray("ab");
    QTest::newRow("fewer bytes counted than present")
        << QByteArray("0200 3412 0a000000 02000000 61626364") << true << QByteArray("ab");
    QTest::newRow("more bytes counted than present")
        << QByteArray("0200 3412 0a000000 0a000000 6162") << true << QByteArray("ab");
    QTest::newRow("nothing") << QByteArray() << false << QByteArray();
}

void DataPacketTest::theHeadOfTheFirstPacketMustMatch() {
    QFETCH(QByteArray, packet);
    QFETCH(bool, accepted);
    QFETCH(QByteArray, kept);
    ClNuboCommandDataReceive first(0x1234, 10);
    QCOMPARE(first.addDataFirst(wireBytes(packet)), accepted);
    QCOMPARE(first.receivedData(), kept);
    ClNuboCommandDataReceive any(0x1234, 10);
    QCOMPARE(any.addData(wireBytes(packet)), accepted);
    QCOMPARE(any.receivedData(), kept);
}

void DataPacketTest::aFreshReceiverStartsAgain() {
    ClNuboCommandDataReceive data(0x1234, 2);
    QVERIFY(data.addData(wireBytes("0200 3412 02000000 02000000 6162")));
    data = ClNuboCommandDataReceive(0x4321, 3);
    QVERIFY(data.receivedData().isEmpty());
    QVERIFY(data.isIncomplete());
    QVERIFY(data.addData(wireBytes("0200 2143 03000000 03000000 636465")));
    QCOMPARE(data.receivedData(), QByteArray("cde"));
}

void DataPacketTest::aReceptionIsNeverSent() {
    QVERIFY(ClNuboCommandDataReceive(0x1234, 10).getData().isEmpty());
}

const TestSubject registered = subjectWithoutScreen<DataPacketTest>();
#include "DataPacketTest.moc"
