// SPDX-License-Identifier: MIT
#include "protocol/ClNuboTransactions.h"
#include "tests/protocol/WirePackets.h"
#include "tests/support/ScriptedPort.h"
#include "tests/support/TestSubject.h"

#include <QTest>

namespace {

using namespace std::chrono_literals;

const QByteArray LINKED =
    "0000 <id> 20000000 0000 0000 02000000 00000000 00000000 00000000 00000000";
const QByteArray TEXTS = "0000 <id> 1d000000 0000 0000 01000000 03000000 6e6574 02000000 6162";
const QByteArray VALUES =
    "0000 <id> 20000000 0000 0000 02000000 06000000 04000000 09000000 c4ffffff";
const QByteArray FOREIGN_TEXTS =
    "0000 <other> 1d000000 0000 0000 01000000 03000000 626164 02000000 6162";
const QByteArray REFUSED_TEXTS =
    "0000 <id> 1d000000 f9ff 0000 01000000 03000000 626164 02000000 6162";

/// Something that no conversation of this page leads to.
stWifiInfo untouched() {
    return {77, QStringLiteral("before"), QStringLiteral("too"), 71, 72, 73, 74};
}

}  // namespace

/// The read of the Wi-Fi information: an answer and two more packets.
class WifiInfoTransactionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void sevenFieldsComeFromThreePackets();
    void onlyTwoPacketsOfTheTransactionCount_data();
    void onlyTwoPacketsOfTheTransactionCount();
    void onlyTheStatusComesBeforeTheRest_data();
    void onlyTheStatusComesBeforeTheRest();
    void packetsThatAreSkippedCannotHoldTheThreadForEver();
};

void WifiInfoTransactionTest::sevenFieldsComeFromThreePackets() {
    ScriptedPort port({writes(GET_WIFI_INFO), reads(LINKED), reads(TEXTS), reads(VALUES)});
    stWifiInfo info = untouched();
    QCOMPARE(ClNuboTransactions(port, port.stop()).wifiInfo(info), 0);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(info.status, 2U);
    QCOMPARE(info.linkedSsid, QStringLiteral("net"));
    QCOMPARE(info.searchSsid, QStringLiteral("ab"));
    QCOMPARE(info.channel, 6U);
    QCOMPARE(info.encryption, 4U);
    QCOMPARE(info.reserved, 9);
    QCOMPARE(info.signal, -60);
    QCOMPARE(port.writeTimeouts(), QList<int>{1000});
    QCOMPARE(port.readTimeouts(), (QList<int>{3000, 1000, 1000}));
    for (const ScriptedPort::stTransfer& transfer : port.transfers()) {
        QCOMPARE(transfer.endpoint, 0xFF);
    }
}

void WifiInfoTransactionTest::onlyTwoPacketsOfTheTransactionCount_data() {
    QTest::addColumn<Script>("packets");
    QTest::newRow("foreign texts") << Script{reads(FOREIGN_TEXTS), reads(TEXTS), reads(VALUES)};
    QTest::newRow("foreign values") << Script{reads(TEXTS), reads(FOREIGN), reads(VALUES)};
    QTest::newRow("refused texts") << Script{reads(REFUSED_TEXTS), reads(TEXTS), reads(VALUES)};
    QTest::newRow("refused values") << Script{reads(TEXTS), reads(BUSY), reads(VALUES)};
    QTest::newRow("many of both") << Script{reads(FOREIGN), reads(BUSY),  reads(FOREIGN),
                                            reads(TEXTS),   reads(BUSY),  reads(FOREIGN),
                                            reads(BUSY),    reads(VALUES)};
    QTest::newRow("after silence") << Script{fails(0xEF03), fails(0xEF03), reads(TEXTS),
                                             fails(0xEF03), fails(0xEF03), reads(VALUES)};
    QTest::newRow("silence starts anew behind what is skipped")
        << Script{fails(0xEF03), fails(0xEF03), reads(BUSY),  fails(0xEF03),
                  fails(0xEF03), reads(TEXTS),  reads(VALUES)};
}

void WifiInfoTransactionTest::onlyTwoPacketsOfTheTransactionCount() {
    QFETCH(Script, packets);
    ScriptedPort port(Script{writes(GET_WIFI_INFO), reads(LINKED)} + packets);
    stWifiInfo info;
    QCOMPARE(ClNuboTransactions(port, port.stop()).wifiInfo(info), 0);
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(info.linkedSsid, QStringLiteral("net"));
    QCOMPARE(info.signal, -60);
}

void WifiInfoTransactionTest::onlyTheStatusComesBeforeTheRest_data() {
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    QTest::addColumn<quint32>("status");
    const auto row = [](const char* name, const Script& script, unsigned short result,
                        quint32 status) { QTest::newRow(name) << script << result << status; };
    const stScriptRow ask = writes(GET_WIFI_INFO);
    const stScriptRow answer = reads(LINKED);
    const stScriptRow texts = reads(TEXTS);
    const stScriptRow silent = fails(0xEF03);
    const stScriptRow gone = fails(0xEF00);

    row("not written", {writes(GET_WIFI_INFO, 0xEF02)}, 0xEF02, 77);
    row("not answered", {ask, silent, silent, silent}, 0xEF03, 77);
    row("refused", {ask, reads(BUSY)}, 0xFFF9, 77);
    row("gone in the answer", {ask, gone}, 0xEF00, 77);
    row("no texts", {ask, answer, silent, silent, silent}, 0xEF03, 2);
    row("no texts, the last status counts", {ask, answer, silent, silent, fails(0xEF02)}, 0xEF02,
        2);
    row("empty texts", {ask, answer, readsNothing(), readsNothing(), readsNothing()}, 0xEF05, 2);
    row("texts not tried", {ask, answer, fails(-4), fails(-4), fails(-4)}, 0xEF05, 2);
    row("gone in the texts", {ask, answer, gone}, 0xEF00, 2);
    row("no values", {ask, answer, texts, silent, silent, silent}, 0xEF03, 2);
    row("no values but foreign ones", {ask, answer, texts, reads(FOREIGN), silent, silent, silent},
        0xEF03, 2);
    row("gone in the values", {ask, answer, texts, silent, gone}, 0xEF00, 2);
    row("stopped before the answer", {ask.thenStop()}, 0xEF05, 77);
    row("stopped in a foreign answer", {ask, reads(FOREIGN).thenStop()}, 0, 0);
    row("stopped in the answer", {ask, answer.thenStop()}, 0, 2);
    row("stopped in silence", {ask, answer, silent.thenStop()}, 0xEF03, 2);
    row("stopped in a foreign packet", {ask, answer, reads(FOREIGN).thenStop()}, 0, 2);
    row("stopped in a refused packet", {ask, answer, reads(BUSY).thenStop()}, 0, 2);
    row("stopped in the texts", {ask, answer, texts.thenStop()}, 0, 2);
}

void WifiInfoTransactionTest::onlyTheStatusComesBeforeTheRest() {
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    ScriptedPort port(script);
    stWifiInfo info = untouched();
    QCOMPARE(ClNuboTransactions(port, port.stop()).wifiInfo(info), result);
    QCOMPARE(port.complaint(), QString());
    QTEST(info.status, "status");
    QCOMPARE(info.linkedSsid, QStringLiteral("before"));
    QCOMPARE(info.searchSsid, QStringLiteral("too"));
    QCOMPARE(info.channel, 71U);
    QCOMPARE(info.encryption, 72U);
    QCOMPARE(info.reserved, 73);
    QCOMPARE(info.signal, 74);
}

void WifiInfoTransactionTest::packetsThatAreSkippedCannotHoldTheThreadForEver() {
    constexpr std::chrono::milliseconds PATIENCE = 3000ms;
    constexpr int PACE_MS = 100;
    ScriptedPort port({writes(GET_WIFI_INFO), reads(LINKED), reads(BUSY).forEver(PACE_MS)});
    stWifiInfo info;
    QCOMPARE(ClNuboTransactions(port, port.stop(), port.clock()).wifiInfo(info), 0xEF03);
    QVERIFY(port.elapsed() > PATIENCE);
    QVERIFY(port.elapsed() <= PATIENCE + std::chrono::milliseconds(2 * PACE_MS));
    QCOMPARE(port.complaint(), QString());
    QCOMPARE(info.status, 2U);
    QCOMPARE(info.signal, 0);
}

const TestSubject registered = subjectWithoutScreen<WifiInfoTransactionTest>();
#include "WifiInfoTransactionTest.moc"
