// SPDX-License-Identifier: MIT
#include "protocol/ClBulkPort.h"
#include "protocol/ClNuboTransactions.h"
#include "tests/protocol/WirePackets.h"
#include "tests/support/ScriptedPort.h"
#include "tests/support/TestSubject.h"

#include <QTest>

namespace {

const QByteArray ONE_COMES =
    "0000 <id> 20000000 0000 0000 01000000 00000000 00000000 00000000 00000000";
const QByteArray TWO_COME =
    "0000 <id> 20000000 0000 0000 02000000 00000000 00000000 00000000 00000000";
const QByteArray MORE_THAN_THERE_ARE =
    "0000 <id> 20000000 0000 0000 ffffffff 00000000 00000000 00000000 00000000";

const QByteArray TEXTS_1 = "0000 <id> 1d000000 0000 0000 01000000 03000000 6e6574 02000000 6162";
const QByteArray VALUES_1 =
    "0000 <id> 20000000 0000 0000 01000000 05000000 04000000 06000000 c4ffffff";
const QByteArray TEXTS_2 = "0000 <id> 1a000000 0000 0000 02000000 02000000 6170 00000000";
const QByteArray VALUES_2 =
    "0000 <id> 20000000 0000 0000 02000000 07000000 00000000 08000000 1e000000";

stAccesspointInfo accesspoint1() {
    return {QStringLiteral("net"), QStringLiteral("ab"), 5, 4, 6, 0xFFFFFFC4};
}

stAccesspointInfo accesspoint2() {
    return {QStringLiteral("ap"), QString(), 7, 0, 8, 30};
}

/// What the list holds before each scan.
stAccesspointInfo listed() {
    return {QStringLiteral("before"), QStringLiteral("too"), 71, 72, 73, 74};
}

/// A camera that announces as many access points as can be, and never runs out of them.
class EndlessPort : public ClBulkPort {
public:
    int write(const QByteArray& data, int /*timeoutMs*/, unsigned char /*endpoint*/) override {
        m_id = data.mid(2, 2);
        return static_cast<int>(data.size());
    }

    QByteArray read(int /*timeoutMs*/, unsigned char /*endpoint*/, int* /*status*/) override {
        const int number = (m_reads + 1) / 2;
        const QByteArray announced = m_reads++ == 0
                                         ? QByteArray(4, '\xff')
                                         : QByteArray(1, static_cast<char>(number)) +
                                               QByteArray(1, static_cast<char>(number / 256)) +
                                               QByteArray(2, '\0');
        return QByteArray(2, '\0') + m_id + QByteArray(8, '\0') + announced + QByteArray(16, '\0');
    }

private:
    QByteArray m_id;
    int m_reads = 0;
};

}  // namespace

/// The scan for access points: an answer with their number and two packets for each.
class AccesspointTransactionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readsWaitOneSecondEach();
    void whatIsFoundIsAppended_data();
    void whatIsFoundIsAppended();
    void aFailureKeepsWhatWasFoundBefore_data();
    void aFailureKeepsWhatWasFoundBefore();
    void theStopFlagEndsTheScan_data();
    void theStopFlagEndsTheScan();
    void aScanWithoutEndEnds();

private:
    static void runAndCompare();
    static void addColumns();
    static void row(const char* name, const Script& packets, unsigned short result,
                    const AccesspointList& found);
};

void AccesspointTransactionTest::addColumns() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    QTest::addColumn<AccesspointList>("found");
}

void AccesspointTransactionTest::row(const char* name, const Script& packets, unsigned short result,
                                     const AccesspointList& found) {
    QTest::newRow(name) << Script{writes(GET_ACCESSPOINTS)} + packets << result << found;
}

void AccesspointTransactionTest::runAndCompare() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    QFETCH(AccesspointList, found);
    ScriptedPort port(script);
    AccesspointList list{listed()};
    QCOMPARE(ClNuboTransactions(port, port.stop()).accesspointList(list), result);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(list, AccesspointList{listed()} + found);
}

void AccesspointTransactionTest::readsWaitOneSecondEach() {
    ScriptedPort port({writes(GET_ACCESSPOINTS), reads(ONE_COMES), fails(0xEF03), reads(TEXTS_1),
                       fails(0xEF03), reads(VALUES_1)});
    AccesspointList list;
    QCOMPARE(ClNuboTransactions(port, port.stop()).accesspointList(list), 0);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(port.writeTimeouts(), QList<int>{1000});
    QCOMPARE(port.readTimeouts(), QList<int>(5, 1000));
    for (const ScriptedPort::stTransfer& transfer : port.transfers()) {
        QCOMPARE(transfer.endpoint, 0xFF);
    }
}

void AccesspointTransactionTest::whatIsFoundIsAppended_data() {
    addColumns();
    const stAccesspointInfo first = accesspoint1();
    const stAccesspointInfo second = accesspoint2();
    stAccesspointInfo textsMissed = second;
    textsMissed.ssid = first.ssid;
    textsMissed.secondText = first.secondText;
    stAccesspointInfo neverNamed = first;
    neverNamed.ssid.clear();
    neverNamed.secondText.clear();

    row("none", {reads(DONE)}, 0, {});
    row("one", {reads(ONE_COMES), reads(TEXTS_1), reads(VALUES_1)}, 0, {first});
    row("two", {reads(TWO_COME), reads(TEXTS_1), reads(VALUES_1), reads(TEXTS_2), reads(VALUES_2)},
        0, {first, second});
    row("foreign packets skipped",
        {reads(ONE_COMES), reads(FOREIGN), reads(TEXTS_1), reads(FOREIGN), reads(VALUES_1)}, 0,
        {first});
    row("refused packets skipped",
        {reads(ONE_COMES), reads(BUSY), reads(BUSY), reads(TEXTS_1), reads(BUSY), reads(VALUES_1)},
        0, {first});
    row("values of a wrong number consumed", {reads(ONE_COMES), reads(TEXTS_1), reads(VALUES_2)}, 0,
        {});
    row("texts of a wrong number consumed", {reads(ONE_COMES), reads(TEXTS_2), reads(VALUES_1)}, 0,
        {neverNamed});
    row("texts of a wrong number keep the texts before",
        {reads(TWO_COME), reads(TEXTS_1), reads(VALUES_1), reads(TEXTS_1), reads(VALUES_2)}, 0,
        {first, textsMissed});
    row("the second one twice",
        {reads(TWO_COME), reads(TEXTS_2), reads(VALUES_2), reads(TEXTS_2), reads(VALUES_2)}, 0,
        {second});
    row("texts of no bytes", {reads(ONE_COMES), reads("0000 <id>"), reads(VALUES_1)}, 0,
        {neverNamed});
    row("values cut off",
        {reads(ONE_COMES), reads(TEXTS_1),
         reads("0000 <id> 20000000 0000 0000 01000000 05000000 0400")},
        0, {{first.ssid, first.secondText, 5, 0, 0, 0}});
}

void AccesspointTransactionTest::whatIsFoundIsAppended() {
    runAndCompare();
}

void AccesspointTransactionTest::aFailureKeepsWhatWasFoundBefore_data() {
    addColumns();
    const stAccesspointInfo first = accesspoint1();
    const stScriptRow silent = fails(0xEF03);

    row("refused", {reads(BUSY)}, 0xFFF9, {});
    row("not answered", {silent, silent, silent}, 0xEF03, {});
    row("gone", {fails(0xEF00)}, 0xEF00, {});
    row("no texts", {reads(ONE_COMES), silent, silent, silent}, 0xEF03, {});
    row("no values", {reads(ONE_COMES), reads(TEXTS_1), silent, silent, silent}, 0xEF03, {});
    row("not tried", {reads(ONE_COMES), fails(-4), fails(-4), fails(-4)}, 0xEF05, {});
    row("empty packets", {reads(ONE_COMES), readsNothing(), readsNothing(), readsNothing()}, 0xEF05,
        {});
    row("gone behind the first", {reads(TWO_COME), reads(TEXTS_1), reads(VALUES_1), fails(0xEF00)},
        0xEF00, {first});
    row("busy behind the first",
        {reads(TWO_COME), reads(TEXTS_1), reads(VALUES_1), silent, silent, fails(0xEF02)}, 0xEF02,
        {first});
    row("fewer than announced",
        {reads(MORE_THAN_THERE_ARE), reads(TEXTS_1), reads(VALUES_1), silent, silent, silent},
        0xEF03, {first});
}

void AccesspointTransactionTest::aFailureKeepsWhatWasFoundBefore() {
    runAndCompare();
}

void AccesspointTransactionTest::theStopFlagEndsTheScan_data() {
    addColumns();
    const stAccesspointInfo first = accesspoint1();
    const stScriptRow silent = fails(0xEF03);

    row("in the answer", {reads(TWO_COME).thenStop()}, 0, {});
    row("in a foreign answer", {reads(FOREIGN).thenStop()}, 0, {});
    row("in silence", {reads(TWO_COME), silent.thenStop()}, 0xEF03, {});
    row("in a foreign packet", {reads(TWO_COME), reads(FOREIGN).thenStop()}, 0, {});
    row("in a refused packet", {reads(TWO_COME), reads(BUSY).thenStop()}, 0, {});
    row("in the texts", {reads(TWO_COME), reads(TEXTS_1).thenStop()}, 0, {});
    row("in the values", {reads(TWO_COME), reads(TEXTS_1), reads(VALUES_1).thenStop()}, 0, {first});
}

void AccesspointTransactionTest::theStopFlagEndsTheScan() {
    runAndCompare();
}

void AccesspointTransactionTest::aScanWithoutEndEnds() {
    EndlessPort port;
    const std::atomic<bool> isStopped = false;
    AccesspointList list;
    QCOMPARE(ClNuboTransactions(port, isStopped).accesspointList(list), 0);
    QCOMPARE(list.size(), 1000);
}

const TestSubject registered = subjectWithoutScreen<AccesspointTransactionTest>();
#include "AccesspointTransactionTest.moc"
