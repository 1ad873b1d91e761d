// SPDX-License-Identifier: MIT
#include "protocol/DataPackets.h"
#include "protocol/TextPackets.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QFile>
#include <QTest>

namespace {

/// What a field reads as when only @p arrived bytes of its packet came and it ends at offset @p
/// end.
template <class Value>
Value ifArrived(qsizetype arrived, qsizetype end, Value value) {
    return arrived >= end ? value : Value{};
}

/// The most memory, in KiB, that this process has ever had mapped.
qint64 peakMemory() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (status.open(QIODevice::ReadOnly)) {
        for (const QByteArray& line : status.readAll().split('\n')) {
            if (line.startsWith("VmPeak:")) {
                return line.simplified().split(' ').value(1).toLongLong();
            }
        }
    }
    return -1;
}

}  // namespace

/// Packets that end too early: every class, cut off behind every byte, gives the fields that
/// arrived and zeroes for the rest; and a count that the camera declares buys no memory.
class ShortPacketTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void plainPackets_data() { cutBehindEveryByte(32); }
    void plainPackets();
    void addressPackets_data() { cutBehindEveryByte(32); }
    void addressPackets();
    void stringPackets_data() { cutBehindEveryByte(31); }
    void stringPackets();
    void recordPackets_data() { cutBehindEveryByte(29); }
    void recordPackets();
    void firstDataPackets_data() { cutBehindEveryByte(16); }
    void firstDataPackets();

    void aDeclaredLengthAllocatesNoMoreThanArrived();

private:
    static void cutBehindEveryByte(int length);
};

void ShortPacketTest::cutBehindEveryByte(int length) {
    QTest::addColumn<int>("arrived");
    for (int arrived = 0; arrived <= length; ++arrived) {
        QTest::addRow("%d bytes", arrived) << arrived;
    }
}

void ShortPacketTest::plainPackets() {
    QFETCH(int, arrived);
    const QByteArray packet =
        wireBytes("7271 6261 84838281 9291 0000 14131211 24232221 34333231 44434241 54535251");
    // Fields that do not arrive must become 0, so none of them is 0 before.
    ClNuboCommand command(0xFFFF, 1, 2, 3, 4, 5, 6, 7, 8);
    command.setData(packet.left(arrived));
    QCOMPARE(command.type(), ifArrived<unsigned short>(arrived, 2, 0x7172));
    QCOMPARE(command.id(), ifArrived<unsigned short>(arrived, 4, 0x6162));
    QCOMPARE(command.length(), ifArrived(arrived, 8, 0x81828384U));
    QCOMPARE(command.code(), ifArrived<unsigned short>(arrived, 10, 0x9192));
    QCOMPARE(command.param(1), ifArrived(arrived, 16, 0x11121314U));
    QCOMPARE(command.param(2), ifArrived(arrived, 20, 0x21222324U));
    QCOMPARE(command.param(3), ifArrived(arrived, 24, 0x31323334U));
    QCOMPARE(command.param(4), ifArrived(arrived, 28, 0x41424344U));
    QCOMPARE(command.param(5), ifArrived(arrived, 32, 0x51525354U));
}

void ShortPacketTest::addressPackets() {
    QFETCH(int, arrived);
    const QByteArray packet =
        wireBytes("0000 3412 20000000 0000 0000 0100a8c0 00000000 00000000 00000000 00000000");
    ClNuboCommandIpv4 command(QStringLiteral("10.0.0.1"), 0x5006);
    command.setData(packet.left(arrived));
    QCOMPARE(command.getAddress(),
             arrived >= 16 ? QStringLiteral("192.168.0.1") : QStringLiteral("0.0.0.0"));
}

void ShortPacketTest::stringPackets() {
    QFETCH(int, arrived);
    const QByteArray packet =
        wireBytes("0000 3412 1f000000 fbff 0000 03000000 616263 07000000 08000000 09000000");
    ClNuboCommandString command(QStringLiteral("before"), 0x5030);
    command.setData(packet.left(arrived));
    QCOMPARE(command.id(), ifArrived<unsigned short>(arrived, 4, 0x1234));
    QCOMPARE(command.length(), ifArrived(arrived, 8, 31U));
    QCOMPARE(command.getError(), ifArrived<unsigned short>(arrived, 10, 0xFFFB));
    QCOMPARE(command.param(1), ifArrived(arrived, 16, 3U));
    QCOMPARE(command.string(), QStringLiteral("abc").left(qMax(0, arrived - 16)));
    QCOMPARE(command.param(3), ifArrived(arrived, 23, 7U));
    QCOMPARE(command.param(4), ifArrived(arrived, 27, 8U));
    QCOMPARE(command.param(5), ifArrived(arrived, 31, 9U));
}

void ShortPacketTest::recordPackets() {
    QFETCH(int, arrived);
    const QByteArray packet =
        wireBytes("0000 3412 1d000000 0000 0000 07000000 03000000 6e6574 02000000 6162");
    const ClNuboCommandWifiInfo1 record(packet.left(arrived));
    QCOMPARE(record.id(), ifArrived<unsigned short>(arrived, 4, 0x1234));
    QCOMPARE(record.param(1), ifArrived(arrived, 16, 7U));
    QCOMPARE(record.firstString(), QStringLiteral("net").left(qMax(0, arrived - 20)));
    QCOMPARE(record.secondString(), QStringLiteral("ab").left(qMax(0, arrived - 27)));
}

void ShortPacketTest::firstDataPackets() {
    QFETCH(int, arrived);
    const QByteArray packet = wireBytes("0200 3412 0a000000 04000000 61626364");
    ClNuboCommandDataReceive data(0x1234, 10);
    QCOMPARE(data.addData(packet.left(arrived)), arrived >= 8);
    QCOMPARE(data.receivedData(), QByteArray("abcd").left(qMax(0, arrived - 12)));
}

void ShortPacketTest::aDeclaredLengthAllocatesNoMoreThanArrived() {
    constexpr qint64 FAR_LESS_THAN_DECLARED_KIB = 256 * 1024;
    constexpr qsizetype HANDFUL = 64;
    const qint64 before = peakMemory();
    QVERIFY(before > 0);

    ClNuboCommandString string(QString(), 0x5030);
    string.setData(wireBytes("0000 3412 1f000000 0000 0000 ffffffff 616263"));
    QCOMPARE(string.string(), QStringLiteral("abc"));
    QVERIFY(string.string().capacity() < HANDFUL);
    QCOMPARE(string.param(1), 0xFFFFFFFFU);

    const ClNuboCommandAccesspointInfo1 first(
        wireBytes("0000 3412 1d000000 0000 0000 01000000 ffffffff 616263"));
    QCOMPARE(first.firstString(), QStringLiteral("abc"));
    QVERIFY(first.firstString().capacity() < HANDFUL);

    const ClNuboCommandAccesspointInfo1 second(
        wireBytes("0000 3412 1d000000 0000 0000 01000000 00000000 ffffffff 616263"));
    QCOMPARE(second.secondString(), QStringLiteral("abc"));
    QVERIFY(second.secondString().capacity() < HANDFUL);

    ClNuboCommandDataReceive data(0x1234, 0xFFFFFFFF);
    QVERIFY(data.addData(wireBytes("0200 3412 ffffffff ffffffff 616263")));
    QCOMPARE(data.receivedData(), QByteArray("abc"));
    QVERIFY(data.receivedData().capacity() < HANDFUL);
    QVERIFY(data.isIncomplete());

    QVERIFY(peakMemory() - before < FAR_LESS_THAN_DECLARED_KIB);
}

const TestSubject registered = subjectWithoutScreen<ShortPacketTest>();
#include "ShortPacketTest.moc"
