// SPDX-License-Identifier: MIT
#include "simulator/VirtualCamera.h"
#include "tests/simulator/CameraTalk.h"
#include "tests/simulator/ResultBytes.h"
#include "tests/support/TestSubject.h"

#include <QSet>
#include <QTest>

#include <algorithm>

using namespace nubo::simulator;

/// What the camera reports of itself, and what it does on command; golden bytes.
class CameraActionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void readingsAndActionsAnswer_data();
    void readingsAndActionsAnswer();
    void gpsInformationIsATextAndANumber();
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
};

void CameraActionsTest::readingsAndActionsAnswer_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("answer");
    QTest::newRow("recording state") << command("1050") << reply(SUCCESS, "01000000");
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

void CameraActionsTest::readingsAndActionsAnswer() {
    QFETCH(const QByteArray, request);
    VirtualCamera camera;
    QTEST(ask(camera, request).value(0), "answer");
}

void CameraActionsTest::gpsInformationIsATextAndANumber() {
    VirtualCamera camera;
    QVERIFY(camera.set("gps-info", "GPA"));
    QVERIFY(camera.set("gps-number", "5"));
    QCOMPARE(ask(camera, command("2050")),
             QByteArrayList{plainHex("0100 3412 1f000000 0000 0000 03000000 475041"
                                     "05000000 00000000 00000000")});
    // Without a text the number stays in its place.
    QVERIFY(camera.set("gps-info", ""));
    QCOMPARE(ask(camera, command("2050")),
             QByteArrayList{reply(SUCCESS, "00000000 00000000 05000000")});
}

void CameraActionsTest::joiningLinksToTheNetwork() {
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

void CameraActionsTest::joiningAHiddenNetworkLinksToo() {
    VirtualCamera camera;
    QVERIFY(camera.set("wifi-state", "1"));
    QCOMPARE(ask(camera, "0000 3412 19000000 0768 0000 01000000 68 00000000 00000000"),
             QByteArrayList{reply(SUCCESS)});
    QCOMPARE(camera.get("wifi-state"), "2");
    QCOMPARE(camera.get("wifi-ssid"), "h");
}

void CameraActionsTest::wrongJoinPacketsAreRefused_data() {
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

void CameraActionsTest::wrongJoinPacketsAreRefused() {
    QFETCH(const QByteArray, request);
    QFETCH(const QByteArray, result);
    VirtualCamera camera;
    QCOMPARE(ask(camera, request), QByteArrayList{reply(result)});
    QCOMPARE(camera.get("wifi-ssid"), "Harbour");
}

void CameraActionsTest::switchedOffWifiHasNoLink_data() {
    QTest::addColumn<QByteArray>("code");
    QTest::newRow("setting") << QByteArray("4758");
    QTest::newRow("action") << QByteArray("0968");
}

void CameraActionsTest::switchedOffWifiHasNoLink() {
    QFETCH(const QByteArray, code);
    VirtualCamera camera;
    QCOMPARE(ask(camera, command(code, "01000000")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0150")).value(0), reply(SUCCESS, "01000000"));
    QCOMPARE(ask(camera, command("4750")), QByteArrayList{reply(SUCCESS, "01000000")});
    QCOMPARE(ask(camera, command(code, "02000000")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0150")).value(0), reply(SUCCESS, "02000000"));
}

void CameraActionsTest::aCaptureNeedsRoomOnTheCard() {
    VirtualCamera camera;
    QVERIFY(camera.set("sd-total", "5000"));
    QVERIFY(camera.set("sd-used", "0"));
    QCOMPARE(ask(camera, command("0668")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0668")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0668")), QByteArrayList{reply(CARD_FULL)});
    QCOMPARE(camera.get("sd-used"), "4096");
}

void CameraActionsTest::aResetKeepsWhatTheFactoryWrote() {
    VirtualCamera camera;
    QVERIFY(camera.set("camera-name", "Tern"));
    QVERIFY(camera.set("timezone", "3"));
    QVERIFY(camera.set("serial-number", "7"));
    QCOMPARE(ask(camera, command("0468")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(camera.get("camera-name"), "Gull");
    QCOMPARE(camera.get("timezone"), "9");
    QCOMPARE(camera.get("serial-number"), "7");
}

void CameraActionsTest::powerOffIsWantedOnceAfterTheAnswerIsFetched() {
    VirtualCamera camera;
    QVERIFY(!camera.wantsPowerOff());
    tell(camera, command("0168"));
    QVERIFY(!camera.wantsPowerOff());
    QCOMPARE(answers(camera).size(), 1);
    QVERIFY(!camera.wantsRestart());
    QVERIFY(camera.wantsPowerOff());
    QVERIFY(!camera.wantsPowerOff());
}

void CameraActionsTest::networksOfAllKindsAreInReach() {
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

const TestSubject registered = subjectWithoutApplication<CameraActionsTest>();
#include "CameraActionsTest.moc"
