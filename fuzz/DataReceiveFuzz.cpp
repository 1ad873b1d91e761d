// SPDX-License-Identifier: MIT
//
// The reception of a data phase. The input:
//
//     offset  width  field
//          0      2  transaction id of the command that asked
//          2      4  expected size
//          6         pieces up to the end: byte count (2), the bytes
#include "fuzz/Check.h"
#include "fuzz/FuzzInput.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/PacketFields.h"
#include "protocol/DataPackets.h"

namespace {

constexpr qsizetype TOTAL_OFFSET = 4;
constexpr qsizetype COUNT_OFFSET = 8;
constexpr qsizetype HEAD_LENGTH = 12;

QByteArray bytesBehindHead(const QByteArray& packet) {
    const auto count = static_cast<qsizetype>(field<quint32>(packet, COUNT_OFFSET));
    return packet.mid(HEAD_LENGTH, count);
}

/// A growing array may reserve twice its size, but nothing that follows from a number on the wire.
void checkAllocation(const QByteArray& kept, qsizetype fed) {
    constexpr qsizetype SMALLEST_BLOCK = 64;
    FUZZ_CHECK(kept.size() <= fed);
    FUZZ_CHECK(kept.capacity() <= 2 * fed + SMALLEST_BLOCK);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const auto id = input.number<quint16>();
    const auto expectedSize = input.number<quint32>();
    ClNuboCommandDataReceive reception(id, expectedSize);
    FUZZ_CHECK(reception.receivedData().isEmpty());

    QByteArray expected;
    qsizetype fed = 0;
    for (bool isFirst = true; !input.isEmpty(); isFirst = false) {
        const QByteArray piece = input.bytes(input.number<quint16>());
        const bool isTaken = reception.addData(piece);
        fed += piece.size();
        if (isFirst) {
            FUZZ_CHECK(isTaken == (field<quint16>(piece, ID_OFFSET) == id &&
                                   field<quint32>(piece, TOTAL_OFFSET) == expectedSize));
            expected = bytesBehindHead(piece);
        } else {
            FUZZ_CHECK(isTaken);
            expected += piece;
        }
        FUZZ_CHECK(reception.receivedData() == expected);
        FUZZ_CHECK(reception.isIncomplete() == (expected.size() < qint64{expectedSize}));
        FUZZ_CHECK(reception.getData().isEmpty());
        checkAllocation(reception.receivedData(), fed);
    }
    return 0;
}
