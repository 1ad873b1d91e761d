// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/DataPackets.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"

#include <QBuffer>
#include <QImage>
#include <QTest>

#include <algorithm>
#include <random>

using namespace nubo::simulator;

namespace {

constexpr qsizetype SIZE = 1024 * 1024;

/// Bytes in which nothing repeats, so that a packet that is lost, doubled or swapped shows.
QByteArray noise(qsizetype size) {
    std::mt19937 generator(1);  // NOLINT: the same bytes in every run
    QByteArray bytes(size, Qt::Uninitialized);
    std::ranges::generate(bytes, [&generator] { return static_cast<char>(generator()); });
    return bytes;
}

/// A small picture.
QImage drawing() {
    QImage picture(64, 48, QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            picture.setPixelColor(x, y, QColor(x * 4, y * 5, 90));
        }
    }
    return picture;
}

/// The drawing as a JPEG file of @p size bytes, all but a few of them in comments between the start
/// of the file and its picture.
QByteArray largeJpeg(qsizetype size) {
    constexpr qsizetype START = 2;          // bytes of the marker of the start
    constexpr qsizetype COMMENT_HEAD = 4;   // bytes of a comment's marker and length
    constexpr qsizetype LONGEST = 0xFFFF;   // of a comment, its length included
    constexpr qsizetype SHORTEST_REST = 8;  // so that the last comment has room for its head
    QByteArray file;
    QBuffer buffer(&file);
    if (!buffer.open(QIODevice::WriteOnly) || !drawing().save(&buffer, "jpg", 95)) {
        return {};
    }
    const QByteArray text = noise(size);
    QByteArray comments;
    qsizetype left = size - file.size();
    while (left > 0) {
        qsizetype length = std::min(left, LONGEST + 2);
        if (left - length > 0 && left - length < SHORTEST_REST) {
            length -= SHORTEST_REST;
        }
        const qsizetype counted = length - 2;
        comments += "\xFF\xFE";
        comments += static_cast<char>(counted >> 8);
        comments += static_cast<char>(counted);
        comments += text.mid(comments.size(), length - COMMENT_HEAD);
        left -= length;
    }
    return file.insert(START, comments);
}

ByteVector vectorOf(const QByteArray& bytes) {
    return {bytes.begin(), bytes.end()};
}

}  // namespace

/// Large blocks in both directions, from message to message: nothing is lost, doubled or swapped on
/// the way. LargeDataTest moves larger ones, past the emulated bus and its real time.
class LargeTransfersTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_bench.ui.forgetArrivals(); }

    void aPictureIsReadByteForByte();
    void aPictureIsDecodedFromAllItsBytes();
    void aFirmwareImageReachesTheCameraByteForByte();
    void theCameraGoesOnAfterwards();

private:
    std::shared_ptr<SteadyCamera> m_camera = std::make_shared<SteadyCamera>();
    ManagerBench m_bench;
    ClUsbController* m_controller = nullptr;
};

void LargeTransfersTest::initTestCase() {
    m_bench.bus.plug(m_camera);
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(1));
    m_controller = m_bench.ui.opened().first();
}

void LargeTransfersTest::aPictureIsReadByteForByte() {
    const QByteArray picture = largeJpeg(SIZE);
    QCOMPARE(picture.size(), SIZE);
    m_camera->setPicture(vectorOf(picture));
    // The reply has the decoded picture in place of the bytes: look at the transaction.
    ClNuboCommandReqJpeg command;
    ClNuboCommandDataReceive data;
    const auto result = m_bench.runOnWorker(
        [&] { return m_bench.manager->execNuboDataRead(command, data, m_controller); });
    QCOMPARE(result, USB_ERROR_SUCCESS);
    QCOMPARE(data.receivedData().size(), SIZE);
    QVERIFY(data.receivedData() == picture);
}

void LargeTransfersTest::aPictureIsDecodedFromAllItsBytes() {
    const QByteArray picture = largeJpeg(SIZE);
    m_camera->setPicture(vectorOf(picture));
    const VX_CMD reply = m_bench.ui.ask(USB_NUBO_CMD_REQ_JPEG, m_controller);
    QCOMPARE(getCommand(reply), USB_CMD_RES_JPEG);
    const auto shown = reply.value(Key::PARAM2).value<QImage>();
    QCOMPARE(shown.size(), drawing().size());
    QCOMPARE(shown, QImage::fromData(picture, "jpg"));
    QCOMPARE(m_bench.ui.arrivals().size(), 1);
}

void LargeTransfersTest::aFirmwareImageReachesTheCameraByteForByte() {
    const QByteArray image = noise(SIZE);
    Q_EMIT m_bench.ui.sigSendCommand(
        {{Key::CMD, USB_NUBO_CMD_EXEC_FWUPDATEDATA},
         {Key::PARAM1, QVariant::fromValue(static_cast<void*>(m_controller))},
         {Key::PARAM2, image}});
    TRY_COMPARE(m_bench.ui.answers().size(), 1);
    QCOMPARE(outcomeOf(m_bench.ui.answers().first()), "USB_NUBO_CMD_RESPONSE 0x0");
    const SharedBytes arrived = m_camera->firmware();
    QCOMPARE(std::ssize(*arrived), SIZE);
    QVERIFY(std::ranges::equal(*arrived, vectorOf(image)));
}

void LargeTransfersTest::theCameraGoesOnAfterwards() {
    QVERIFY(m_bench.manager->canCommunication());
    QCOMPARE(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_controller).value(Key::PARAM3), 85U);
}

const TestSubject registered = subjectWithoutScreen<LargeTransfersTest>();
#include "LargeTransfersTest.moc"
