// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommandDataReceive.h"

#include "protocol/ClWireStream.h"

ClNuboCommandDataReceive::ClNuboCommandDataReceive(unsigned short id, unsigned int expectedSize)
    : m_expectedSize(expectedSize) {
    m_id = id;
}

bool ClNuboCommandDataReceive::addData(const QByteArray& packet) {
    if (!m_hasFirstPacket) {
        m_hasFirstPacket = true;
        return addDataFirst(packet);
    }
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
