// SPDX-License-Identifier: MIT
#include "protocol/NuboCommands.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

namespace {

const QString SSID_32 = QStringLiteral("NuBo-0123456789abcdefghijklmnopq");
const QByteArray SSID_32_BYTES =
    "4e75426f2d 30313233343536373839 6162636465666768696a6b6c6d6e6f7071";
const QString KEY_64 = QString(64, u'f');
const QByteArray KEY_64_BYTES = QByteArray("66").repeated(64);

}  // namespace

/// Commands that carry texts: nothing, the longest that Wi-Fi knows, and texts beyond ASCII.
class CommandTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void textsAreCountedBytes_data();
    void textsAreCountedBytes();
    void everyTextCommandCarriesTextsAlike_data();
    void everyTextCommandCarriesTextsAlike();
    void aNetworkIsJoinedByNameAndKey_data();
    void aNetworkIsJoinedByNameAndKey();
    void answersMayBringAnyText_data();
    void answersMayBringAnyText();
};

void CommandTextsTest::textsAreCountedBytes_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("packet");
    const auto row = [](const char* name, const QString& text, const QByteArray& packet) {
        QTest::newRow(name) << text << packet;
    };
    row("null", QString(), plainRequest("3b58"));
    row("empty", QStringLiteral(""), plainRequest("3b58"));
    row("one letter", QStringLiteral("a"), textRequest("1d000000", "3b58", "01000000 61"));
    row("four letters fill the packet", QStringLiteral("abcd"),
        textRequest("20000000", "3b58", "04000000 61626364"));
    row("32 letters", SSID_32, textRequest("3c000000", "3b58", "20000000" + SSID_32_BYTES));
    row("64 letters", KEY_64, textRequest("5c000000", "3b58", "40000000" + KEY_64_BYTES));
    row("blanks", QStringLiteral(" a "), textRequest("1f000000", "3b58", "03000000 206120"));
    row("a zero", QString::fromLatin1("a\0b", 3),
        textRequest("1f000000", "3b58", "03000000 610062"));
    row("Latin-1", QStringLiteral("caf\u00e9"),
        textRequest("20000000", "3b58", "04000000 636166e9"));
    row("beyond Latin-1", QStringLiteral("\u65e5\u672c"),
        textRequest("1e000000", "3b58", "02000000 3f3f"));
}

void CommandTextsTest::textsAreCountedBytes() {
    QFETCH(QString, text);
    QFETCH(QByteArray, packet);
    const ClNuboCommandSetInfraSsid command(text);
    QCOMPARE(wireText(command.getData()), wireText(wireBytes(packet, command.id())));
    QCOMPARE(command.length(), static_cast<unsigned int>(command.getData().size()));
}

void CommandTextsTest::everyTextCommandCarriesTextsAlike_data() {
    QTest::addColumn<QByteArray>("longest");
    QTest::addColumn<QByteArray>("empty");
    QTest::addColumn<QByteArray>("code");
    const auto row = []<class Command>(std::type_identity<Command>, const char* code) {
        const auto bytes = [](const Command& command) {
            QByteArray packet = command.getData();
            return packet.replace(2, 2, QByteArray("id"));
        };
        QTest::newRow(code) << bytes(Command(KEY_64)) << bytes(Command(QString()))
                            << QByteArray(code);
    };
    row(std::type_identity<ClNuboCommandSetStreamAuthorizationPassword>(), "0558");
    row(std::type_identity<ClNuboCommandSetInfraSsid>(), "3b58");
    row(std::type_identity<ClNuboCommandSetInfraKey>(), "3c58");
    row(std::type_identity<ClNuboCommandSetStunServer>(), "4458");
    row(std::type_identity<ClNuboCommandSetCameraName>(), "3058");
    row(std::type_identity<ClNuboCommandSetSerialNo>(), "0148");
    row(std::type_identity<ClNuboCommandSetMachineName>(), "0348");
    row(std::type_identity<ClNuboCommandSetSsid>(), "0448");
    row(std::type_identity<ClNuboCommandSetAdhocKey>(), "0548");
    row(std::type_identity<ClNuboCommandSetLens>(), "0848");
}

void CommandTextsTest::everyTextCommandCarriesTextsAlike() {
    QFETCH(QByteArray, longest);
    QFETCH(QByteArray, empty);
    QFETCH(QByteArray, code);
    const auto id = static_cast<quint16>('i' | 'd' << 8);
    const QByteArray text = "40000000" + KEY_64_BYTES;
    QCOMPARE(wireText(longest), wireText(wireBytes(textRequest("5c000000", code, text), id)));
    QCOMPARE(wireText(empty), wireText(wireBytes(plainRequest(code), id)));
}

void CommandTextsTest::aNetworkIsJoinedByNameAndKey_data() {
    QTest::addColumn<QString>("ssid");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QByteArray>("packet");
    const auto row = [](const char* name, const QString& ssid, const QString& key,
                        const QByteArray& packet) { QTest::newRow(name) << ssid << key << packet; };
    row("both empty", {}, {}, "0000 <id> 18000000 0768 0000 00000000 00000000 00000000");
    row("open network", QStringLiteral("net"), {},
        "0000 <id> 1b000000 0768 0000 03000000 6e6574 00000000 00000000");
    row("key alone", {}, QStringLiteral("k"),
        "0000 <id> 19000000 0768 0000 00000000 01000000 6b 00000000");
    row("as long as a plain packet", QStringLiteral("abcd"), QStringLiteral("efgh"),
        "0000 <id> 20000000 0768 0000 04000000 61626364 04000000 65666768 00000000");
    row("longest", SSID_32, KEY_64,
        "0000 <id> 78000000 0768 0000 20000000" + SSID_32_BYTES + "40000000" + KEY_64_BYTES +
            "00000000");
    row("Latin-1", QStringLiteral("caf\u00e9"), QStringLiteral("\u00ff"),
        "0000 <id> 1d000000 0768 0000 04000000 636166e9 01000000 ff 00000000");
    row("beyond Latin-1", QStringLiteral("\u65e5"), QStringLiteral("\u672c\u8a9e"),
        "0000 <id> 1b000000 0768 0000 01000000 3f 02000000 3f3f 00000000");
}

void CommandTextsTest::aNetworkIsJoinedByNameAndKey() {
    QFETCH(QString, ssid);
    QFETCH(QString, key);
    QFETCH(QByteArray, packet);
    const ClNuboCommandConnectWifi command(ssid, key);
    QCOMPARE(wireText(command.getData()), wireText(wireBytes(packet, command.id())));
    QCOMPARE(command.length(), static_cast<unsigned int>(command.getData().size()));
}

void CommandTextsTest::answersMayBringAnyText_data() {
    QTest::addColumn<QByteArray>("packet");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QByteArray& packet, const QString& text) {
        QTest::newRow(name) << packet << text;
    };
    row("none", plainAnswer("00000000"), {});
    row("longest", textAnswer("5c000000", "40000000" + KEY_64_BYTES), KEY_64);
    row("Latin-1", textAnswer("20000000", "04000000 636166e9"), QStringLiteral("caf\u00e9"));
    row("a zero", textAnswer("1f000000", "03000000 610062"), QString::fromLatin1("a\0b", 3));
    row("count beyond the packet", "0000 <id> 20000000 0000 0000 ffffffff 616263",
        QStringLiteral("abc"));
    row("count without bytes", "0000 <id> 20000000 0000 0000 05000000", {});
}

void CommandTextsTest::answersMayBringAnyText() {
    QFETCH(QByteArray, packet);
    QFETCH(QString, text);
    ClNuboCommandGetCameraName command;
    command.setData(wireBytes(packet, command.id()));
    QCOMPARE(command.string(), text);
}

const TestSubject registered = subjectWithoutScreen<CommandTextsTest>();
#include "CommandTextsTest.moc"
