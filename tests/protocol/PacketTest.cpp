// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommand.h"
#include "protocol/NuboCommands.h"
#include "protocol/TextPackets.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QDateTime>
#include <QSet>
#include <QTest>

/// The plain packet of 32 bytes: fields to bytes, bytes to fields, transaction ids and the values
/// packed into parameters.
class PacketTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDefaultPacketIsZeroButForItsLength();
    void fieldsStandAtTheirPlaces();
    void parsingTakesEveryFieldButTheReservedWord();
    void bothWaysOfHandingOverBytesAgree();
    void aCommandIsItsCodeAndParameters_data();
    void aCommandIsItsCodeAndParameters();
    void theErrorOfAnAnswerIsItsCode();

    void booleansAreOneAndTwo_data();
    void booleansAreOneAndTwo();

    void aGivenTransactionIdIsKept();
    void commandsOfTheSameMillisecondShareTheirId();
    void idsChangeWithTheClock();

    void addressesAreAddedUpPartByPart_data();
    void addressesAreAddedUpPartByPart();
    void addressesAreReadBackAsFourOctets_data();
    void addressesAreReadBackAsFourOctets();

    void sdSizesComeHighWordFirst();
};

void PacketTest::aDefaultPacketIsZeroButForItsLength() {
    const ClNuboCommand command;
    QCOMPARE(command.length(), 32U);
    QCOMPARE(
        command.getData(),
        wireBytes("0000 0000 20000000 0000 0000 00000000 00000000 00000000 00000000 00000000"));
}

void PacketTest::fieldsStandAtTheirPlaces() {
    const ClNuboCommand command(0x5037, 0x11121314, 0x21222324, 0x31323334, 0x41424344, 0x51525354,
                                0x6162, 0x7172, 0x81828384);
    QCOMPARE(
        command.getData(),
        wireBytes("7271 6261 84838281 3750 0000 14131211 24232221 34333231 44434241 54535251"));
}

void PacketTest::parsingTakesEveryFieldButTheReservedWord() {
    const ClNuboCommand command(wireBytes(
        "7271 6261 84838281 f5ff adde 14131211 24232221 34333231 44434241 54535251 ffff"));
    QCOMPARE(command.type(), 0x7172);
    QCOMPARE(command.id(), 0x6162);
    QCOMPARE(command.length(), 0x81828384U);
    QCOMPARE(command.code(), 0xFFF5);
    QCOMPARE(command.param(1), 0x11121314U);
    QCOMPARE(command.param(2), 0x21222324U);
    QCOMPARE(command.param(3), 0x31323334U);
    QCOMPARE(command.param(4), 0x41424344U);
    QCOMPARE(command.param(5), 0x51525354U);
    QCOMPARE(
        command.getData(),
        wireBytes("7271 6261 84838281 f5ff 0000 14131211 24232221 34333231 44434241 54535251"));
}

void PacketTest::bothWaysOfHandingOverBytesAgree() {
    const QByteArray bytes =
        wireBytes("0000 3412 20000000 0000 0000 01000000 02000000 03000000 04000000 05000000");
    const ClNuboCommand whole(bytes.constData(), static_cast<int>(bytes.size()));
    QCOMPARE(whole.getData(), bytes);
    const ClNuboCommand part(bytes.constData(), 16);
    QCOMPARE(part.param(1), 1U);
    QCOMPARE(part.param(2), 0U);
}

void PacketTest::aCommandIsItsCodeAndParameters_data() {
    QTest::addColumn<QByteArray>("built");
    QTest::addColumn<quint16>("id");
    QTest::addColumn<QByteArray>("packet");

    const auto row = [](const char* name, const ClNuboCommand& command, const QByteArray& packet) {
        QTest::newRow(name) << command.getData() << quint16{command.id()} << packet;
    };
    row("Wi-Fi information", ClNuboCommandGetWifiInfo(),
        "0000 <id> 20000000 0150 0000 00000000 00000000 00000000 00000000 00000000");
    row("access points", ClNuboCommandGetAccesspointList(),
        "0000 <id> 20000000 0250 0000 00000000 00000000 00000000 00000000 00000000");
    row("battery", ClNuboCommandGetBatteryState(),
        "0000 <id> 20000000 3750 0000 00000000 00000000 00000000 00000000 00000000");
    row("SD card", ClNuboCommandGetSdInfo(),
        "0000 <id> 20000000 3950 0000 00000000 00000000 00000000 00000000 00000000");
    row("restart", ClNuboCommandRestart(),
        "0000 <id> 20000000 0268 0000 00000000 00000000 00000000 00000000 00000000");
    row("format", ClNuboCommandFormatSd(),
        "0000 <id> 20000000 0368 0000 00000000 00000000 00000000 00000000 00000000");
    row("reset", ClNuboCommandInitSetting(),
        "0000 <id> 20000000 0468 0000 00000000 00000000 00000000 00000000 00000000");
    row("with a parameter", ClNuboCommand(0x5803, 0x01020304, 0, 0, 0, 0, 0, 0, 32),
        "0000 <id> 20000000 0358 0000 04030201 00000000 00000000 00000000 00000000");
    row("address", ClNuboCommandIpv4(QStringLiteral("192.168.0.1"), 0x5806),
        "0000 <id> 20000000 0658 0000 0100a8c0 00000000 00000000 00000000 00000000");
}

void PacketTest::aCommandIsItsCodeAndParameters() {
    QFETCH(QByteArray, built);
    QFETCH(quint16, id);
    QFETCH(QByteArray, packet);
    QCOMPARE(wireText(built), wireText(wireBytes(packet, id)));
}

void PacketTest::theErrorOfAnAnswerIsItsCode() {
    ClNuboCommand command;
    QCOMPARE(command.getError(), 0);
    command.setData(
        wireBytes("0000 3412 20000000 f9ff 0000 00000000 00000000 00000000 00000000 00000000"));
    QCOMPARE(command.getError(), 0xFFF9);
}

void PacketTest::booleansAreOneAndTwo_data() {
    QTest::addColumn<unsigned int>("value");
    QTest::addColumn<bool>("on");
    QTest::newRow("0") << 0U << false;
    QTest::newRow("1") << 1U << false;
    QTest::newRow("2") << 2U << true;
    QTest::newRow("3") << 3U << false;
    QTest::newRow("highest") << 0xFFFFFFFFU << false;
    QTest::newRow("2 in the low half") << 0x10002U << false;
}

void PacketTest::booleansAreOneAndTwo() {
    QFETCH(unsigned int, value);
    QFETCH(bool, on);
    const ClNuboCommand command;
    QCOMPARE(command.valueToBool(value), on);
    QCOMPARE(command.boolToValue(on), on ? 2U : 1U);
}

void PacketTest::aGivenTransactionIdIsKept() {
    const ClNuboCommand command(0x5037, 0, 0, 0, 0, 0, 0xFFFF, 0, 32);
    QCOMPARE(command.id(), 0xFFFF);
}

void PacketTest::commandsOfTheSameMillisecondShareTheirId() {
    constexpr int ATTEMPTS = 1000;
    for (int attempt = 0; attempt < ATTEMPTS; ++attempt) {
        const qint64 before = QDateTime::currentMSecsSinceEpoch();
        const ClNuboCommandGetBatteryState first;
        const ClNuboCommandFormatSd second;
        if (QDateTime::currentMSecsSinceEpoch() == before) {
            QCOMPARE(second.id(), first.id());
            return;
        }
    }
    QFAIL("The clock never stood still for two commands");
}

void PacketTest::idsChangeWithTheClock() {
    constexpr qint64 MILLISECONDS = 20;
    QSet<unsigned short> ids;
    const qint64 start = QDateTime::currentMSecsSinceEpoch();
    while (QDateTime::currentMSecsSinceEpoch() < start + MILLISECONDS) {
        ids.insert(ClNuboCommandGetBatteryState().id());
    }
    QVERIFY2(ids.size() > 1, "every command of 20 ms had the same id");
}

void PacketTest::addressesAreAddedUpPartByPart_data() {
    QTest::addColumn<QString>("address");
    QTest::addColumn<unsigned int>("packed");
    const auto row = [](const char* address, unsigned int packed) {
        QTest::newRow(address) << QString::fromLatin1(address) << packed;
    };
    row("192.168.0.1", 0xC0A80001);
    row("255.255.255.255", 0xFFFFFFFF);
    row("0.0.0.0", 0);
    row("10.0.0.256", 0x0A000100);
    row("10.0.256.0", 0x0A010000);
    row("300.0.0.0", 0x2C000000);
    row("255.255.255.256", 0x00000000);
    row("1.2.3.4.5", 0x06020304);
    row("1.2.3.4.0.16", 0x01120304);
    row("1.2", 0x01020000);
    row("..1...2.", 0x01020000);
    row("a.1.b.2", 0x00010002);
    row("-1.1.0x2.2", 0x00010002);
    row("camera", 0);
    row("", 0);
}

void PacketTest::addressesAreAddedUpPartByPart() {
    QFETCH(QString, address);
    QFETCH(unsigned int, packed);
    const ClNuboCommandIpv4 command(address, 0x5806);
    QCOMPARE(command.param(1), packed);
    QCOMPARE(command.code(), 0x5806);
}

void PacketTest::addressesAreReadBackAsFourOctets_data() {
    QTest::addColumn<QByteArray>("param1");
    QTest::addColumn<QString>("address");
    const auto row = [](const char* param1, const char* address) {
        QTest::newRow(address) << QByteArray(param1) << QString::fromLatin1(address);
    };
    row("0100a8c0", "192.168.0.1");
    row("ffffffff", "255.255.255.255");
    row("00000000", "0.0.0.0");
    row("0001000a", "10.0.1.0");
}

void PacketTest::addressesAreReadBackAsFourOctets() {
    QFETCH(QByteArray, param1);
    QFETCH(QString, address);
    ClNuboCommandIpv4 command(QString(), 0x5006);
    command.setData(
        wireBytes("0000 3412 20000000 0000 0000" + param1 + "00000000 00000000 00000000 00000000"));
    QCOMPARE(command.getAddress(), address);
}

void PacketTest::sdSizesComeHighWordFirst() {
    ClNuboCommandGetSdInfo command;
    command.setData(
        wireBytes("0000 3412 20000000 0000 0000 01000000 02000000 ffffffff 04000000 03000000"));
    QCOMPARE(command.getSdSize(), Q_UINT64_C(0x0000000100000002));
    QCOMPARE(command.getSdUsedSize(), Q_UINT64_C(0xFFFFFFFF00000004));
    QCOMPARE(command.param(5), 3U);
}

const TestSubject registered = subjectWithoutScreen<PacketTest>();
#include "PacketTest.moc"
