// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommandDataSend.h"

#include "protocol/ClWireStream.h"

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
