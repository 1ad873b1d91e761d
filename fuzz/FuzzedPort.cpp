// SPDX-License-Identifier: MIT
#include "fuzz/FuzzedPort.h"

#include "fuzz/Check.h"
#include "fuzz/PacketFields.h"
#include "protocol/ResultCodes.h"

namespace {

constexpr unsigned char OWN_ENDPOINT = 0xFF;
constexpr int LONGEST_TIMEOUT_MS = 3000;
constexpr int LONGEST_READ = 1024;
constexpr int MOST_FAILURES_IN_A_ROW = 3;
constexpr int NOTHING_TRIED = -1;
constexpr quint16 DATA_PACKET = 2;
constexpr quint16 REQUEST_PICTURE = 0x3001;
constexpr quint16 REQUEST_AUDIO = 0x3002;
constexpr qsizetype DATA_HEAD_LENGTH = 8;

void checkTransfer(int timeoutMs, unsigned char endpoint) {
    FUZZ_CHECK(timeoutMs > 0 && timeoutMs <= LONGEST_TIMEOUT_MS);
    FUZZ_CHECK(endpoint == OWN_ENDPOINT);
}

}  // namespace

FuzzedPort::FuzzedPort(FuzzInput& input)
    : m_input(input),
      m_writeResults(input.number<quint8>()),
      m_stoppingRead(input.number<quint8>()) {}

int FuzzedPort::write(const QByteArray& data, int timeoutMs, unsigned char endpoint) {
    checkTransfer(timeoutMs, endpoint);
    const bool isData = field<quint16>(data, 0) == DATA_PACKET;
    FUZZ_CHECK(field<quint32>(data, LENGTH_OFFSET) ==
               static_cast<quint32>(isData ? data.size() - DATA_HEAD_LENGTH : data.size()));
    FUZZ_CHECK(!isData || field<quint16>(data, ID_OFFSET) == m_id);
    m_id = field<quint16>(data, ID_OFFSET);
    const auto code = field<quint16>(data, CODE_OFFSET);
    m_isDataRequested = !isData && (code == REQUEST_PICTURE || code == REQUEST_AUDIO);

    const int result = nextWriteResult(static_cast<int>(data.size()));
    ++m_writes;
    m_hasWrittenNothing = m_hasWrittenNothing || result == 0;
    noteFailure(result);
    return result;
}

int FuzzedPort::nextWriteResult(int packetSize) {
    const int digit = m_writes == 0 ? m_writeResults & 0xF : m_writeResults >> 4;
    switch (digit) {
        case 1:
        case 2:
        case 3:
        case 4:
        case 5:
        case 6:
            return USB_NO_DEVICE + digit - 1;
        case 7:
            return 0;
        case 8:
            return NOTHING_TRIED;
        case 9:
            return packetSize / 2;
        default:
            return packetSize;
    }
}

QByteArray FuzzedPort::read(int timeoutMs, unsigned char endpoint, int* status) {
    checkTransfer(timeoutMs, endpoint);
    FUZZ_CHECK(status != nullptr);
    FUZZ_CHECK(!m_isGone);
    FUZZ_CHECK(m_failuresInARow < MOST_FAILURES_IN_A_ROW);
    // After the stop only the one read that a data phase always has.
    FUZZ_CHECK(!m_stop || (m_isDataRequested && m_readsAfterStop == 0));
    m_readsAfterStop += m_stop ? 1 : 0;
    ++m_reads;
    m_stop = m_stop || m_reads == m_stoppingRead;

    if (m_input.isEmpty()) {
        return fail(USB_ERROR_TIMEOUT, status);
    }
    switch (const int kind = m_input.number<quint8>() & 3; kind) {
        case TransportCode:
            return fail(USB_NO_DEVICE + m_input.number<quint8>() % 6, status);
        case OtherFailure:
            return fail(NOTHING_TRIED, status);
        default: {
            const QByteArray packet = nextPacket(kind == OwnPacket);
            return packet.isEmpty() ? fail(USB_ERROR_TIMEOUT, status) : packet;
        }
    }
}

QByteArray FuzzedPort::nextPacket(bool isOwn) {
    QByteArray packet = m_input.bytes(m_input.number<quint16>() % (LONGEST_READ + 1));
    if (isOwn && packet.size() >= LENGTH_OFFSET) {
        qToLittleEndian(m_id, packet.data() + ID_OFFSET);
    }
    if (field<quint16>(packet, ID_OFFSET) == m_id) {
        m_answers.insert(field<quint16>(packet, CODE_OFFSET));
    }
    if (!packet.isEmpty()) {
        m_failuresInARow = 0;
    }
    return packet;
}

QByteArray FuzzedPort::fail(int code, int* status) {
    ++m_failuresInARow;
    m_isGone = code == USB_NO_DEVICE;
    noteFailure(code);
    *status = code;
    return {};
}

void FuzzedPort::noteFailure(int code) {
    if (code < 0) {
        m_failures.insert(USB_ERROR_OTHER);
    } else if (code >= USB_NO_DEVICE && code <= USB_ERROR_OTHER) {
        m_failures.insert(static_cast<quint16>(code));
    }
}
