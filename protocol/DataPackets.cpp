// SPDX-License-Identifier: MIT
#include "protocol/DataPackets.h"

#include "protocol/ClWireStream.h"

#include <algorithm>

namespace {

constexpr unsigned short DATA_PACKET = 2;
constexpr qsizetype HEAD_LENGTH = 8;

}  // namespace

ClNuboCommandDataSend::ClNuboCommandDataSend(unsigned short id, const QByteArray& payload)
    : m_data(payload) {
    m_type = DATA_PACKET;
    m_id = id;
}

ClNuboCommandDataSend::ClNuboCommandDataSend(unsigned short id, const char* payload, int size)
    : ClNuboCommandDataSend(id, QByteArray(payload, size)) {}

QByteArray ClNuboCommandDataSend::getData() const {
    QByteArray packet;
    packet.reserve(HEAD_LENGTH + m_data.size());
    ClWireWriter writer(&packet);
    writer << m_type << m_id;
    writer.writeCounted(m_data);
    return packet;
}

ClNuboCommandDataReceive::ClNuboCommandDataReceive(unsigned short id, unsigned int expectedSize)
    : m_expectedSize(expectedSize) {
    m_id = id;
}

bool ClNuboCommandDataReceive::addData(const QByteArray& packet) {
    if (!m_hasFirstPacket) {
        m_hasFirstPacket = true;
        return addDataFirst(packet);
    }
    makeRoomFor(packet.size());
    m_data.append(packet);
    return true;
}

bool ClNuboCommandDataReceive::addData(const char* packet, int size) {
    return addData(QByteArray::fromRawData(packet, size));
}

bool ClNuboCommandDataReceive::addDataFirst(const QByteArray& packet) {
    ClWireReader reader(packet);
    quint16 id = 0;
    quint32 totalSize = 0;
    reader >> m_type >> id >> totalSize;
    m_data = reader.readCounted();
    return id == m_id && totalSize == m_expectedSize;
}

void ClNuboCommandDataReceive::makeRoomFor(qsizetype count) {
    const qsizetype needed = m_data.size() + count;
    if (needed <= m_data.capacity()) {
        return;
    }
    // Doubling keeps the copying linear. The announced size is the camera's word: it may hold room
    // back but never ask for more.
    const auto announced = static_cast<qsizetype>(m_expectedSize);
    m_data.reserve(std::max(needed, std::min(2 * m_data.capacity(), announced)));
}
