// SPDX-License-Identifier: MIT
#include "tests/simulator/CameraTalk.h"
#include "tests/support/TestSubject.h"

#include <QImage>
#include <QTest>

using namespace nubo::simulator;

namespace {

const QByteArray SUCCESS = "0000";
const QByteArray WRONG_LENGTH = "fdff";

ByteVector vectorOf(const QByteArray& hex) {
    const QByteArray raw = QByteArray::fromHex(hex);
    return {raw.begin(), raw.end()};
}

}  // namespace

/// Pictures, audio and the firmware image; golden bytes.
class CameraDataTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSmallPictureComesInOnePacket();
    void audioComesLikeAPicture();
    void theDefaultPictureIsAPictureThatDecodes();
    void noPictureHasOneEmptyDataPacket();
    void aLargePictureIsCutIntoPackets_data();
    void aLargePictureIsCutIntoPackets();
    void dataWaitsForItsTurn();
    void anImageIsKeptAndAnswered_data();
    void anImageIsKeptAndAnswered();
    void aWrongImageIsRefused_data();
    void aWrongImageIsRefused();
    void aCommandInPlaceOfTheImageIsAnswered();
    void pluggingInForgetsTheAnnouncement();
    void anImageOfNothingIsRefused();
    void appliedFirmwareKeepsTheVersion();
    void appliedFirmwareBringsTheNextVersionWhenTheCameraComesBack();
    void appliedFirmwareOutlivesAPulledCable();
};

void CameraDataTest::aSmallPictureComesInOnePacket() {
    VirtualCamera camera;
    camera.setPicture(vectorOf("ffd8ff"));
    const QByteArrayList expected = {reply(SUCCESS, "03000000"),
                                     plainHex("0200 3412 03000000 03000000 ffd8ff")};
    QCOMPARE(ask(camera, command("0130")), expected);
}

void CameraDataTest::audioComesLikeAPicture() {
    VirtualCamera camera;
    camera.setAudio(vectorOf("5249"));
    const QByteArrayList expected = {reply(SUCCESS, "02000000"),
                                     plainHex("0200 3412 02000000 02000000 5249")};
    QCOMPARE(ask(camera, command("0230")), expected);
}

void CameraDataTest::theDefaultPictureIsAPictureThatDecodes() {
    VirtualCamera camera;
    const QByteArrayList packets = ask(camera, command("0130"));
    constexpr qsizetype HEAD_DIGITS = 24;
    const QByteArray bytes = QByteArray::fromHex(packets.mid(1).join().mid(HEAD_DIGITS));
    QCOMPARE(QImage::fromData(bytes, "jpg").size(), QSize(640, 480));
}

void CameraDataTest::noPictureHasOneEmptyDataPacket() {
    VirtualCamera camera;
    camera.setPicture({});
    const QByteArrayList expected = {reply(SUCCESS, "00000000"),
                                     plainHex("0200 3412 00000000 00000000")};
    QCOMPARE(ask(camera, command("0130")), expected);
}

void CameraDataTest::aLargePictureIsCutIntoPackets_data() {
    QTest::addColumn<std::string>("size");
    QTest::addColumn<QByteArray>("head");
    QTest::addColumn<QList<qsizetype>>("sizes");
    QTest::newRow("one full packet")
        << std::string("1012") << QByteArray("f4030000 f4030000") << QList<qsizetype>{32, 1024};
    QTest::newRow("one byte more")
        << std::string("1013") << QByteArray("f5030000 f4030000") << QList<qsizetype>{32, 1024, 1};
    QTest::newRow("two full packets") << std::string("2036") << QByteArray("f4070000 f4030000")
                                      << QList<qsizetype>{32, 1024, 1024};
    QTest::newRow("three packets") << std::string("2037") << QByteArray("f5070000 f4030000")
                                   << QList<qsizetype>{32, 1024, 1024, 1};
}

void CameraDataTest::aLargePictureIsCutIntoPackets() {
    QFETCH(const std::string, size);
    QFETCH(const QByteArray, head);
    VirtualCamera camera;
    QVERIFY(camera.set("picture-size", size));
    QCOMPARE(camera.get("picture-size"), size);
    const QByteArrayList packets = ask(camera, command("0130"));
    QList<qsizetype> sizes;
    for (const QByteArray& packet : packets) {
        sizes.append(packet.size() / 2);
    }
    QTEST(sizes, "sizes");
    const QByteArray all = packets.mid(1).join();
    const QByteArray expectedHead = plainHex("0200 3412" + head);
    QCOMPARE(all.left(expectedHead.size()), expectedHead);
    const SharedBytes picture = camera.state().data.picture;
    const QByteArray raw(reinterpret_cast<const char*>(picture->data()),
                         static_cast<qsizetype>(picture->size()));
    QCOMPARE(all.mid(expectedHead.size()), raw.toHex());
}

void CameraDataTest::dataWaitsForItsTurn() {
    VirtualCamera camera;
    camera.setPicture(vectorOf("01"));
    tell(camera, command("0130"));
    camera.setPicture(vectorOf("0203"));
    tell(camera, command("0130"));
    const QByteArrayList expected = {
        reply(SUCCESS, "01000000"), plainHex("0200 3412 01000000 01000000 01"),
        reply(SUCCESS, "02000000"), plainHex("0200 3412 02000000 02000000 0203")};
    QCOMPARE(answers(camera), expected);
}

void CameraDataTest::anImageIsKeptAndAnswered_data() {
    QTest::addColumn<QByteArray>("announced");
    QTest::addColumn<QByteArrayList>("transfers");
    QTest::addColumn<QByteArray>("image");
    const QByteArray half(1024, 'a');
    QTest::newRow("in one") << QByteArray("03000000") << QByteArrayList{"0200 3412 03000000 010203"}
                            << QByteArray("010203");
    QTest::newRow("a command inside")
        << QByteArray("20000000") << QByteArrayList{"0200 3412 20000000" + command("3750")}
        << plainHex(command("3750"));
    QTest::newRow("in two") << QByteArray("f9030000")
                            << QByteArrayList{"0200 3412 f9030000" + half + QByteArray(1008, 'b'),
                                              "cc"}
                            << half + QByteArray(1008, 'b') + "cc";
    QTest::newRow("in three") << QByteArray("ee050000")
                              << QByteArrayList{"0200 3412 ee050000" + QByteArray(1008, 'a'), half,
                                                half.left(4 * 253 - 8)}
                              << QByteArray(1008, 'a') + half + half.left(1004);
}

void CameraDataTest::anImageIsKeptAndAnswered() {
    QFETCH(const QByteArray, announced);
    QFETCH(const QByteArrayList, transfers);
    QFETCH(const QByteArray, image);
    VirtualCamera camera;
    QCOMPARE(camera.get("firmware"), "0 2166136261");
    QCOMPARE(ask(camera, command("0120", announced)), QByteArrayList());
    for (const QByteArray& transfer : transfers) {
        QCOMPARE(answers(camera), QByteArrayList());
        tell(camera, transfer);
    }
    QCOMPARE(answers(camera), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(*camera.firmware(), vectorOf(image));
    QVERIFY(camera.get("firmware")->starts_with(std::to_string(image.size() / 2) + " "));
    QCOMPARE(ask(camera, command("0220", "02000000")), QByteArrayList{reply(SUCCESS)});
}

void CameraDataTest::aWrongImageIsRefused_data() {
    QTest::addColumn<QByteArray>("transfer");
    QTest::newRow("other size") << QByteArray("0200 3412 02000000 0102");
    QTest::newRow("too short") << QByteArray("0200 3412 03000000 0102");
    QTest::newRow("too long") << QByteArray("0200 3412 03000000 01020304");
    QTest::newRow("other id") << QByteArray("0200 3312 03000000 010203");
    QTest::newRow("head cut") << QByteArray("0200 3412 03");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("other type") << QByteArray("0100 3412 03000000 010203");
}

void CameraDataTest::aWrongImageIsRefused() {
    QFETCH(const QByteArray, transfer);
    VirtualCamera camera;
    QCOMPARE(ask(camera, command("0120", "03000000")), QByteArrayList());
    QCOMPARE(ask(camera, transfer), QByteArrayList{reply(WRONG_LENGTH)});
    QVERIFY(camera.firmware()->empty());
    QCOMPARE(ask(camera, command("3650")), QByteArrayList{reply(SUCCESS, "01000000")});
}

void CameraDataTest::aCommandInPlaceOfTheImageIsAnswered() {
    VirtualCamera camera;
    tell(camera, command("0120", "03000000"));
    QCOMPARE(ask(camera, command("3650")), QByteArrayList{reply(SUCCESS, "01000000")});
    QCOMPARE(ask(camera, "0200 3412 03000000 010203"), QByteArrayList{reply("fcff")});
}

void CameraDataTest::pluggingInForgetsTheAnnouncement() {
    VirtualCamera camera;
    tell(camera, command("0120", "03000000"));
    camera.plugged();
    QCOMPARE(ask(camera, "0200 3412 03000000 010203"), QByteArrayList{reply("fcff")});
}

void CameraDataTest::anImageOfNothingIsRefused() {
    VirtualCamera camera;
    QCOMPARE(ask(camera, command("0120")), QByteArrayList{reply("fbff")});
}

void CameraDataTest::appliedFirmwareKeepsTheVersion() {
    VirtualCamera camera;
    tell(camera, command("0120", "03000000"));
    QCOMPARE(ask(camera, "0200 3412 03000000 010203"), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0220", "02000000")), QByteArrayList{reply(SUCCESS)});
    QVERIFY(!camera.wantsRestart());
    camera.plugged();
    QCOMPARE(camera.get("firmware-version"), "1.00");
}

void CameraDataTest::appliedFirmwareBringsTheNextVersionWhenTheCameraComesBack() {
    VirtualCamera camera;
    QVERIFY(camera.set("firmware-next", "2.10"));
    QCOMPARE(ask(camera, command("0220", "02000000")), QByteArrayList{reply("faff")});
    camera.plugged();
    QCOMPARE(camera.get("firmware-version"), "1.00");

    tell(camera, command("0120", "03000000"));
    QCOMPARE(ask(camera, "0200 3412 03000000 010203"), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(ask(camera, command("0220", "02000000")), QByteArrayList{reply(SUCCESS)});
    QCOMPARE(camera.get("firmware-version"), "1.00");
    QVERIFY(camera.wantsRestart());
    camera.plugged();
    QCOMPARE(camera.get("firmware-version"), "2.10");
    QCOMPARE(camera.get("firmware-next"), "");
    QCOMPARE(*camera.firmware(), vectorOf("010203"));
    QCOMPARE(ask(camera, command("3a50")),
             QByteArrayList{plainHex("0100 3412 20000000 0000 0000 04000000 322e3130"
                                     "00000000 00000000 00000000")});
}

void CameraDataTest::appliedFirmwareOutlivesAPulledCable() {
    VirtualCamera camera;
    QVERIFY(camera.set("firmware-next", "2.10"));
    tell(camera, command("0120", "03000000"));
    tell(camera, "0200 3412 03000000 010203");
    tell(camera, command("0220", "02000000"));
    camera.plugged();
    QVERIFY(!camera.wantsRestart());
    QCOMPARE(camera.get("firmware-version"), "2.10");
}

const TestSubject registered = subjectWithoutApplication<CameraDataTest>();
#include "CameraDataTest.moc"
