// SPDX-License-Identifier: MIT
#include "simulator/CameraCommands.h"
#include "simulator/CameraValues.h"
#include "simulator/VirtualCamera.h"
#include "tests/simulator/CameraTalk.h"
#include "tests/simulator/ResultBytes.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QSet>
#include <QTest>

#include <array>

using namespace nubo::simulator;

namespace {

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
    TRY_VERIFY(ask(camera, command("3150")).first().contains("2d9f3301"));
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

const TestSubject registered = subjectWithoutApplication<CameraSettingsTest>();
#include "CameraSettingsTest.moc"
