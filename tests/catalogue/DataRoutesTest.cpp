// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/RequestDispatcher.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/catalogue/RouteMessages.h"
#include "tests/support/FakeCameraAccess.h"
#include "tests/support/TestSubject.h"

#include <QBuffer>
#include <QImage>
#include <QTest>

namespace {

/// A picture as a camera would send it: 16 x 8, all of one red.
QByteArray redJpeg() {
    QImage picture(16, 8, QImage::Format_RGB32);
    picture.fill(QColor(200, 30, 20));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    return picture.save(&buffer, "jpg", 95) ? bytes : QByteArray();
}

/// @p value in the order of the wire.
QByteArray count(qsizetype value) {
    const QByteArray big = QByteArray::number(value, 16).rightJustified(8, '0');
    return big.mid(6, 2) + big.mid(4, 2) + big.mid(2, 2) + big.mid(0, 2);
}

/// The conversation that brings @p data: the first @p firstSize bytes behind the head, the rest in
/// packets of @p restSize bytes.
Script brings(const char* code, const QByteArray& data, qsizetype firstSize, qsizetype restSize) {
    Script script{
        writes(plainRequest(code)), reads(plainAnswer(count(data.size()))),
        reads("0200 <id>" + count(data.size()) + count(firstSize) + data.left(firstSize).toHex())};
    for (qsizetype at = firstSize; at < data.size(); at += restSize) {
        script.append(reads(data.mid(at, restSize).toHex()));
    }
    return script;
}

}  // namespace

/// The requests that move blocks of data: pictures and sound come in, firmware goes out.
class DataRoutesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPictureIsDecoded();
    void aBrokenPictureComesAsANullPicture_data();
    void aBrokenPictureComesAsANullPicture();
    void soundComesAsItsBytes_data();
    void soundComesAsItsBytes();
    void anInterruptedBlockShowsNothing_data();
    void anInterruptedBlockShowsNothing();
    void dataAreAwaitedLongerThanPlainAnswers();

    void firmwareFollowsItsSize_data();
    void firmwareFollowsItsSize();
    void firmwareWithoutBytesIsRefusedUnsent_data();
    void firmwareWithoutBytesIsRefusedUnsent();
    void aFailedImageComesBackAsAPlainResult();

    void rawDataAreReadWithoutAResult_data();
    void rawDataAreReadWithoutAResult();

private:
    [[nodiscard]] VX_CMD dispatch(FakeCameraAccess& camera, const QUuid& request,
                                  const QVariantList& arguments = {});

    QObject m_page;
};

/// The one message that answers @p request.
VX_CMD DataRoutesTest::dispatch(FakeCameraAccess& camera, const QUuid& request,
                                const QVariantList& arguments) {
    dispatchRequest(requestMessage(request, arguments, &m_page, camera.camera()), camera);
    if (const QString complaint = camera.port().complaint(); !complaint.isEmpty()) {
        QTest::qFail(qPrintable(complaint), __FILE__, __LINE__);
    }
    return camera.messages().size() == 1 ? camera.messages().first() : VX_CMD();
}

void DataRoutesTest::aPictureIsDecoded() {
    const QByteArray jpeg = redJpeg();
    QVERIFY(jpeg.size() > 200);
    FakeCameraAccess camera(brings("0130", jpeg, 100, 64));
    const VX_CMD message = dispatch(camera, USB_NUBO_CMD_REQ_JPEG);
    QCOMPARE(message[QStringLiteral("CMD")].toUuid(), USB_CMD_RES_JPEG);
    QCOMPARE(message[QStringLiteral("Sender")].value<QObject*>(), &m_page);
    QCOMPARE(message[QStringLiteral("PARAM1")].value<void*>(), camera.camera());
    QCOMPARE(message[QStringLiteral("PARAM2")].metaType(), QMetaType::fromType<QImage>());

    const auto picture = message[QStringLiteral("PARAM2")].value<QImage>();
    QCOMPARE(picture.size(), QSize(16, 8));
    const QColor colour = picture.pixelColor(8, 4);
    QVERIFY(std::abs(colour.red() - 200) < 8);
    QVERIFY(std::abs(colour.green() - 30) < 8);
    QVERIFY(std::abs(colour.blue() - 20) < 8);
}

void DataRoutesTest::aBrokenPictureComesAsANullPicture_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("no picture") << QByteArray("not a picture at all");
    QTest::newRow("a picture of another format") << QByteArray("P6 1 1 255 \xC8\x1E\x14");
}

void DataRoutesTest::aBrokenPictureComesAsANullPicture() {
    QFETCH(QByteArray, bytes);
    FakeCameraAccess camera(brings("0130", bytes, bytes.size(), 64));
    const VX_CMD message = dispatch(camera, USB_NUBO_CMD_REQ_JPEG);
    QCOMPARE(message, requestMessage(USB_CMD_RES_JPEG, {QImage()}, &m_page, camera.camera()));
}

void DataRoutesTest::soundComesAsItsBytes_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<qsizetype>("firstSize");
    QTest::newRow("none") << QByteArray() << qsizetype{0};
    QTest::newRow("in one packet") << QByteArray("RIFF\0\xff", 6) << qsizetype{6};
    QTest::newRow("head alone first") << QByteArray("RIFFdata") << qsizetype{0};
    QTest::newRow("in many packets") << QByteArray("0123456789").repeated(700) << qsizetype{1012};
}

void DataRoutesTest::soundComesAsItsBytes() {
    QFETCH(QByteArray, bytes);
    QFETCH(qsizetype, firstSize);
    FakeCameraAccess camera(brings("0230", bytes, firstSize, 1024));
    const VX_CMD message = dispatch(camera, USB_NUBO_CMD_REQ_AUDIO);
    QCOMPARE(message[QStringLiteral("PARAM2")].metaType(), QMetaType::fromType<QByteArray>());
    QCOMPARE(message, requestMessage(USB_CMD_RES_AUDIO, {bytes}, &m_page, camera.camera()));
}

void DataRoutesTest::anInterruptedBlockShowsNothing_data() {
    QTest::addColumn<QUuid>("request");
    QTest::addColumn<Script>("script");
    QTest::addColumn<unsigned short>("result");
    const auto rows = [](const char* name, const QUuid& request, const char* code) {
        const stScriptRow ask = writes(plainRequest(code));
        const stScriptRow announce = reads(plainAnswer("08000000"));
        const auto add = [&](const char* fault, const stScriptRow& fault1, unsigned short result) {
            QTest::addRow("%s: %s", name, fault)
                << request << Script{ask, announce, fault1} << result;
        };
        add("silent", fails(0xEF03), 0xEF03);
        add("gone", fails(0xEF00), 0xEF00);
        add("other size", reads("0200 <id> 09000000 01000000 61"), 0xEF04);
        add("other transaction", reads("0200 <other> 08000000 01000000 61"), 0xEF04);
        QTest::addRow("%s: stops half-way", name)
            << request
            << Script{ask, announce, reads("0200 <id> 08000000 01000000 61"), fails(0xEF03)}
            << static_cast<unsigned short>(0xEF03);
    };
    rows("picture", USB_NUBO_CMD_REQ_JPEG, "0130");
    rows("sound", USB_NUBO_CMD_REQ_AUDIO, "0230");
}

void DataRoutesTest::anInterruptedBlockShowsNothing() {
    QFETCH(QUuid, request);
    QFETCH(Script, script);
    QFETCH(unsigned short, result);
    FakeCameraAccess camera(script);
    const VX_CMD message = dispatch(camera, request);
    QCOMPARE(message, resultMessage(request, camera.camera(), result));
}

void DataRoutesTest::dataAreAwaitedLongerThanPlainAnswers() {
    FakeCameraAccess camera(brings("0230", "abcd", 2, 2));
    QVERIFY(!dispatch(camera, USB_NUBO_CMD_REQ_AUDIO).isEmpty());
    QCOMPARE(camera.port().writeTimeouts(), QList<int>{1000});
    QCOMPARE(camera.port().readTimeouts(), (QList<int>{3000, 1000, 1000}));
}

void DataRoutesTest::firmwareFollowsItsSize_data() {
    QTest::addColumn<QByteArray>("image");
    QTest::addColumn<QByteArray>("size");
    QTest::newRow("one byte") << QByteArray(1, '\0') << QByteArray("01000000");
    QTest::newRow("more than a read holds") << QByteArray(3000, '\x5a') << QByteArray("b80b0000");
    QTest::newRow("1 MiB") << QByteArray(0x100000, '\xa5') << QByteArray("00001000");
}

void DataRoutesTest::firmwareFollowsItsSize() {
    QFETCH(QByteArray, image);
    QFETCH(QByteArray, size);
    FakeCameraAccess camera({writes(plainRequest("0120", size)),
                             writes("0200 <id>" + size + image.toHex()), reads(plainAnswer())});
    const VX_CMD message = dispatch(camera, USB_NUBO_CMD_EXEC_FWUPDATEDATA, {image});
    QCOMPARE(message, resultMessage(USB_NUBO_CMD_EXEC_FWUPDATEDATA, camera.camera(), 0));
}

void DataRoutesTest::firmwareWithoutBytesIsRefusedUnsent_data() {
    QTest::addColumn<QVariantList>("arguments");
    QTest::newRow("empty") << QVariantList{QByteArray("")};
    QTest::newRow("null") << QVariantList{QByteArray()};
    QTest::newRow("missing") << QVariantList{};
    QTest::newRow("of another type") << QVariantList{QSize(1, 2)};
}

void DataRoutesTest::firmwareWithoutBytesIsRefusedUnsent() {
    QFETCH(QVariantList, arguments);
    FakeCameraAccess camera({});
    const VX_CMD message = dispatch(camera, USB_NUBO_CMD_EXEC_FWUPDATEDATA, arguments);
    QCOMPARE(message, resultMessage(USB_NUBO_CMD_EXEC_FWUPDATEDATA, camera.camera(), 0xEF01));
    QVERIFY(camera.port().transfers().isEmpty());
}

void DataRoutesTest::aFailedImageComesBackAsAPlainResult() {
    FakeCameraAccess camera(
        {writes(plainRequest("0120", "02000000")), writes("0200 <id> 02000000 6162", 0xEF02)});
    const VX_CMD message = dispatch(camera, USB_NUBO_CMD_EXEC_FWUPDATEDATA, {QByteArray("ab")});
    QCOMPARE(message, resultMessage(USB_NUBO_CMD_EXEC_FWUPDATEDATA, camera.camera(), 0xEF02));
}

void DataRoutesTest::rawDataAreReadWithoutAResult_data() {
    QTest::addColumn<bool>("hasCamera");
    QTest::newRow("a camera") << true;
    QTest::newRow("none") << false;
}

void DataRoutesTest::rawDataAreReadWithoutAResult() {
    QFETCH(bool, hasCamera);
    FakeCameraAccess camera({});
    void* const controller = hasCamera ? camera.camera() : nullptr;
    dispatchRequest(
        requestMessage(USB_CMD_SEND_DATA, {QByteArray("not written")}, &m_page, controller),
        camera);
    QCOMPARE(camera.rawReads(), QList<void*>{controller});
    QVERIFY(camera.port().transfers().isEmpty());
    QVERIFY(camera.messages().isEmpty());
}

const TestSubject registered = subjectWithoutScreen<DataRoutesTest>();
#include "DataRoutesTest.moc"
