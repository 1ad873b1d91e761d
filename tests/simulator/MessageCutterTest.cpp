// SPDX-License-Identifier: MIT
#include "simulator/MessageCutter.h"
#include "tests/support/TestSubject.h"

#include <QTest>

#include <algorithm>

using namespace nubo::simulator;

namespace {

using Bytes = std::vector<std::uint8_t>;

/// A packet of the wire: type, id, length in its head, and @p size bytes in all.
Bytes packetOf(std::uint8_t type, std::uint32_t length, std::size_t size) {
    Bytes packet = {type, 0, 7, 0};
    for (int shift = 0; shift < 32; shift += 8) {
        packet.push_back(static_cast<std::uint8_t>(length >> shift));
    }
    packet.resize(size, 0x5A);
    return packet;
}

Bytes commandOf(std::size_t size) {
    return packetOf(0, static_cast<std::uint32_t>(size), size);
}

Bytes dataOf(std::size_t payload) {
    return packetOf(2, static_cast<std::uint32_t>(payload), payload + 8);
}

/// Offers the packet as a controller does: never more than is asked for, and no end but a short
/// read. What is asked for beyond the packet's end would wait for the next one.
struct Reader {
    explicit Reader(std::size_t packetSize) : usbPacket(packetSize) {}

    void read(const Bytes& packet) {
        std::size_t done = 0;
        while (done < packet.size()) {
            const std::size_t asked = cutter.wanted(usbPacket);
            const std::size_t count = std::min(asked, packet.size() - done);
            const auto piece = cutter.take(std::span(packet).subspan(done, count), asked);
            done += count;
            if (piece) {
                pieces.push_back(*piece);
            }
        }
    }

    std::size_t usbPacket;
    MessageCutter cutter{};
    std::vector<Bytes> pieces{};
};

Bytes joined(const std::vector<Bytes>& pieces) {
    Bytes whole;
    for (const Bytes& piece : pieces) {
        whole.insert(whole.end(), piece.begin(), piece.end());
    }
    return whole;
}

}  // namespace

/// How a gadget finds the ends of the host's packets.
class MessageCutterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyCommandIsOnePiece_data();
    void everyCommandIsOnePiece();
    void dataComesInPiecesAndEndsAtItsDeclaredLength_data();
    void dataComesInPiecesAndEndsAtItsDeclaredLength();
    void aShortReadEndsAPacketThatDeclaresMore();
    void whatDeclaresNothingEndsWithItsUsbPacket();
    void aPacketThatWasNotFinishedIsForgotten();
};

void MessageCutterTest::everyCommandIsOnePiece_data() {
    QTest::addColumn<std::size_t>("usbPacket");
    QTest::addColumn<std::size_t>("size");
    for (const std::size_t usbPacket : {64U, 512U}) {
        for (const std::size_t size :
             {std::size_t{32}, usbPacket - 1, usbPacket, usbPacket + 1, 2 * usbPacket}) {
            QTest::addRow("%zu bytes in packets of %zu", size, usbPacket) << usbPacket << size;
        }
    }
}

void MessageCutterTest::everyCommandIsOnePiece() {
    QFETCH(const std::size_t, usbPacket);
    QFETCH(const std::size_t, size);
    Reader reader(usbPacket);
    reader.read(commandOf(size));
    reader.read(commandOf(32));
    QCOMPARE(reader.pieces, (std::vector<Bytes>{commandOf(size), commandOf(32)}));
}

void MessageCutterTest::dataComesInPiecesAndEndsAtItsDeclaredLength_data() {
    QTest::addColumn<std::size_t>("usbPacket");
    QTest::addColumn<std::size_t>("payload");
    for (const std::size_t usbPacket : {64U, 512U}) {
        for (const std::size_t payload :
             {std::size_t{0}, usbPacket - 8, usbPacket, MessageCutter::PIECE - 8,
              MessageCutter::PIECE, MessageCutter::PIECE + usbPacket - 8, std::size_t{100'000}}) {
            QTest::addRow("%zu bytes in packets of %zu", payload, usbPacket)
                << usbPacket << payload;
        }
    }
}

void MessageCutterTest::dataComesInPiecesAndEndsAtItsDeclaredLength() {
    QFETCH(const std::size_t, usbPacket);
    QFETCH(const std::size_t, payload);
    Reader reader(usbPacket);
    reader.read(dataOf(payload));
    QCOMPARE(joined(reader.pieces), dataOf(payload));
    for (std::size_t i = 0; i + 1 < reader.pieces.size(); ++i) {
        QCOMPARE(reader.pieces[i].size(), MessageCutter::PIECE);
    }
    QCOMPARE(reader.cutter.wanted(usbPacket), usbPacket);
}

void MessageCutterTest::aShortReadEndsAPacketThatDeclaresMore() {
    Reader reader(512);
    reader.read(packetOf(2, 5000, 700));
    QCOMPARE(reader.pieces, (std::vector<Bytes>{packetOf(2, 5000, 700)}));
    reader.read(commandOf(32));
    QCOMPARE(reader.pieces.back(), commandOf(32));
}

void MessageCutterTest::whatDeclaresNothingEndsWithItsUsbPacket() {
    Reader reader(64);
    reader.read(packetOf(9, 5000, 64));
    reader.read(Bytes{1, 2, 3});
    QCOMPARE(reader.pieces, (std::vector<Bytes>{packetOf(9, 5000, 64), {1, 2, 3}}));
}

void MessageCutterTest::aPacketThatWasNotFinishedIsForgotten() {
    Reader reader(512);
    reader.read(packetOf(2, 5000, 512));
    reader.cutter.reset();
    reader.read(commandOf(32));
    QCOMPARE(reader.pieces, (std::vector<Bytes>{commandOf(32)}));
}

const TestSubject registered = subjectWithoutScreen<MessageCutterTest>();
#include "MessageCutterTest.moc"
