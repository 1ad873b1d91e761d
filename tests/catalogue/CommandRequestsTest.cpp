// SPDX-License-Identifier: MIT
#include "protocol/CommandRoutes.h"
#include "protocol/NuboCommands.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WireText.h"

#include <QTest>

namespace {

/// A command that a page could order, and its packet.
struct stCommandRow {
    const char* name;
    unsigned short code;
    unsigned short type;
    unsigned short id;
    unsigned int length;
    QByteArray built;
    QByteArray packet;
};

template <class Command>
stCommandRow row(const char* name, const Command& command, const QByteArray& packet) {
    return {name,  Command::CODE, command.type(), command.id(), command.length(), command.getData(),
            packet};
}

const QDateTime SPRING_MORNING(QDate(2014, 3, 9), QTime(7, 5, 1));

// clang-format off
QList<stCommandRow> commandRows() {
    return {
        // Network and Wi-Fi
        row("GetWifiInfo", ClNuboCommandGetWifiInfo(), plainRequest("0150")),
        row("GetAccesspointList", ClNuboCommandGetAccesspointList(), plainRequest("0250")),
        row("GetWifiMode", ClNuboCommandGetWifiMode(), plainRequest("0350")),
        row("SetWifiMode", ClNuboCommandSetWifiMode(2), plainRequest("0358", "02000000")),
        row("GetStreamAuthorizationUse", ClNuboCommandGetStreamAuthorizationUse(), plainRequest("0450")),
        row("SetStreamAuthorizationUse", ClNuboCommandSetStreamAuthorizationUse(true), plainRequest("0458", "02000000")),
        row("GetStreamAuthorizationPassword", ClNuboCommandGetStreamAuthorizationPassword(), plainRequest("0550")),
        row("SetStreamAuthorizationPassword", ClNuboCommandSetStreamAuthorizationPassword(QStringLiteral("pa")), textRequest("1e000000", "0558", "02000000 7061")),
        row("GetAdhocAddress", ClNuboCommandGetAdhocAddress(), plainRequest("0650")),
        row("SetAdhocAddress", ClNuboCommandSetAdhocAddress(QStringLiteral("192.168.0.1")), plainRequest("0658", "0100a8c0")),
        row("GetAdhocSubnetmask", ClNuboCommandGetAdhocSubnetmask(), plainRequest("0750")),
        row("SetAdhocSubnetmask", ClNuboCommandSetAdhocSubnetmask(QStringLiteral("255.255.255.0")), plainRequest("0758", "00ffffff")),
        row("GetInfraUseDhcp", ClNuboCommandGetInfraUseDhcp(), plainRequest("0850")),
        row("SetInfraUseDhcp", ClNuboCommandSetInfraUseDhcp(false), plainRequest("0858", "01000000")),
        row("GetInfraAddress", ClNuboCommandGetInfraAddress(), plainRequest("0950")),
        row("SetInfraAddress", ClNuboCommandSetInfraAddress(QStringLiteral("10.1.2.3")), plainRequest("0958", "0302010a")),
        row("GetInfraSubnetmask", ClNuboCommandGetInfraSubnetmask(), plainRequest("0a50")),
        row("SetInfraSubnetmask", ClNuboCommandSetInfraSubnetmask(QStringLiteral("255.0.0.0")), plainRequest("0a58", "000000ff")),
        row("GetInfraGateway", ClNuboCommandGetInfraGateway(), plainRequest("0b50")),
        row("SetInfraGateway", ClNuboCommandSetInfraGateway(QStringLiteral("10.0.0.256")), plainRequest("0b58", "0001000a")),
        row("GetInfraSsid", ClNuboCommandGetInfraSsid(), plainRequest("3b50")),
        row("SetInfraSsid", ClNuboCommandSetInfraSsid(QStringLiteral("net")), textRequest("1f000000", "3b58", "03000000 6e6574")),
        row("GetInfraKey", ClNuboCommandGetInfraKey(), plainRequest("3c50")),
        row("SetInfraKey", ClNuboCommandSetInfraKey(QStringLiteral("k")), textRequest("1d000000", "3c58", "01000000 6b")),
        row("GetWifiCountry", ClNuboCommandGetWifiCountry(), plainRequest("4150")),
        row("SetWifiCountry", ClNuboCommandSetWifiCountry(4), plainRequest("4158", "04000000")),
        row("GetAdhocSecure", ClNuboCommandGetAdhocSecure(), plainRequest("4250")),
        row("SetAdhocSecure", ClNuboCommandSetAdhocSecure(1), plainRequest("4258", "01000000")),
        row("GetRtstPort", ClNuboCommandGetRtstPort(), plainRequest("4350")),
        row("SetRtspPort", ClNuboCommandSetRtspPort(65535), plainRequest("4358", "ffff0000")),
        row("GetStunServer", ClNuboCommandGetStunServer(), plainRequest("4450")),
        row("SetStunServer", ClNuboCommandSetStunServer(QStringLiteral("a.b")), textRequest("1f000000", "4458", "03000000 612e62")),
        row("GetPrimaryDns", ClNuboCommandGetPrimaryDns(), plainRequest("4550")),
        row("SetPrimaryDns", ClNuboCommandSetPrimaryDns(QStringLiteral("1.1.1.1")), plainRequest("4558", "01010101")),
        row("GetSecondaryDns", ClNuboCommandGetSecondaryDns(), plainRequest("4650")),
        row("SetSecondary", ClNuboCommandSetSecondary(QStringLiteral("0.0.0.0")), plainRequest("4658")),
        row("GetWiFiOnOff", ClNuboCommandGetWiFiOnOff(), plainRequest("4750")),
        row("SetWiFiOnOff", ClNuboCommandSetWiFiOnOff(false), plainRequest("4758", "01000000")),
        row("GetAutoWiFiOffSetting", ClNuboCommandGetAutoWiFiOffSetting(), plainRequest("4850")),
        row("SetAutoWiFiOffSetting", ClNuboCommandSetAutoWiFiOffSetting(60), plainRequest("4858", "3c000000")),
        row("ConnectWifi", ClNuboCommandConnectWifi(QStringLiteral("ab"), QStringLiteral("c")), "0000 <id> 1b000000 0768 0000 02000000 6162 01000000 63 00000000"),
        row("WifiChange", ClNuboCommandWifiChange(1), plainRequest("0868", "01000000")),
        row("WifiSwitch", ClNuboCommandWifiSwitch(false), plainRequest("0968", "01000000")),
        // Recording and streaming
        row("GetRecState", ClNuboCommandGetRecState(), plainRequest("1050")),
        row("GetIntervalTimer", ClNuboCommandGetIntervalTimer(), plainRequest("1150")),
        row("SetIntervalTimer", ClNuboCommandSetIntervalTimer(true, 3725, 1), plainRequest("1158", "02000000 8d0e0000 01000000")),
        row("GetRecImagesize", ClNuboCommandGetRecImagesize(), plainRequest("1250")),
        row("SetRecImagesize", ClNuboCommandSetRecImagesize(QSize(640, 480)), plainRequest("1258", "03000000")),
        row("GetRecFramerate", ClNuboCommandGetRecFramerate(), plainRequest("1350")),
        row("SetRecFramerate", ClNuboCommandSetRecFramerate(30), plainRequest("1358", "1e000000")),
        row("GetLiveImagesize", ClNuboCommandGetLiveImagesize(), plainRequest("1450")),
        row("SetLiveImagesize", ClNuboCommandSetLiveImagesize(QSize(320, 240)), plainRequest("1458", "02000000")),
        row("GetLiveFramerate", ClNuboCommandGetLiveFramerate(), plainRequest("1550")),
        row("SetLiveFramerate", ClNuboCommandSetLiveFramerate(10), plainRequest("1558", "0a000000")),
        row("GetImageQuarity", ClNuboCommandGetImageQuarity(), plainRequest("4950")),
        row("SetImageQuarity", ClNuboCommandSetImageQuarity(3), plainRequest("4958", "03000000")),
        row("CtrlRec", ClNuboCommandCtrlRec(false), plainRequest("0568", "01000000")),
        row("Capture", ClNuboCommandCapture(), plainRequest("0668")),
        // Camera basics
        row("GetGpsInfo", ClNuboCommandGetGpsInfo(), plainRequest("2050")),
        row("GetGpsSetting", ClNuboCommandGetGpsSetting(), plainRequest("2150")),
        row("SetGpsSetting", ClNuboCommandSetGpsSetting(true, false, false, 1), plainRequest("2158", "02000000 01000000 01000000 01000000")),
        row("GetCameraName", ClNuboCommandGetCameraName(), plainRequest("3050")),
        row("SetCameraName", ClNuboCommandSetCameraName(QStringLiteral("NuBo")), textRequest("20000000", "3058", "04000000 4e75426f")),
        row("GetTime", ClNuboCommandGetTime(), plainRequest("3150")),
        row("SetTime", ClNuboCommandSetTime(SPRING_MORNING), plainRequest("3158", "15513301 65130100")),
        row("GetTimezone", ClNuboCommandGetTimezone(), plainRequest("3250")),
        row("SetTimezone", ClNuboCommandSetTimezone(24), plainRequest("3258", "18000000")),
        row("GetLedStart", ClNuboCommandGetLedStart(), plainRequest("3350")),
        row("SetLedStart", ClNuboCommandSetLedStart(false), plainRequest("3358", "01000000")),
        row("GetLedState", ClNuboCommandGetLedState(), plainRequest("3450")),
        row("SetLedState", ClNuboCommandSetLedState(true), plainRequest("3458", "02000000")),
        row("GetOptimizerUse", ClNuboCommandGetOptimizerUse(), plainRequest("3550")),
        row("SetOptimizerUse", ClNuboCommandSetOptimizerUse(false), plainRequest("3558", "01000000")),
        row("GetEState", ClNuboCommandGetEState(), plainRequest("3650")),
        row("GetBatteryState", ClNuboCommandGetBatteryState(), plainRequest("3750")),
        row("GetAutoPoweroffSetting", ClNuboCommandGetAutoPoweroffSetting(), plainRequest("3850")),
        row("SetAutoPoweroffSetting", ClNuboCommandSetAutoPoweroffSetting(259200), plainRequest("3858", "80f40300")),
        row("GetSdInfo", ClNuboCommandGetSdInfo(), plainRequest("3950")),
        row("GetFwVersion", ClNuboCommandGetFwVersion(), plainRequest("3a50")),
        row("PowerOff", ClNuboCommandPowerOff(), plainRequest("0168")),
        row("Restart", ClNuboCommandRestart(), plainRequest("0268")),
        row("FormatSd", ClNuboCommandFormatSd(), plainRequest("0368")),
        row("InitSetting", ClNuboCommandInitSetting(), plainRequest("0468")),
        // Factory and service
        row("RFTestMode", ClNuboCommandRFTestMode(5, 4, 3, 2, 1), plainRequest("0a68", "05000000 04000000 03000000 02000000 01000000")),
        row("RFStart", ClNuboCommandRFStart(), plainRequest("0b68")),
        row("RFEnd", ClNuboCommandRFEnd(), plainRequest("0c68")),
        row("GetSerialNo", ClNuboCommandGetSerialNo(), plainRequest("0140")),
        row("SetSerialNo", ClNuboCommandSetSerialNo(QStringLiteral("A1")), textRequest("1e000000", "0148", "02000000 4131")),
        row("GetMacAddress", ClNuboCommandGetMacAddress(), plainRequest("0240")),
        row("GetMachineName", ClNuboCommandGetMachineName(), plainRequest("0340")),
        row("SetMachineName", ClNuboCommandSetMachineName(QStringLiteral("M")), textRequest("1d000000", "0348", "01000000 4d")),
        row("GetSsid", ClNuboCommandGetSsid(), plainRequest("0440")),
        row("SetSsid", ClNuboCommandSetSsid(QStringLiteral("ad")), textRequest("1e000000", "0448", "02000000 6164")),
        row("GetAdhocKey", ClNuboCommandGetAdhocKey(), plainRequest("0540")),
        row("SetAdhocKey", ClNuboCommandSetAdhocKey(QStringLiteral("key")), textRequest("1f000000", "0548", "03000000 6b6579")),
        row("GetCreateDay", ClNuboCommandGetCreateDay(), plainRequest("0640")),
        row("SetCreateDay", ClNuboCommandSetCreateDay(SPRING_MORNING), textRequest("2f000000", "0648", "13000000 323031342f30332f30392030373a30353a3031")),
        row("GetCountry", ClNuboCommandGetCountry(), plainRequest("0740")),
        row("SetCountry", ClNuboCommandSetCountry(QStringLiteral("EU")), plainRequest("0748", "45000000 55000000")),
        row("GetLens", ClNuboCommandGetLens(), plainRequest("0840")),
        row("SetLens", ClNuboCommandSetLens(QStringLiteral("L")), textRequest("1d000000", "0848", "01000000 4c")),
        row("ExecAlignmentCheck", ClNuboCommandExecAlignmentCheck(0x11), plainRequest("2100", "11000000")),
        row("ExecResolutionCheck", ClNuboCommandExecResolutionCheck(0x12), plainRequest("2200", "12000000")),
        row("ExecVignettingCheck", ClNuboCommandExecVignettingCheck(0x13), plainRequest("2300", "13000000")),
        row("ExecAwbCheck", ClNuboCommandExecAwbCheck(0x14), plainRequest("2400", "14000000")),
        row("ExecDustCheck", ClNuboCommandExecDustCheck(0x15), plainRequest("2500", "15000000")),
        row("ExecDotErrorCheck", ClNuboCommandExecDotErrorCheck(0x16), plainRequest("2600", "16000000")),
        row("ExecRamCheck", ClNuboCommandExecRamCheck(), plainRequest("2700")),
        row("SaveRawData", ClNuboCommandSaveRawData(), plainRequest("3100")),
        row("SaveYcData", ClNuboCommandSaveYcData(), plainRequest("3200")),
        row("SaveAdjustData", ClNuboCommandSaveAdjustData(), plainRequest("3300")),
        row("SetAdjustFlag", ClNUboCommandSetAdjustFlag(7), plainRequest("4100", "07000000")),
        row("GetAdjustFlag", ClNUboCommandGetAdjustFlag(), plainRequest("4200")),
        row("ReqJpeg", ClNuboCommandReqJpeg(), plainRequest("0130")),
        row("ReqAudio", ClNuboCommandReqAudio(), plainRequest("0230")),
        // Firmware
        row("ExecFwUpdateData", ClNuboCommandExecFwUpdateData(0x01020304), plainRequest("0120", "04030201")),
        row("ExecFwUpdat", ClNuboCommandExecFwUpdat(false), plainRequest("0220", "01000000")),
    };
}
// clang-format on

}  // namespace

/// Every command class: what it puts on the wire.
class CommandRequestsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyCommandOfTheRoutesIsHere();
    void aCommandIsItsCodeAndItsArguments_data();
    void aCommandIsItsCodeAndItsArguments();
};

void CommandRequestsTest::everyCommandOfTheRoutesIsHere() {
    QList<unsigned short> routed;
    for (const stRoute& route : commandRoutes()) {
        routed.append(route.code);
    }
    QList<unsigned short> tested;
    for (const stCommandRow& command : commandRows()) {
        tested.append(command.code);
    }
    std::ranges::sort(routed);
    std::ranges::sort(tested);
    QCOMPARE(tested, routed);
}

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
