// SPDX-License-Identifier: MIT
#include "simulator/VirtualCamera.h"

#include "simulator/CameraCommands.h"
#include "simulator/CameraItems.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QElapsedTimer>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <array>

namespace nubo::simulator {

namespace {

// Type, id 0x1234, length 32, code and reserved word, and five parameters.
const QByteArray NO_PARAMETERS = "00000000 00000000 00000000 00000000 00000000";
const QByteArray PLAIN = "0100 3412 20000000 0000 0000 ";
const QByteArray SUCCESS = PLAIN + NO_PARAMETERS;

// Each item takes one of them that it does not have yet.
constexpr std::array<std::string_view, 7> SAMPLE_VALUES = {
    "2", "3", "on", "off", "10.1.2.3", "2014/03/09 07:05:01", "DE"};

QByteArray command(const QByteArray& code) {
    return "0000 3412 20000000 " + code + " 0000 " + NO_PARAMETERS;
}

std::vector<std::uint8_t> bytes(const QByteArray& hex) {
    const QByteArray raw = QByteArray::fromHex(hex);
    return {raw.begin(), raw.end()};
}

QByteArray plainHex(const QByteArray& hex) {
    return QByteArray::fromHex(hex).toHex();
}

QByteArrayList answers(VirtualCamera& camera) {
    QByteArrayList packets;
    while (const auto packet = camera.send()) {
        const QByteArray raw(reinterpret_cast<const char*>(packet->data()),
                             static_cast<qsizetype>(packet->size()));
        packets.append(raw.toHex());
    }
    return packets;
}

}  // namespace

class VirtualCameraTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void answersWithGoldenBytes_data();
    void answersWithGoldenBytes();
    void answersNothingToWhatHasNoId_data();
    void answersNothingToWhatHasNoId();
    void toldValuesTravelInTheAnswer();
    void emptyListOfAccessPointsHasNoFollowUp();
    void formattingEmptiesTheCardOnly();
    void resettingPutsSettingsBackButNotCardAndBattery();
    void restartIsWantedOnceAfterTheAnswerIsFetched();
    void pluggingInForgetsAnswersAndRestart();
    void resetRestartsWhenSoSet();
    void answersComeAfterTheDelay();
    void commandCodesAreKeptUntilTaken();
    void everyItemTakesItsOwnValue();
    void itemsRefuseWhatIsNoValue_data();
    void itemsRefuseWhatIsNoValue();
    void commandsAreFoundByTheirCode();
};

void VirtualCameraTest::answersWithGoldenBytes_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArrayList>("replies");

    QTest::newRow("battery") << command("3750")
                             << QByteArrayList{PLAIN +
                                               "01000000 55000000 00000000 00000000 00000000"};
    QTest::newRow("SD card") << command("3950")
                             << QByteArrayList{PLAIN +
                                               "00000000 002c7600 00000000 66a21700 03000000"};
    QTest::newRow("Wi-Fi information")
        << command("0150")
        << QByteArrayList{PLAIN + "02000000 00000000 00000000 00000000 00000000",
                          "0100 3412 26000000 0000 0000 00000000 07000000 486172626f7572 07000000 "
                          "486172626f7572",
                          PLAIN + "00000000 06000000 04000000 00000000 48000000"};
    QTest::newRow("access points")
        << command("0250")
        << QByteArrayList{
               PLAIN + "03000000 00000000 00000000 00000000 00000000",
               "0100 3412 1f000000 0000 0000 01000000 07000000 486172626f7572 00000000",
               PLAIN + "01000000 06000000 04000000 00000000 48000000",
               "0100 3412 20000000 0000 0000 02000000 08000000 576f726b73686f70 00000000",
               PLAIN + "02000000 01000000 02000000 00000000 30000000",
               "0100 3412 1d000000 0000 0000 03000000 05000000 4775657374 00000000",
               PLAIN + "03000000 0b000000 00000000 00000000 17000000"};
    QTest::newRow("format") << command("0368") << QByteArrayList{SUCCESS};
    QTest::newRow("reset settings") << command("0468") << QByteArrayList{SUCCESS};
    QTest::newRow("restart") << command("0268") << QByteArrayList{SUCCESS};

    const QByteArray unknown = "0100 3412 20000000 fcff 0000 " + NO_PARAMETERS;
    const QByteArray wrongLength = "0100 3412 20000000 fdff 0000 " + NO_PARAMETERS;
    QTest::newRow("unknown code") << command("ff7f") << QByteArrayList{unknown};
    QTest::newRow("code zero") << command("0000") << QByteArrayList{unknown};
    QTest::newRow("data that no command announced")
        << QByteArray("0200 3412 02000000 abcd") << QByteArrayList{unknown};
    QTest::newRow("header cut") << QByteArray("0000 3412 0a000000 3750")
                                << QByteArrayList{wrongLength};
    QTest::newRow("id only") << QByteArray("0000 3412") << QByteArrayList{wrongLength};
    QTest::newRow("length field too small")
        << QByteArray("0000 3412 1f000000 3750 0000 " + NO_PARAMETERS)
        << QByteArrayList{wrongLength};
    QTest::newRow("length field too large")
        << QByteArray("0000 3412 ffffffff 3750 0000 " + NO_PARAMETERS)
        << QByteArrayList{wrongLength};
    QTest::newRow("too long for the command")
        << QByteArray("0000 3412 21000000 3750 0000 " + NO_PARAMETERS + "00")
        << QByteArrayList{wrongLength};
    QTest::newRow("parameters cut")
        << QByteArray("0000 3412 10000000 3750 0000 00000000") << QByteArrayList{wrongLength};
}

void VirtualCameraTest::answersWithGoldenBytes() {
    QFETCH(QByteArray, request);
    QFETCH(QByteArrayList, replies);
    for (QByteArray& reply : replies) {
        reply = plainHex(reply);
    }
    VirtualCamera camera;
    CameraState state = camera.state();
    state.accessPoints.resize(3);
    camera.setState(state);
    camera.receive(bytes(request));
    QCOMPARE(answers(camera), replies);
}

void VirtualCameraTest::answersNothingToWhatHasNoId_data() {
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("one byte") << QByteArray("00");
    QTest::newRow("half an id") << QByteArray("000034");
}

void VirtualCameraTest::answersNothingToWhatHasNoId() {
    QFETCH(QByteArray, request);
    VirtualCamera camera;
    camera.receive(bytes(request));
    QCOMPARE(answers(camera), QByteArrayList());
}

void VirtualCameraTest::toldValuesTravelInTheAnswer() {
    VirtualCamera camera;
    QVERIFY(camera.set("sd-total", "68719476737"));
    QVERIFY(camera.set("sd-used", "4294967296"));
    QVERIFY(camera.set("wifi-rssi", "-5"));
    QVERIFY(camera.set("wifi-ssid", "a b"));
    QVERIFY(camera.set("wifi-ssid-2", ""));
    camera.receive(bytes(command("3950")));
    camera.receive(bytes(command("0150")));
    const QByteArrayList packets = answers(camera);
    QCOMPARE(packets.value(0), plainHex("0100 3412 20000000 0000 0000"
                                        "10000000 01000000 01000000 00000000 03000000"));
    QCOMPARE(packets.value(2), plainHex("0100 3412 1b000000 0000 0000 00000000"
                                        "03000000 612062 00000000"));
    QCOMPARE(packets.value(3), plainHex("0100 3412 20000000 0000 0000"
                                        "00000000 06000000 04000000 00000000 fbffffff"));
}

void VirtualCameraTest::emptyListOfAccessPointsHasNoFollowUp() {
    VirtualCamera camera;
    CameraState state = camera.state();
    state.accessPoints.clear();
    camera.setState(state);
    camera.receive(bytes(command("0250")));
    QCOMPARE(answers(camera), QByteArrayList{plainHex(SUCCESS)});
}

void VirtualCameraTest::formattingEmptiesTheCardOnly() {
    VirtualCamera camera;
    camera.receive(bytes(command("0368")));
    QCOMPARE(camera.state().sdCard.used, 0U);
    QCOMPARE(camera.state().sdCard.total, 7744512U);
    QCOMPARE(camera.state().sdCard.fileSystem, 3U);
}

void VirtualCameraTest::resettingPutsSettingsBackButNotCardAndBattery() {
    VirtualCamera camera;
    QVERIFY(camera.set("wifi-channel", "11"));
    QVERIFY(camera.set("wifi-ssid", "Elsewhere"));
    QVERIFY(camera.set("battery", "12"));
    QVERIFY(camera.set("sd-used", "34"));
    camera.receive(bytes(command("0468")));
    QCOMPARE(camera.state().settings.wifi.channel, 6U);
    QCOMPARE(camera.state().settings.wifi.ssid, std::string("Harbour"));
    QCOMPARE(camera.state().battery.charge, 12U);
    QCOMPARE(camera.state().sdCard.used, 34U);
}

void VirtualCameraTest::restartIsWantedOnceAfterTheAnswerIsFetched() {
    VirtualCamera camera;
    QVERIFY(!camera.wantsRestart());
    camera.receive(bytes(command("0268")));
    QVERIFY(!camera.wantsRestart());
    QCOMPARE(answers(camera).size(), 1);
    QVERIFY(camera.wantsRestart());
    QVERIFY(!camera.wantsRestart());
}

void VirtualCameraTest::pluggingInForgetsAnswersAndRestart() {
    VirtualCamera camera;
    camera.receive(bytes(command("0268")));
    camera.plugged();
    QCOMPARE(answers(camera), QByteArrayList());
    QVERIFY(!camera.wantsRestart());
}

void VirtualCameraTest::resetRestartsWhenSoSet() {
    VirtualCamera camera;
    camera.receive(bytes(command("0468")));
    QCOMPARE(answers(camera).size(), 1);
    QVERIFY(!camera.wantsRestart());
    QVERIFY(camera.set("restart-after-reset", "on"));
    camera.receive(bytes(command("0468")));
    QCOMPARE(answers(camera).size(), 1);
    QVERIFY(camera.wantsRestart());
}

void VirtualCameraTest::answersComeAfterTheDelay() {
    VirtualCamera camera;
    QVERIFY(camera.set("answer-delay", "60"));
    QElapsedTimer timer;
    timer.start();
    camera.receive(bytes(command("3750")));
    // Each look takes what has come.
    qsizetype come = 0;
    TRY_VERIFY((come += answers(camera).size()) == 1);
    QVERIFY(timer.elapsed() >= 60);
}

void VirtualCameraTest::commandCodesAreKeptUntilTaken() {
    VirtualCamera camera;
    camera.receive(bytes(command("3750")));
    camera.receive(bytes(command("ff7f")));
    QCOMPARE(camera.takeCommandCodes(), (std::vector<std::uint16_t>{0x5037, 0x7FFF}));
    QVERIFY(camera.takeCommandCodes().empty());
    for (std::size_t i = 0; i <= VirtualCamera::CODES_KEPT; ++i) {
        camera.receive(bytes(command("3750")));
    }
    QCOMPARE(camera.takeCommandCodes().size(), VirtualCamera::CODES_KEPT);
}

void VirtualCameraTest::everyItemTakesItsOwnValue() {
    const QSet<std::string_view> moving = {"time", "sd-free"};
    const QSet<std::string_view> onlyTold = {"firmware", "sd-free"};
    for (const CameraItem& changed : cameraItems()) {
        VirtualCamera camera;
        const CameraState before = camera.state();
        const bool taken = std::ranges::any_of(SAMPLE_VALUES, [&](const std::string_view value) {
            return changed.get(before) != value && camera.set(changed.name, value) &&
                   (moving.contains(changed.name) || camera.get(changed.name) == value);
        });
        QVERIFY2(taken != onlyTold.contains(changed.name), changed.name.data());
        QCOMPARE(changed.allowed.empty(), onlyTold.contains(changed.name));
        for (const CameraItem& other : cameraItems()) {
            if (other.name != changed.name && !moving.contains(other.name)) {
                QCOMPARE(camera.get(other.name), std::optional(other.get(before)));
            }
        }
    }
}

void VirtualCameraTest::itemsRefuseWhatIsNoValue_data() {
    QTest::addColumn<std::string>("item");
    QTest::addColumn<std::string>("value");
    QTest::newRow("no such item") << std::string("warp") << std::string("1");
    QTest::newRow("no number") << std::string("battery") << std::string("full");
    QTest::newRow("nothing") << std::string("battery") << std::string();
    QTest::newRow("number and more") << std::string("battery") << std::string("85%");
    QTest::newRow("negative") << std::string("battery") << std::string("-1");
    QTest::newRow("too large") << std::string("battery") << std::string("4294967296");
    QTest::newRow("over 100 percent") << std::string("battery") << std::string("101");
    QTest::newRow("no link state") << std::string("wifi-state") << std::string("0");
    QTest::newRow("no encryption") << std::string("wifi-encryption") << std::string("3");
    QTest::newRow("no signal") << std::string("wifi-rssi") << std::string("-101");
    QTest::newRow("long name") << std::string("wifi-ssid") << std::string(33, 's');
    QTest::newRow("no file system") << std::string("sd-filesystem") << std::string("4");
    QTest::newRow("no log format") << std::string("gps-log-format") << std::string("0");
    QTest::newRow("no period") << std::string("interval-period") << std::string("0");
    QTest::newRow("no switch") << std::string("interval") << std::string("yes");
    QTest::newRow("no country") << std::string("country") << std::string("d1");
    QTest::newRow("no mode") << std::string("wifi-mode") << std::string("3");
    QTest::newRow("no address") << std::string("infra-address") << std::string("1.2.3.256");
    QTest::newRow("only told") << std::string("firmware") << std::string("1");
    QTest::newRow("long delay") << std::string("answer-delay") << std::string("60001");
}

void VirtualCameraTest::itemsRefuseWhatIsNoValue() {
    QFETCH(std::string, item);
    QFETCH(std::string, value);
    VirtualCamera camera;
    const auto before = camera.get(item);
    QVERIFY(!camera.set(item, value));
    QCOMPARE(camera.get(item), before);
}

void VirtualCameraTest::commandsAreFoundByTheirCode() {
    for (const CameraCommand& command : cameraCommands()) {
        QCOMPARE(cameraCommand(command.code), &command);
    }
    QCOMPARE(cameraCommand(0x50FF), nullptr);
}

}  // namespace nubo::simulator

const TestSubject registered = subjectWithoutApplication<nubo::simulator::VirtualCameraTest>();
#include "VirtualCameraTest.moc"
