// SPDX-License-Identifier: MIT
#include "simulator/CameraCommands.h"
#include "simulator/CameraValues.h"
#include "simulator/VirtualCamera.h"
#include "tests/simulator/CameraTalk.h"

#include <QSet>
#include <QTest>

#include <algorithm>
#include <array>

using namespace nubo::simulator;

namespace {

const QByteArray SUCCESS = "0000";
const QByteArray WRONG_LENGTH = "fdff";
const QByteArray UNKNOWN = "fcff";
const QByteArray OUT_OF_RANGE = "fbff";
const QByteArray NOT_EXECUTED = "faff";
const QByteArray CARD_FULL = "f7ff";

/// A value that travels in the first parameter, or in all of them.
struct stNumberRow {
    const char* name;
    const char* get;
    const char* set;
    const char* before;
    const char* wanted;
    const char* refused;  ///< a parameter out of range, if there is one
};

constexpr std::array NUMBERS{
    stNumberRow{"Wi-Fi mode", "0350", "0358", "01000000", "02000000", "09000000"},
    stNumberRow{"stream authorisation", "0450", "0458", "01000000", "02000000", "03000000"},
    stNumberRow{"ad-hoc address", "0650", "0658", "010aa8c0", "0100000a", ""},
    stNumberRow{"ad-hoc subnet mask", "0750", "0758", "00ffffff", "0000ffff", ""},
    stNumberRow{"DHCP", "0850", "0858", "02000000", "01000000", "00000000"},
    stNumberRow{"address", "0950", "0958", "1400a8c0", "04030201", ""},
    stNumberRow{"subnet mask", "0a50", "0a58", "00ffffff", "0000ffff", ""},
    stNumberRow{"gateway", "0b50", "0b58", "0100a8c0", "04030201", ""},
    stNumberRow{"recording size", "1250", "1258", "02000000", "03000000", "04000000"},
    stNumberRow{"recording rate", "1350", "1358", "1e000000", "0f000000", "00000000"},
    stNumberRow{"live size", "1450", "1458", "01000000", "02000000", "03000000"},
    stNumberRow{"live rate", "1550", "1558", "0f000000", "06000000", "00000000"},
    stNumberRow{"time zone", "3250", "3258", "09000000", "18000000", "19000000"},
    stNumberRow{"LED at start", "3350", "3358", "02000000", "01000000", "00000000"},
    stNumberRow{"LED", "3450", "3458", "02000000", "01000000", "03000000"},
    stNumberRow{"optimiser", "3550", "3558", "01000000", "02000000", "03000000"},
    stNumberRow{"automatic power-off", "3850", "3858", "58020000", "00000000", "81f40300"},
    stNumberRow{"Wi-Fi country", "4150", "4158", "01000000", "04000000", "05000000"},
    stNumberRow{"ad-hoc security", "4250", "4258", "01000000", "02000000", "05000000"},
    stNumberRow{"RTSP port", "4350", "4358", "2a020000", "ffff0000", "00000100"},
    stNumberRow{"primary DNS", "4550", "4558", "0100a8c0", "08080808", ""},
    stNumberRow{"secondary DNS", "4650", "4658", "00000000", "04040808", ""},
    stNumberRow{"Wi-Fi", "4750", "4758", "02000000", "01000000", "00000000"},
    stNumberRow{"automatic Wi-Fi off", "4850", "4858", "2c010000", "3c000000", "81f40300"},
    stNumberRow{"image quality", "4950", "4958", "02000000", "04000000", "05000000"},
    stNumberRow{"adjustment flag", "4200", "4100", "00000000", "78563412", ""},
    stNumberRow{"interval", "1150", "1158", "01000000 0a000000 3c000000",
                "02000000 00000000 80f40300", "02000000 00000000 00000000"},
    stNumberRow{"GPS setting", "2150", "2158", "02000000 01000000 02000000 01000000",
                "01000000 02000000 01000000 02000000", "01000000 02000000 01000000 03000000"},
    stNumberRow{"country", "0740", "0748", "4a000000 50000000", "44000000 45000000",
                "44000000 00000000"},
};

struct stTextRow {
    const char* name;
    const char* get;
    const char* set;  ///< null: nothing sets it
    const char* before;
};

constexpr std::array TEXTS{
    stTextRow{"stream password", "0550", "0558", "lantern"},
    stTextRow{"camera name", "3050", "3058", "Gull"},
    stTextRow{"network", "3b50", "3b58", "Harbour"},
    stTextRow{"network key", "3c50", "3c58", "breakwater"},
    stTextRow{"STUN server", "4450", "4458", "stun.example.net"},
    stTextRow{"serial number", "0140", "0148", "SIM0001"},
    stTextRow{"hardware address", "0240", nullptr, "02:00:5E:10:00:01"},
    stTextRow{"machine name", "0340", "0348", "NuBo"},
    stTextRow{"own network", "0440", "0448", "NuBo-0001"},
    stTextRow{"own key", "0540", "0548", "simulated"},
    stTextRow{"creation day", "0640", "0648", "2014/03/09 07:05:01"},
    stTextRow{"lens", "0840", "0848", "F2.8"},
    stTextRow{"firmware version", "3a50", nullptr, "1.00"},
};

/// A text in its string form, after the first eight bytes: of a text that is no longer than 227
/// bytes.
QByteArray textPacket(const QByteArray& type, const QByteArray& code, const QByteArray& text) {
    const auto byte = [](qsizetype number) {
        return QByteArray(1, static_cast<char>(number)).toHex() + "000000";
    };
    return plainHex(type + "3412" + byte(text.size() + 28) + code + "0000" + byte(text.size()) +
                    text.toHex() + "00000000 00000000 00000000");
}

}  // namespace

/// What is set is what is read; golden bytes.
class CameraSettingsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aNumberSetIsTheNumberRead_data();
    void aNumberSetIsTheNumberRead();
    void aTextSetIsTheTextRead_data();
    void aTextSetIsTheTextRead();
    void textsTravelWithTheirLength();
    void wrongTextPacketsAreRefused_data();
    void wrongTextPacketsAreRefused();
    void theClockRunsFromWhatWasSet();
    void noSuchTimeIsRefused_data();
    void noSuchTimeIsRefused();
    void readingsAndActionsAnswer_data();
    void readingsAndActionsAnswer();
    void joiningLinksToTheNetwork();
    void joiningAHiddenNetworkLinksToo();
    void wrongJoinPacketsAreRefused_data();
    void wrongJoinPacketsAreRefused();
    void switchedOffWifiHasNoLink_data();
    void switchedOffWifiHasNoLink();
    void aCaptureNeedsRoomOnTheCard();
    void aResetKeepsWhatTheFactoryWrote();
    void powerOffIsWantedOnceAfterTheAnswerIsFetched();
    void networksOfAllKindsAreInReach();
    void noCodeStandsInBothTables();
};

void CameraSettingsTest::aNumberSetIsTheNumberRead_data() {
    QTest::addColumn<stNumberRow>("row");
    for (const stNumberRow& row : NUMBERS) {
        QTest::newRow(row.name) << row;
    }
}

void CameraSettingsTest::aNumberSetIsTheNumberRead() {
    QFETCH(const stNumberRow, row);
    VirtualCamera camera;
    QCOMPARE(ask(camera, command(row.get)), QByteArrayList{reply(SUCCESS, row.before)});
    QCOMPARE(ask(camera, command(row.set, row.wanted)), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command(row.get)), QByteArrayList{reply(SUCCESS, row.wanted)});
    if (*row.refused != '\0') {
        QCOMPARE(ask(camera, command(row.set, row.refused)), QByteArrayList{reply(OUT_OF_RANGE)});
        QCOMPARE(ask(camera, command(row.get)), QByteArrayList{reply(SUCCESS, row.wanted)});
    }
}

void CameraSettingsTest::aTextSetIsTheTextRead_data() {
    QTest::addColumn<stTextRow>("row");
    for (const stTextRow& row : TEXTS) {
        QTest::newRow(row.name) << row;
    }
}

void CameraSettingsTest::aTextSetIsTheTextRead() {
    QFETCH(const stTextRow, row);
    VirtualCamera camera;
    QCOMPARE(ask(camera, command(row.get)),
             QByteArrayList{textPacket("0100", SUCCESS, row.before)});
    if (row.set == nullptr) {
        return;
    }
    QCOMPARE(ask(camera, textPacket("0000", row.set, "a b")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command(row.get)), QByteArrayList{textPacket("0100", SUCCESS, "a b")});
    QCOMPARE(ask(camera, command(row.set)), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command(row.get)), QByteArrayList{reply(SUCCESS)});
}

void CameraSettingsTest::textsTravelWithTheirLength() {
    VirtualCamera camera;
    QCOMPARE(ask(camera,
                 "0000 3412 1f000000 3058 0000 03000000 616263"
                 "00000000 00000000 00000000"),
             QByteArrayList{reply(SUCCESS)});
    QCOMPARE(camera.get("camera-name"), "abc");
    QCOMPARE(ask(camera, command("3050")),
             QByteArrayList{plainHex("0100 3412 1f000000 0000 0000 03000000 616263"
                                     "00000000 00000000 00000000")});
}

void CameraSettingsTest::wrongTextPacketsAreRefused_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("result");
    const QByteArray rest = "00000000 00000000 00000000";
    QTest::newRow("count too large")
        << QByteArray("0000 3412 1f000000 3058 0000 04000000 616263" + rest) << WRONG_LENGTH;
    QTest::newRow("count too small")
        << QByteArray("0000 3412 1f000000 3058 0000 02000000 616263" + rest) << WRONG_LENGTH;
    QTest::newRow("count beyond all bounds")
        << QByteArray("0000 3412 1f000000 3058 0000 ffffffff 616263" + rest) << WRONG_LENGTH;
    QTest::newRow("no rest") << QByteArray("0000 3412 13000000 3058 0000 03000000 616263")
                             << WRONG_LENGTH;
    QTest::newRow("empty, and no rest")
        << QByteArray("0000 3412 10000000 3058 0000 00000000") << WRONG_LENGTH;
    QTest::newRow("text to a number")
        << QByteArray("0000 3412 1f000000 0358 0000 03000000 616263" + rest) << WRONG_LENGTH;
    QTest::newRow("name of a network too long")
        << textPacket("0000", "3b58", QByteArray(33, 's')) << OUT_OF_RANGE;
}

void CameraSettingsTest::wrongTextPacketsAreRefused() {
    QFETCH(const QByteArray, request);
    QFETCH(const QByteArray, result);
    VirtualCamera camera;
    QCOMPARE(ask(camera, request), QByteArrayList{reply(result)});
    QCOMPARE(camera.get("camera-name"), "Gull");
    QCOMPARE(camera.get("infra-ssid"), "Harbour");
}

void CameraSettingsTest::theClockRunsFromWhatWasSet() {
    VirtualCamera camera;
    // 2016-02-29 23:59:59, and the day after.
    QCOMPARE(ask(camera, command("3158", "e59e3301 b7990300")), QByteArrayList{reply(SUCCESS)});
    const QByteArrayList march{reply(SUCCESS, "2d9f3301 00000000")};
    QTRY_COMPARE(ask(camera, command("3150")), march);
    QVERIFY(camera.set("time", "2014/03/09 07:05:01"));
    QCOMPARE(ask(camera, command("3150")), QByteArrayList{reply(SUCCESS, "15513301 65130100")});
}

void CameraSettingsTest::noSuchTimeIsRefused_data() {
    QTest::addColumn<QByteArray>("parameters");
    QTest::newRow("nothing") << QByteArray("00000000 00000000");
    QTest::newRow("29 February of 2014") << QByteArray("c5503301 00000000");
    QTest::newRow("hour 24") << QByteArray("15513301 80a90300");
    QTest::newRow("minute 60") << QByteArray("15513301 70170000");
    QTest::newRow("second 60") << QByteArray("15513301 3c000000");
    QTest::newRow("year beyond all bounds") << QByteArray("ffffffff 00000000");
}

void CameraSettingsTest::noSuchTimeIsRefused() {
    QFETCH(const QByteArray, parameters);
    VirtualCamera camera;
    QCOMPARE(ask(camera, command("3158", parameters)), QByteArrayList{reply(OUT_OF_RANGE)});
}

void CameraSettingsTest::readingsAndActionsAnswer_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("recording state") << command("1050") << reply(SUCCESS, "01000000");
    QTest::newRow("GPS information") << command("2050") << reply(SUCCESS, "01000000 07000000");
    QTest::newRow("E-state") << command("3650") << reply(SUCCESS, "01000000");
    QTest::newRow("power off") << command("0168") << reply(SUCCESS);
    QTest::newRow("record") << command("0568", "02000000") << reply(SUCCESS);
    QTest::newRow("record, neither on nor off") << command("0568") << reply(OUT_OF_RANGE);
    QTest::newRow("capture") << command("0668") << reply(SUCCESS);
    QTest::newRow("change of mode") << command("0868", "02000000") << reply(SUCCESS);
    QTest::newRow("change to no mode") << command("0868", "09000000") << reply(OUT_OF_RANGE);
    QTest::newRow("radio test") << command("0a68", "01000000 02000000 03000000 04000000 05000000")
                                << reply(SUCCESS);
    for (const char* const code : {"2100", "2200", "2300", "2400", "2500", "2600", "2700", "3100",
                                   "3200", "3300", "0b68", "0c68"}) {
        QTest::addRow("service %s", code) << command(code) << reply(SUCCESS);
    }
    QTest::newRow("apply no firmware") << command("0220", "02000000") << reply(NOT_EXECUTED);
    QTest::newRow("apply, neither on nor off") << command("0220") << reply(OUT_OF_RANGE);
    for (const char* const code : {"0250", "1050", "2050", "3650", "3750", "3950", "3a50"}) {
        QByteArray set = code;
        set[2] = '5';
        set[3] = '8';
        QTest::addRow("nothing sets %s", code) << command(set) << reply(UNKNOWN);
    }
}

void CameraSettingsTest::readingsAndActionsAnswer() {
    QFETCH(const QByteArray, request);
    VirtualCamera camera;
    QTEST(ask(camera, request).value(0), "answer");
}

void CameraSettingsTest::joiningLinksToTheNetwork() {
    VirtualCamera camera;
    QVERIFY(camera.set("wifi-state", "1"));
    QCOMPARE(ask(camera,
                 "0000 3412 23000000 0768 0000 08000000 576f726b73686f70 03000000 6b6579"
                 "00000000"),
             QByteArrayList{reply(SUCCESS)});
    const QByteArrayList information = {
        reply(SUCCESS, "02000000"),
        plainHex("0100 3412 28000000 0000 0000 00000000 08000000 576f726b73686f70"
                 "08000000 576f726b73686f70"),
        reply(SUCCESS, "00000000 01000000 02000000 00000000 30000000"),
    };
    QCOMPARE(ask(camera, command("0150")), information);
    QCOMPARE(camera.get("infra-ssid"), "Workshop");
    QCOMPARE(camera.get("infra-key"), "key");
}

void CameraSettingsTest::joiningAHiddenNetworkLinksToo() {
    VirtualCamera camera;
    QVERIFY(camera.set("wifi-state", "1"));
    QCOMPARE(ask(camera, "0000 3412 19000000 0768 0000 01000000 68 00000000 00000000"),
             QByteArrayList{reply(SUCCESS)});
    QCOMPARE(camera.get("wifi-state"), "2");
    QCOMPARE(camera.get("wifi-ssid"), "h");
}

void CameraSettingsTest::wrongJoinPacketsAreRefused_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("result");
    QTest::newRow("no name") << QByteArray(
                                    "0000 3412 1b000000 0768 0000 00000000 03000000 6b6579"
                                    "00000000")
                             << OUT_OF_RANGE;
    QTest::newRow("name too long") << QByteArray("0000 3412 39000000 0768 0000 21000000" +
                                                 QByteArray(66, '5') + "00000000 00000000")
                                   << OUT_OF_RANGE;
    QTest::newRow("plain") << command("0768", "01000000") << WRONG_LENGTH;
    QTest::newRow("count of the key too large")
        << QByteArray("0000 3412 1a000000 0768 0000 01000000 68 05000000 68 00000000")
        << WRONG_LENGTH;
}

void CameraSettingsTest::wrongJoinPacketsAreRefused() {
    QFETCH(const QByteArray, request);
    QFETCH(const QByteArray, result);
    VirtualCamera camera;
    QCOMPARE(ask(camera, request), QByteArrayList{reply(result)});
    QCOMPARE(camera.get("wifi-ssid"), "Harbour");
}

void CameraSettingsTest::switchedOffWifiHasNoLink_data() {
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("setting") << QByteArray("4758");
    QTest::newRow("action") << QByteArray("0968");
}

void CameraSettingsTest::switchedOffWifiHasNoLink() {
    QFETCH(const QByteArray, code);
    VirtualCamera camera;
    QCOMPARE(ask(camera, command(code, "01000000")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0150")).value(0), reply(SUCCESS, "01000000"));
    QCOMPARE(ask(camera, command("4750")), QByteArrayList{reply(SUCCESS, "01000000")});
    QCOMPARE(ask(camera, command(code, "02000000")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0150")).value(0), reply(SUCCESS, "02000000"));
}

void CameraSettingsTest::aCaptureNeedsRoomOnTheCard() {
    VirtualCamera camera;
    QVERIFY(camera.set("sd-total", "5000"));
    QVERIFY(camera.set("sd-used", "0"));
    QCOMPARE(ask(camera, command("0668")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0668")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0668")), QByteArrayList{reply(CARD_FULL)});
    QCOMPARE(camera.get("sd-used"), "4096");
}

void CameraSettingsTest::aResetKeepsWhatTheFactoryWrote() {
    VirtualCamera camera;
    QVERIFY(camera.set("camera-name", "Tern"));
    QVERIFY(camera.set("timezone", "3"));
    QVERIFY(camera.set("serial-number", "7"));
    QCOMPARE(ask(camera, command("0468")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(camera.get("camera-name"), "Gull");
    QCOMPARE(camera.get("timezone"), "9");
    QCOMPARE(camera.get("serial-number"), "7");
}

void CameraSettingsTest::powerOffIsWantedOnceAfterTheAnswerIsFetched() {
    VirtualCamera camera;
    QVERIFY(!camera.wantsPowerOff());
    tell(camera, command("0168"));
    QVERIFY(!camera.wantsPowerOff());
    QCOMPARE(answers(camera).size(), 1);
    QVERIFY(!camera.wantsRestart());
    QVERIFY(camera.wantsPowerOff());
    QVERIFY(!camera.wantsPowerOff());
}

void CameraSettingsTest::networksOfAllKindsAreInReach() {
    VirtualCamera camera;
    QSet<std::uint32_t> encryptions;
    QSet<std::size_t> lengths;
    bool isAscii = true;
    for (const AccessPoint& point : camera.state().accessPoints) {
        encryptions.insert(point.encryption);
        lengths.insert(point.ssid.size());
        isAscii =
            isAscii && std::ranges::all_of(point.ssid, [](char c) { return (c & 0x80) == 0; });
    }
    QCOMPARE(encryptions, (QSet<std::uint32_t>{0, 1, 2, 4}));
    QVERIFY(lengths.contains(0));
    QVERIFY(lengths.contains(32));
    QVERIFY(!isAscii);
    const qsizetype packets = 1 + 2 * static_cast<qsizetype>(camera.state().accessPoints.size());
    QCOMPARE(ask(camera, command("0250")).size(), packets);
}

void CameraSettingsTest::noCodeStandsInBothTables() {
    QSet<std::uint16_t> codes;
    for (const CameraCommand& row : cameraCommands()) {
        codes.insert(row.code);
    }
    qsizetype count = static_cast<qsizetype>(cameraCommands().size());
    for (const CameraValue& value : cameraValues()) {
        codes.insert(value.getCode);
        count += 1;
        if (value.setCode != 0) {
            codes.insert(value.setCode);
            count += 1;
        }
    }
    QCOMPARE(codes.size(), count);
}

QTEST_APPLESS_MAIN(CameraSettingsTest)
#include "CameraSettingsTest.moc"
