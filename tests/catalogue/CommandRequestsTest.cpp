// SPDX-License-Identifier: MIT
#include "protocol/NuboCommands.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

namespace {

/// A command and its packet.
struct stCommandRow {
    const char* name;
    unsigned short type;
    unsigned short id;
    unsigned int length;
    QByteArray built;
    QByteArray packet;
};

template <class Command>
stCommandRow row(const char* name, const Command& command, const QByteArray& packet) {
    return {name, command.type(), command.id(), command.length(), command.getData(), packet};
}

const QDateTime SPRING_MORNING(QDate(2014, 3, 9), QTime(7, 5, 1));

// clang-format off
QList<stCommandRow> commandRows() {
    return {
        row("SetWifiMode", ClNuboCommandSetWifiMode(2), plainRequest("0358", "02000000")),
        row("SetStreamAuthorizationPassword", ClNuboCommandSetStreamAuthorizationPassword(QStringLiteral("pa")), textRequest("1e000000", "0558", "02000000 7061")),
        row("SetAdhocAddress", ClNuboCommandSetAdhocAddress(QStringLiteral("192.168.0.1")), plainRequest("0658", "0100a8c0")),
        row("SetInfraGateway", ClNuboCommandSetInfraGateway(QStringLiteral("10.0.0.256")), plainRequest("0b58", "0001000a")),
        row("ConnectWifi", ClNuboCommandConnectWifi(QStringLiteral("ab"), QStringLiteral("c")), "0000 <id> 1b000000 0768 0000 02000000 6162 01000000 63 00000000"),
        row("WifiSwitch", ClNuboCommandWifiSwitch(false), plainRequest("0968", "01000000")),
        row("SetIntervalTimer", ClNuboCommandSetIntervalTimer(true, 3725, 1), plainRequest("1158", "02000000 8d0e0000 01000000")),
        row("SetRecImagesize", ClNuboCommandSetRecImagesize(QSize(640, 480)), plainRequest("1258", "03000000")),
        row("SetLiveImagesize", ClNuboCommandSetLiveImagesize(QSize(320, 240)), plainRequest("1458", "02000000")),
        row("SetGpsSetting", ClNuboCommandSetGpsSetting(true, false, false, 1), plainRequest("2158", "02000000 01000000 01000000 01000000")),
        row("SetTime", ClNuboCommandSetTime(SPRING_MORNING), plainRequest("3158", "15513301 65130100")),
        row("GetBatteryState", ClNuboCommandGetBatteryState(), plainRequest("3750")),
        row("Restart", ClNuboCommandRestart(), plainRequest("0268")),
        row("RFTestMode", ClNuboCommandRFTestMode(5, 4, 3, 2, 1), plainRequest("0a68", "05000000 04000000 03000000 02000000 01000000")),
        row("SetCreateDay", ClNuboCommandSetCreateDay(SPRING_MORNING), textRequest("2f000000", "0648", "13000000 323031342f30332f30392030373a30353a3031")),
        row("SetCountry", ClNuboCommandSetCountry(QStringLiteral("EU")), plainRequest("0748", "45000000 55000000")),
        row("SetAdjustFlag", ClNUboCommandSetAdjustFlag(7), plainRequest("4100", "07000000")),
        row("ExecFwUpdateData", ClNuboCommandExecFwUpdateData(0x01020304), plainRequest("0120", "04030201")),
    };
}
// clang-format on

}  // namespace

/// What a command puts on the wire: one of each kind, and all that are irregular. RoutesTest sends
/// every command there is.
class CommandRequestsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aCommandIsItsCodeAndItsArguments_data();
    void aCommandIsItsCodeAndItsArguments();
};

void CommandRequestsTest::aCommandIsItsCodeAndItsArguments_data() {
    QTest::addColumn<stCommandRow>("command");
    for (const stCommandRow& command : commandRows()) {
        QTest::newRow(command.name) << command;
    }
}

void CommandRequestsTest::aCommandIsItsCodeAndItsArguments() {
    QFETCH(stCommandRow, command);
    QVERIFY(command.id != 0);
    QCOMPARE(command.type, 0);
    QCOMPARE(wireText(command.built), wireText(wireBytes(command.packet, command.id)));
    QCOMPARE(command.length, static_cast<unsigned int>(command.built.size()));
}

const TestSubject registered = subjectWithoutScreen<CommandRequestsTest>();
#include "CommandRequestsTest.moc"
