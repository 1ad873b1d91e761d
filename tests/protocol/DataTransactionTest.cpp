// SPDX-License-Identifier: MIT
#include "protocol/ClNuboTransactions.h"
#include "protocol/DataPackets.h"
#include "tests/protocol/WirePackets.h"
#include "tests/support/ScriptedPort.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

namespace {

const QByteArray SEND_IMAGE =
    "0000 <id> 20000000 0120 0000 04000000 00000000 00000000 00000000 00000000";
const QByteArray IMAGE = "0200 <id> 04000000 66697277";
const QByteArray REQUEST_PICTURE =
    "0000 <id> 20000000 0130 0000 00000000 00000000 00000000 00000000 00000000";
const QByteArray TEN_BYTES_COME =
    "0000 <id> 20000000 0000 0000 0a000000 00000000 00000000 00000000 00000000";
const QByteArray FIRST_FOUR = "0200 <id> 0a000000 04000000 61626364";

}  // namespace

/// The transactions with a data phase: a firmware image goes out, a picture comes in.
class DataTransactionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void commandAndDataAreWrittenAndAnswered();
    void bothWritesDecideWhetherItGoesOn_data();
    void bothWritesDecideWhetherItGoesOn();
    void aPacketAsLongAsACodeIsHighIsWritten_data();
    void aPacketAsLongAsACodeIsHighIsWritten();
    void theAnswerToDataIsAwaitedLikeAnyOther_data();
    void theAnswerToDataIsAwaitedLikeAnyOther();

    void dataIsCollectedUntilTheAnnouncedSize_data();
    void dataIsCollectedUntilTheAnnouncedSize();
    void aRefusedRequestMovesNoData_data();
    void aRefusedRequestMovesNoData();
};

void DataTransactionTest::commandAndDataAreWrittenAndAnswered() {
    ScriptedPort port({writes(SEND_IMAGE), writes(IMAGE), reads(DONE)});
    ClNuboCommand command(0x2001, 4, 0, 0, 0, 0, 0, 0, 32);
    const ClNuboCommandDataSend data(command.id(), "firw");
    QCOMPARE(ClNuboTransactions(port, port.stop()).dataWrite(command, data), 0);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(port.writeTimeouts(), (QList<int>{1000, 1000}));
    QCOMPARE(port.readTimeouts(), QList<int>{1000});
    for (const ScriptedPort::stTransfer& transfer : port.transfers()) {
        QCOMPARE(transfer.endpoint, 0xFF);
    }
}

void DataTransactionTest::bothWritesDecideWhetherItGoesOn_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    const auto row = [](const char* name, const Script& script, unsigned short result) {
        QTest::newRow(name) << script << result;
    };
    for (unsigned short code = 0xEF00; code <= 0xEF05; ++code) {
        QTest::addRow("command fails with %04X", code) << Script{writes(SEND_IMAGE, code)} << code;
        QTest::addRow("data fails with %04X", code)
            << Script{writes(SEND_IMAGE), writes(IMAGE, code)} << code;
    }
    row("command moves nothing", {writes(SEND_IMAGE, 0)}, 0);
    row("data moves nothing", {writes(SEND_IMAGE), writes(IMAGE, 0)}, 0);
    row("command not tried", {writes(SEND_IMAGE, -4)}, 0xEF05);
    row("data not tried", {writes(SEND_IMAGE), writes(IMAGE, -4)}, 0xEF05);
    row("command in part", {writes(SEND_IMAGE, 5), writes(IMAGE), reads(BUSY)}, 0xFFF9);
    row("data in part", {writes(SEND_IMAGE), writes(IMAGE, 5), reads(BUSY)}, 0xFFF9);
}

void DataTransactionTest::bothWritesDecideWhetherItGoesOn() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    ScriptedPort port(script);
    ClNuboCommand command(0x2001, 4, 0, 0, 0, 0, 0, 0, 32);
    const ClNuboCommandDataSend data(command.id(), "firw");
    QCOMPARE(ClNuboTransactions(port, port.stop()).dataWrite(command, data), result);
    QCOMPARE(port.complaint(), QString());
}

void DataTransactionTest::aPacketAsLongAsACodeIsHighIsWritten_data() {
    QTest::addColumn<int>("payload");
    QTest::addColumn<QByteArray>("count");
    QTest::addColumn<int>("written");
    QTest::addColumn<unsigned short>("result");
    const auto row = [](const char* name, int payload, const char* count, int written,
                        unsigned short result) {
        QTest::newRow(name) << payload << QByteArray(count) << written << result;
    };
    // The packet is 8 bytes longer than its payload.
    row("as high as the lowest code", 0xEEF8, "f8ee0000", 0xEF00, 0);
    row("as high as a time-out", 0xEEFB, "fbee0000", 0xEF03, 0);
    row("as high as the highest code", 0xEEFD, "fdee0000", 0xEF05, 0);
    row("longer, stopped by a time-out", 0xEEFC, "fcee0000", 0xEF03, 0xEF03);
    row("low half like a time-out", 0x1EEFB, "fbee0100", 0x1EF03, 0);
    row("in part, low half like a time-out", 0x1EEFC, "fcee0100", 0x1EF03, 0);
    row("in part, low half 0", 0xFFF9, "f9ff0000", 0x10000, 0);
}

void DataTransactionTest::aPacketAsLongAsACodeIsHighIsWritten() {
    QFETCH(int, payload);
    QFETCH(QByteArray, count);
    QFETCH(int, written);
    QFETCH(unsigned short, result);
    Script script{writes(SEND_IMAGE),
                  writes("0200 <id>" + count + QByteArray("66").repeated(payload), written)};
    if (result == 0) {
        script.append(reads(DONE));
    }
    ScriptedPort port(script);
    ClNuboCommand command(0x2001, 4, 0, 0, 0, 0, 0, 0, 32);
    const ClNuboCommandDataSend data(command.id(), QByteArray(payload, 'f'));
    QCOMPARE(ClNuboTransactions(port, port.stop()).dataWrite(command, data), result);
    QCOMPARE(port.complaint(), QString());
}

void DataTransactionTest::theAnswerToDataIsAwaitedLikeAnyOther_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    const auto row = [](const char* name, const Script& script, unsigned short result) {
        QTest::newRow(name) << script << result;
    };
    row("at the third read", {fails(0xEF03), fails(0xEF03), reads(DONE)}, 0);
    row("never", {fails(0xEF03), fails(0xEF03), fails(0xEF03)}, 0xEF03);
    row("behind a foreign packet", {reads(FOREIGN), reads(DONE)}, 0);
    row("refused", {reads(BUSY)}, 0xFFF9);
    row("gone", {fails(0xEF00)}, 0xEF00);
    row("not tried", {fails(-4), fails(-4), fails(-4)}, 0xEF05);
    row("stopped in a foreign packet", {reads(FOREIGN).thenStop()}, 0);
    row("stopped in silence", {fails(0xEF03).thenStop()}, 0xEF03);
}

void DataTransactionTest::theAnswerToDataIsAwaitedLikeAnyOther() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    const QList<int> timeouts(script.size(), 1000);
    script = Script{writes(SEND_IMAGE), writes(IMAGE)} + script;
    ScriptedPort port(script);
    ClNuboCommand command(0x2001, 4, 0, 0, 0, 0, 0, 0, 32);
    const ClNuboCommandDataSend data(command.id(), "firw");
    QCOMPARE(ClNuboTransactions(port, port.stop()).dataWrite(command, data), result);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(port.readTimeouts(), timeouts);
}

void DataTransactionTest::dataIsCollectedUntilTheAnnouncedSize_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    QTest::addColumn<QByteArray>("received");
    const auto row = [](const char* name, const Script& script, unsigned short result,
                        const QByteArray& received) {
        QTest::newRow(name) << script << result << received;
    };
    const stScriptRow announced = reads(TEN_BYTES_COME);
    const stScriptRow head = reads(FIRST_FOUR);
    const stScriptRow nothingAnnounced = reads(DONE);

    row("one packet", {announced, reads("0200 <id> 0a000000 0a000000 6162636465666768696a")}, 0,
        "abcdefghij");
    row("three packets", {announced, head, reads("656667"), reads("68696a")}, 0, "abcdefghij");
    row("continuation like a head", {announced, head, reads(FIRST_FOUR)}, 0,
        QByteArray("abcd\x02\0", 6) + QByteArray("<id>") +
            QByteArray("\x0a\0\0\0\4\0\0\0abcd", 12));
    row("too much at once",
        {announced, reads("0200 <id> 0a000000 0c000000 6162636465666768696a6b6c")}, 0,
        "abcdefghijkl");
    row("too much in the end", {announced, head, reads("65666768696a6b6c")}, 0, "abcdefghijkl");
    row("more than counted",
        {announced, reads("0200 <id> 0a000000 02000000 6162636465"), reads("6364656667"),
         reads("68696a")},
        0, "abcdefghij");
    row("fewer than counted",
        {announced, reads("0200 <id> 0a000000 0a000000 6162"), reads("636465666768696a")}, 0,
        "abcdefghij");
    row("no bytes in the head",
        {announced, reads("0200 <id> 0a000000 00000000"), reads("6162636465666768696a")}, 0,
        "abcdefghij");
    row("nothing announced", {nothingAnnounced, reads("0200 <id> 00000000 00000000")}, 0, "");
    row("nothing announced, something sent",
        {nothingAnnounced, reads("0200 <id> 00000000 02000000 6162")}, 0, "ab");
    row("nothing announced, nothing sent", {nothingAnnounced, fails(0xEF03)}, 0xEF03, "");
    row("foreign id in the head", {announced, reads("0200 <other> 0a000000 04000000 61626364")},
        0xEF04, "abcd");
    row("other size in the head", {announced, reads("0200 <id> 0b000000 04000000 61626364")},
        0xEF04, "abcd");
    row("head cut off", {announced, reads("0200 <id> 0a00")}, 0xEF04, "");
    row("silence at once", {announced, fails(0xEF03)}, 0xEF03, "");
    row("silence on the way", {announced, head, fails(0xEF03)}, 0xEF03, "abcd");
    row("busy on the way", {announced, head, fails(0xEF02)}, 0xEF02, "abcd");
    row("gone on the way", {announced, head, fails(0xEF00)}, 0xEF00, "abcd");
    row("not tried on the way", {announced, head, fails(-4)}, 0xEF05, "abcd");
    row("an empty packet on the way", {announced, head, readsNothing()}, 0xEF05, "abcd");
    row("an empty packet at once", {announced, readsNothing()}, 0xEF05, "");
    row("stopped in the answer", {announced.thenStop(), head}, 0, "abcd");
    row("stopped in the head", {announced, head.thenStop()}, 0, "abcd");
    row("stopped on the way", {announced, head, reads("6566").thenStop()}, 0, "abcdef");
    row("stopped by a wrong head",
        {announced, reads("0200 <id> 0b000000 04000000 61626364").thenStop()}, 0xEF04, "abcd");
}

void DataTransactionTest::dataIsCollectedUntilTheAnnouncedSize() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    QFETCH(QByteArray, received);
    QList<int> timeouts(script.size(), 1000);
    timeouts.first() = 3000;
    script.prepend(writes(REQUEST_PICTURE));
    ScriptedPort port(script);
    ClNuboCommand command(0x3001, 0, 0, 0, 0, 0, 0, 0, 32);
    ClNuboCommandDataReceive data;
    QCOMPARE(ClNuboTransactions(port, port.stop()).dataRead(command, data), result);
    QCOMPARE(port.complaint(), QString());
    const unsigned short id = command.id();
    received.replace(
        "<id>",
        QByteArray{}.append(static_cast<char>(id & 0xFF)).append(static_cast<char>(id >> 8)));
    QCOMPARE(data.receivedData(), received);
    QCOMPARE(port.readTimeouts(), timeouts);
}

void DataTransactionTest::aRefusedRequestMovesNoData_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    const auto row = [](const char* name, const Script& script, unsigned short result) {
        QTest::newRow(name) << script << result;
    };
    row("refused", {writes(REQUEST_PICTURE), reads(BUSY)}, 0xFFF9);
    row("silent", {writes(REQUEST_PICTURE), fails(0xEF03), fails(0xEF03), fails(0xEF03)}, 0xEF03);
    row("not written", {writes(REQUEST_PICTURE, 0xEF02)}, 0xEF02);
    row("gone", {writes(REQUEST_PICTURE), fails(0xEF00)}, 0xEF00);
}

void DataTransactionTest::aRefusedRequestMovesNoData() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    ScriptedPort port(script);
    ClNuboCommand command(0x3001, 0, 0, 0, 0, 0, 0, 0, 32);
    ClNuboCommandDataReceive data(0x1234, 3);
    QVERIFY(data.addDataFirst(wireBytes("0200 3412 03000000 03000000 616263")));
    QCOMPARE(ClNuboTransactions(port, port.stop()).dataRead(command, data), result);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(data.receivedData(), QByteArray("abc"));
}

const TestSubject registered = subjectWithoutScreen<DataTransactionTest>();
#include "DataTransactionTest.moc"
