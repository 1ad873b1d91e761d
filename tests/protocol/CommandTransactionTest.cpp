// SPDX-License-Identifier: MIT
#include "protocol/ClNuboTransactions.h"
#include "protocol/NuboCommands.h"
#include "protocol/TextPackets.h"
#include "tests/protocol/WirePackets.h"
#include "tests/support/ScriptedPort.h"
#include "tests/support/TestSubject.h"

#include <QTest>

namespace {

constexpr int TIMEOUT_MS = 700;
const QByteArray ANSWER =
    "0000 <id> 20000000 0000 0000 02000000 4b000000 00000000 00000000 00000000";
const QByteArray FIRST_FIVE_BYTES_OF_BUSY = "0000 <id> 20";

class ClCommandWithoutBytes : public ClNuboCommand {
public:
    [[nodiscard]] QByteArray getData() const override { return {}; }
};

/// By the clock of the port.
unsigned short transact(ScriptedPort& port, ClNuboCommand& command) {
    return ClNuboTransactions(port, port.stop(), port.clock()).command(command, TIMEOUT_MS);
}

}  // namespace

/// The simplest transaction: one command written, one answer read. Its wait for the answer is the
/// one of every other transaction.
class CommandTransactionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theAnswerIsParsedIntoTheCommand();
    void aStringAnswerIsParsedWithItsTail();
    void theWriteDecidesWhetherAnAnswerIsRead_data();
    void theWriteDecidesWhetherAnAnswerIsRead();
    void aCommandWithoutBytesIsNotWritten();
    void anAnswerCutShortFailsWhereItIsWanted_data();
    void anAnswerCutShortFailsWhereItIsWanted();

    void threeReadsWaitForTheAnswer_data();
    void threeReadsWaitForTheAnswer();
    void slowSilenceKeepsTheFullTimeout();
    void everyErrorOfTheCameraIsTheResult_data();
    void everyErrorOfTheCameraIsTheResult();

    void aForeignPacketStartsTheWaitAgain_data();
    void aForeignPacketStartsTheWaitAgain();
    void anAnswerSoonAfterALateForeignPacketIsRead_data();
    void anAnswerSoonAfterALateForeignPacketIsRead();
    void foreignPacketsCannotHoldTheThreadForEver();
    void aForeignPacketNowAndThenHoldsTheThreadForNineTimeoutsAtMost();

    void theStopFlagEndsTheWait_data();
    void theStopFlagEndsTheWait();
};

void CommandTransactionTest::theAnswerIsParsedIntoTheCommand() {
    ScriptedPort port({writes(GET_BATTERY), reads(ANSWER)});
    ClNuboCommandGetBatteryState command;
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), 0);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(command.param(1), 2U);
    QCOMPARE(command.param(2), 75U);
    QCOMPARE(command.getError(), 0);
    QCOMPARE(port.writeTimeouts(), QList<int>{1000});
    QCOMPARE(port.readTimeouts(), QList<int>{TIMEOUT_MS});
    for (const ScriptedPort::stTransfer& transfer : port.transfers()) {
        QCOMPARE(transfer.endpoint, 0xFF);
    }
}

void CommandTransactionTest::aStringAnswerIsParsedWithItsTail() {
    ScriptedPort port(
        {writes("0000 <id> 20000000 3050 0000 00000000 00000000 00000000 00000000 00000000"),
         reads("0000 <id> 20000000 0000 0000 04000000 6e75626f 01000000 02000000 03000000")});
    ClNuboCommandString command(QString(), 0x5030);
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), 0);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(command.string(), QStringLiteral("nubo"));
    QCOMPARE(command.param(5), 3U);
}

void CommandTransactionTest::theWriteDecidesWhetherAnAnswerIsRead_data() {
    QTest::addColumn<int>("written");
    QTest::addColumn<unsigned short>("result");
    QTest::addColumn<bool>("isAnswerRead");
    const auto row = [](const char* name, int written, unsigned short result, bool isAnswerRead) {
        QTest::newRow(name) << written << result << isAnswerRead;
    };
    row("whole packet", 32, 0, true);
    row("part of the packet", 31, 0, true);
    row("one byte", 1, 0, true);
    row("no byte", 0, 0, false);
    row("below the transport codes", 0xEEFF, 0, true);
    row("no device", 0xEF00, 0xEF00, false);
    row("bad parameter", 0xEF01, 0xEF01, false);
    row("busy", 0xEF02, 0xEF02, false);
    row("time-out", 0xEF03, 0xEF03, false);
    row("wrong data", 0xEF04, 0xEF04, false);
    row("other", 0xEF05, 0xEF05, false);
    row("above the transport codes", 0xEF06, 0, true);
    row("not tried", -4, 0xEF05, false);
    row("any negative", -1, 0xEF05, false);
}

void CommandTransactionTest::theWriteDecidesWhetherAnAnswerIsRead() {
    QFETCH(int, written);
    QFETCH(unsigned short, result);
    QFETCH(bool, isAnswerRead);
    Script script{writes(GET_BATTERY, written)};
    if (isAnswerRead) {
        script.append(reads(ANSWER));
    }
    ScriptedPort port(script);
    ClNuboCommandGetBatteryState command;
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), result);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(command.param(2), isAnswerRead ? 75U : 0U);
}

void CommandTransactionTest::aCommandWithoutBytesIsNotWritten() {
    ScriptedPort port({});
    ClCommandWithoutBytes command;
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), 0xEF01);
    QCOMPARE(port.complaint(), QString());
    QVERIFY(port.transfers().isEmpty());
}

void CommandTransactionTest::anAnswerCutShortFailsWhereItIsWanted_data() {
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<unsigned short>("result");
    const auto row = [](const char* name, const QByteArray& answer, unsigned short result) {
        QTest::newRow(name) << answer << result;
    };
    row("whole", ANSWER, 0);
    row("whole, of a text", "0000 <id> 1d000000 0000 0000 01000000 6e 01000000 02000000 03000000",
        0);
    row("longer than it says", ANSWER + " a5a5", 0);
    row("cut in the last value", ANSWER.chopped(2), 0xEF04);
    row("cut in the text", "0000 <id> 1f000000 0000 0000 03000000 6e75", 0xEF04);
    row("head alone", "0000 <id> 20000000 0000 0000", 0xEF04);
    row("head alone, and says so", "0000 <id> 0c000000 0000 0000", 0);
    row("cut in the head", "0000 <id> 00000000 00", 0xEF04);
    row("cut in the length", "0000 <id> 20", 0xEF04);
    row("cut, of a camera that is busy", "0000 <id> 20000000 f9ff", 0xEF04);
}

void CommandTransactionTest::anAnswerCutShortFailsWhereItIsWanted() {
    QFETCH(const QByteArray, answer);
    QFETCH(const unsigned short, result);
    ScriptedPort port({writes(GET_BATTERY), reads(answer)});
    ClNuboCommandGetBatteryState command;
    ClNuboTransactions transactions(port, port.stop(), ClNuboTransactions::CutAnswers::Fail);
    QCOMPARE(transactions.command(command, TIMEOUT_MS), result);
    QCOMPARE(port.complaint(), QString());
}

void CommandTransactionTest::threeReadsWaitForTheAnswer_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    QTest::addColumn<int>("reads");
    const auto row = [](const char* name, const Script& script, unsigned short result) {
        QTest::newRow(name) << script << result << static_cast<int>(script.size());
    };
    row("answer at once", {reads(ANSWER)}, 0);
    row("answer at the second", {fails(0xEF03), reads(ANSWER)}, 0);
    row("answer at the third", {fails(0xEF03), fails(0xEF05), reads(ANSWER)}, 0);
    row("three time-outs", {fails(0xEF03), fails(0xEF03), fails(0xEF03)}, 0xEF03);
    row("the last of three counts", {fails(0xEF05), fails(0xEF03), fails(0xEF02)}, 0xEF02);
    row("busy, then time-outs", {fails(0xEF02), fails(0xEF03), fails(0xEF03)}, 0xEF03);
    row("empty packets", {readsNothing(), readsNothing(), readsNothing()}, 0xEF05);
    row("an empty packet last", {fails(0xEF03), fails(0xEF03), readsNothing()}, 0xEF05);
    row("an empty packet first", {readsNothing(), fails(0xEF03), fails(0xEF03)}, 0xEF03);
    row("nothing could be tried", {fails(-4), fails(-4), fails(-4)}, 0xEF05);
    row("gone at the first", {fails(0xEF00)}, 0xEF00);
    row("gone at the second", {fails(0xEF03), fails(0xEF00)}, 0xEF00);
    row("gone at the third", {fails(0xEF03), fails(0xEF03), fails(0xEF00)}, 0xEF00);
    row("refused late", {fails(0xEF03), reads(BUSY)}, 0xFFF9);
    row("cut off before the code", {reads(FIRST_FIVE_BYTES_OF_BUSY)}, 0);
}

void CommandTransactionTest::threeReadsWaitForTheAnswer() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    QFETCH(int, reads);
    script.prepend(writes(GET_BATTERY));
    ScriptedPort port(script);
    ClNuboCommandGetBatteryState command;
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), result);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(port.readTimeouts(), QList<int>(reads, TIMEOUT_MS));
}

void CommandTransactionTest::slowSilenceKeepsTheFullTimeout() {
    const stScriptRow silent = fails(0xEF03).after(2 * TIMEOUT_MS);
    ScriptedPort port({writes(GET_BATTERY), silent, silent, silent});
    ClNuboCommandGetBatteryState command;
    QCOMPARE(transact(port, command), 0xEF03);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(port.readTimeouts(), QList<int>(3, TIMEOUT_MS));
}

void CommandTransactionTest::everyErrorOfTheCameraIsTheResult_data() {
    QTest::addColumn<QByteArray>("code");
    QTest::addColumn<unsigned short>("result");
    constexpr int LOWEST = 0xF5;
    for (int low = LOWEST; low <= 0xFF; ++low) {
        const QByteArray code = QByteArray::number(low, 16) + "ff";
        QTest::newRow(code.constData()) << code << static_cast<unsigned short>(0xFF00 + low);
    }
    QTest::newRow("unlisted") << QByteArray("0100") << static_cast<unsigned short>(1);
    QTest::newRow("like a time-out") << QByteArray("03ef") << static_cast<unsigned short>(0xEF03);
}

void CommandTransactionTest::everyErrorOfTheCameraIsTheResult() {
    QFETCH(QByteArray, code);
    QFETCH(unsigned short, result);
    ScriptedPort port(
        {writes(GET_BATTERY),
         reads("0000 <id> 20000000" + code + "0000 07000000 00000000 00000000 00000000 00000000")});
    ClNuboCommandGetBatteryState command;
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), result);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(command.getError(), result);
    QCOMPARE(command.param(1), 7U);
}

void CommandTransactionTest::aForeignPacketStartsTheWaitAgain_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    const auto row = [](const char* name, const Script& script, unsigned short result) {
        QTest::newRow(name) << script << result;
    };
    row("one", {reads(FOREIGN), reads(ANSWER)}, 0);
    row("two", {reads(FOREIGN), reads(FOREIGN), reads(ANSWER)}, 0);
    row("cut off before the id", {reads("00 00"), reads(ANSWER)}, 0);
    row("three more reads behind it",
        {fails(0xEF03), fails(0xEF03), reads(FOREIGN), fails(0xEF03), fails(0xEF03), reads(ANSWER)},
        0);
    row("then silence", {reads(FOREIGN), fails(0xEF03), fails(0xEF02), fails(0xEF03)}, 0xEF03);
    row("then empty packets",
        {fails(0xEF03), reads(FOREIGN), readsNothing(), readsNothing(), readsNothing()}, 0xEF05);
    row("then gone", {reads(FOREIGN), fails(0xEF00)}, 0xEF00);
    row("then refused", {reads(FOREIGN), reads(BUSY)}, 0xFFF9);
}

void CommandTransactionTest::aForeignPacketStartsTheWaitAgain() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    script.prepend(writes(GET_BATTERY));
    ScriptedPort port(script);
    ClNuboCommandGetBatteryState command;
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), result);
    QCOMPARE(port.complaint(), QString());
    QVERIFY(command.param(1) != 0x99999999U);
}

void CommandTransactionTest::anAnswerSoonAfterALateForeignPacketIsRead_data() {
    QTest::addColumn<Script>("beforehand");
    const stScriptRow silent = fails(0xEF03);
    const stScriptRow late = reads(FOREIGN).after(TIMEOUT_MS - 1);
    QTest::newRow("a late one") << Script{silent, silent, late};
    QTest::newRow("and another") << Script{silent, silent, late, silent, silent, late};
    QTest::newRow("and silence") << Script{silent, silent, late, silent, silent};
    QTest::newRow("many") << Script{silent, late, silent, late, silent, silent};
}

void CommandTransactionTest::anAnswerSoonAfterALateForeignPacketIsRead() {
    QFETCH(const Script, beforehand);
    ScriptedPort port(Script{writes(GET_BATTERY)} + beforehand + Script{reads(ANSWER).after(150)});
    ClNuboCommandGetBatteryState command;
    QCOMPARE(transact(port, command), 0);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(command.param(2), 75U);
    QCOMPARE(port.readTimeouts(), QList<int>(beforehand.size() + 1, TIMEOUT_MS));
}

void CommandTransactionTest::foreignPacketsCannotHoldTheThreadForEver() {
    constexpr int PACE_MS = 50;
    ScriptedPort port({writes(GET_BATTERY), reads(FOREIGN).forEver(PACE_MS)});
    ClNuboCommandGetBatteryState command;
    QCOMPARE(transact(port, command), 0xEF03);
    QCOMPARE_GT(port.elapsed().count(), 3 * TIMEOUT_MS);
    QCOMPARE_LE(port.elapsed().count(), 3 * TIMEOUT_MS + 2 * PACE_MS);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(command.param(1), 0U);
}

void CommandTransactionTest::aForeignPacketNowAndThenHoldsTheThreadForNineTimeoutsAtMost() {
    const stScriptRow silent = fails(0xEF03);
    const stScriptRow late = reads(FOREIGN).after(TIMEOUT_MS - 1);
    ScriptedPort port(
        {writes(GET_BATTERY), silent, silent, late, silent, silent, late, silent, silent, late});
    ClNuboCommandGetBatteryState command;
    QCOMPARE(transact(port, command), 0xEF03);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE_LE(port.elapsed().count(), 9 * TIMEOUT_MS);
}

void CommandTransactionTest::theStopFlagEndsTheWait_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    const auto row = [](const char* name, const Script& script, unsigned short result) {
        QTest::newRow(name) << script << result;
    };
    row("before the first read", {writes(GET_BATTERY).thenStop()}, 0xEF05);
    row("in a silent read", {writes(GET_BATTERY), fails(0xEF03).thenStop()}, 0xEF03);
    row("in the second silent read", {writes(GET_BATTERY), fails(0xEF03), fails(0xEF02).thenStop()},
        0xEF02);
    row("in a foreign packet", {writes(GET_BATTERY), reads(FOREIGN).thenStop()}, 0);
    row("in the answer", {writes(GET_BATTERY), reads(BUSY).thenStop()}, 0xFFF9);
}

void CommandTransactionTest::theStopFlagEndsTheWait() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    ScriptedPort port(script);
    ClNuboCommandGetBatteryState command;
    QCOMPARE(ClNuboTransactions(port, port.stop()).command(command, TIMEOUT_MS), result);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(command.param(1), 0U);
}

const TestSubject registered = subjectWithoutScreen<CommandTransactionTest>();
#include "CommandTransactionTest.moc"
