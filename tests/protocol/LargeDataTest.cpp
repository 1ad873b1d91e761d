// SPDX-License-Identifier: MIT
#include "protocol/ClBulkPort.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/RequestDispatcher.h"
#include "protocol/ResultCodes.h"
#include "tests/support/PortCamera.h"
#include "tests/support/TestSubject.h"

#include <QTest>
#include <QtEndian>

#include <malloc.h>

#include <algorithm>
#include <atomic>

namespace {

constexpr quint32 MIB = 1024 * 1024;
constexpr quint32 PAYLOAD = 16 * MIB;
constexpr quint32 ALLOWANCE = 4 * MIB;
constexpr quint32 DECLARED_MOST = 0xFFFF'FFFF;

/// Bytes that this process has allocated and not freed; 0 under the sanitizers, which bring an
/// allocator of their own.
qint64 heapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}

/// Byte @p place of all data here.
char byteAt(quint32 place) {
    return static_cast<char>(place * 31 + place / 251);
}

bool areTheSentBytes(const QByteArray& bytes) {
    return std::ranges::all_of(bytes,
                               [place = 0U](char byte) mutable { return byte == byteAt(place++); });
}

QByteArray sentBytes(quint32 count) {
    QByteArray bytes(count, Qt::Uninitialized);
    std::ranges::generate(bytes, [place = 0U]() mutable { return byteAt(place++); });
    return bytes;
}

/// A camera that announces so many bytes and makes each packet when it is asked for, so that the
/// memory in use is the tool's alone. It looks at it at each transfer. When it has sent what it
/// has, it is silent.
class MakingPort : public ClBulkPort {
public:
    MakingPort(quint32 declared, quint32 size) : m_declared(declared), m_size(size) {}

    int write(const QByteArray& data, int /*timeoutMs*/, unsigned char /*endpoint*/) override {
        watch();
        if (data.size() == DATA_HEAD_SIZE + PAYLOAD) {
            const QByteArray image = QByteArray::fromRawData(data.constData() + DATA_HEAD_SIZE,
                                                             data.size() - DATA_HEAD_SIZE);
            m_hasWholeImage = areTheSentBytes(image);
        }
        if (m_command.isEmpty()) {
            m_command = data;
        }
        return static_cast<int>(data.size());
    }

    QByteArray read(int /*timeoutMs*/, unsigned char /*endpoint*/, int* status) override {
        watch();
        if (!m_hasAnswered) {
            m_hasAnswered = true;
            return answer();
        }
        if (m_sent == m_size) {
            *status = USB_ERROR_TIMEOUT;
            return {};
        }
        return m_sent == 0 ? firstPacket() : nextBytes(PACKET_SIZE);
    }

    /// The most memory that was in use at a transfer, beyond @p before.
    [[nodiscard]] qint64 mostBeyond(qint64 before) const { return m_most - before; }
    /// Whether one write brought PAYLOAD bytes that are all in their places.
    [[nodiscard]] bool hasWholeImage() const { return m_hasWholeImage; }
    [[nodiscard]] const std::atomic<bool>& stop() const { return m_stop; }

private:
    static constexpr qsizetype PACKET_SIZE = 1024;
    static constexpr qsizetype HEAD_SIZE = 12;
    static constexpr qsizetype DATA_HEAD_SIZE = 8;  // of a packet from the tool

    void watch() { m_most = std::max(m_most, heapInUse()); }

    [[nodiscard]] QByteArray answer() const {
        QByteArray packet = m_command;
        qToLittleEndian<quint16>(0, packet.data() + 8);
        qToLittleEndian<quint32>(m_declared, packet.data() + 12);
        return packet;
    }

    [[nodiscard]] QByteArray firstPacket() {
        QByteArray packet = m_command.left(4) + QByteArray(8, '\0');
        const QByteArray bytes = nextBytes(PACKET_SIZE - HEAD_SIZE);
        qToLittleEndian<quint32>(m_declared, packet.data() + 4);
        qToLittleEndian<quint32>(m_declared, packet.data() + 8);
        return packet + bytes;
    }

    [[nodiscard]] QByteArray nextBytes(qsizetype most) {
        QByteArray bytes(std::min<qsizetype>(most, m_size - m_sent), '\0');
        for (char& byte : bytes) {
            byte = byteAt(m_sent++);
        }
        return bytes;
    }

    std::atomic<bool> m_stop = false;
    quint32 m_declared;
    quint32 m_size;
    QByteArray m_command;
    bool m_hasAnswered = false;
    quint32 m_sent = 0;
    qint64 m_most = 0;
    bool m_hasWholeImage = false;
};

using MakingCamera = PortCamera<MakingPort>;

VX_CMD requestTo(MakingCamera& camera, const QUuid& request) {
    return {{Key::CMD, request}, {Key::PARAM1, QVariant::fromValue(camera.camera())}};
}

}  // namespace

/// Large data pass through the tool whole, and without needless copies: memory in use is what the C
/// library counts at each transfer.
class LargeDataTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void receivedDataAreKeptOnce();
    void nothingIsReservedForDataThatDoNotCome_data();
    void nothingIsReservedForDataThatDoNotCome();
    void anImageIsSentWholeAndCopiedOnce();
};

void LargeDataTest::initTestCase() {
    QVERIFY2(heapInUse() > 0, "the allocator does not tell what is in use");
}

void LargeDataTest::receivedDataAreKeptOnce() {
    const qint64 before = heapInUse();
    MakingCamera camera(PAYLOAD, PAYLOAD);
    dispatchRequest(requestTo(camera, USB_NUBO_CMD_REQ_AUDIO), camera);
    QCOMPARE(camera.messages().size(), 1);
    const auto bytes = camera.messages().first().value(Key::PARAM2).toByteArray();
    QCOMPARE(bytes.size(), qsizetype{PAYLOAD});
    QVERIFY(areTheSentBytes(bytes));
    QCOMPARE_LT(camera.port().mostBeyond(before), qint64{PAYLOAD} + ALLOWANCE);
    QCOMPARE_LT(heapInUse() - before, qint64{PAYLOAD} + ALLOWANCE);
}

void LargeDataTest::nothingIsReservedForDataThatDoNotCome_data() {
    QTest::addColumn<quint32>("size");
    QTest::newRow("nothing") << 0U;
    QTest::newRow("a packet") << 1000U;
    QTest::newRow("1 MiB") << MIB;
}

void LargeDataTest::nothingIsReservedForDataThatDoNotCome() {
    QFETCH(const quint32, size);
    const qint64 before = heapInUse();
    MakingCamera camera(DECLARED_MOST, size);
    dispatchRequest(requestTo(camera, USB_NUBO_CMD_REQ_AUDIO), camera);
    QCOMPARE(camera.messages().size(), 1);
    QCOMPARE(camera.messages().first().value(Key::PARAM3).value<unsigned short>(),
             USB_ERROR_TIMEOUT);
    QCOMPARE_LT(camera.port().mostBeyond(before), qint64{2} * size + MIB);
}

void LargeDataTest::anImageIsSentWholeAndCopiedOnce() {
    const qint64 before = heapInUse();
    MakingCamera camera(0U, 0U);
    VX_CMD request = requestTo(camera, USB_NUBO_CMD_EXEC_FWUPDATEDATA);
    request.insert(Key::PARAM2, sentBytes(PAYLOAD));
    dispatchRequest(request, camera);
    QCOMPARE(camera.messages().size(), 1);
    QCOMPARE(camera.messages().first().value(Key::PARAM3).value<unsigned short>(),
             USB_ERROR_SUCCESS);
    QVERIFY(camera.port().hasWholeImage());
    // The image of the request, and the packet that goes out in one write.
    QCOMPARE_LT(camera.port().mostBeyond(before), qint64{2} * PAYLOAD + ALLOWANCE);
    QCOMPARE_LT(heapInUse() - before, qint64{PAYLOAD} + ALLOWANCE);
}

const TestSubject registered = subjectWithoutScreen<LargeDataTest>();
#include "LargeDataTest.moc"
