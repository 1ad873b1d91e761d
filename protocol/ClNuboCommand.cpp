// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommand.h"

#include "protocol/ClWireStream.h"

#include <QDateTime>

#include <random>

namespace {

// Each draw seeds the generator anew with the clock, so commands built within the same millisecond
// share an id.
unsigned short drawTransactionId() {
    std::minstd_rand generator(
        static_cast<std::minstd_rand::result_type>(QDateTime::currentMSecsSinceEpoch()));
    return static_cast<unsigned short>(generator());
}

}  // namespace

ClNuboCommand::ClNuboCommand(const QByteArray& packet) {
    ClNuboCommand::setData(packet);
}

ClNuboCommand::ClNuboCommand(const char* packet, int size)
    : ClNuboCommand(QByteArray::fromRawData(packet, size)) {}

ClNuboCommand::ClNuboCommand(unsigned short code, unsigned int param1, unsigned int param2,
                             unsigned int param3, unsigned int param4, unsigned int param5,
                             unsigned short id, unsigned short type, unsigned int length)
    : m_type(type),
      m_id(id != 0 ? id : drawTransactionId()),
      m_length(length),
      m_code(code),
      m_param{param1, param2, param3, param4, param5} {}

void ClNuboCommand::setData(const QByteArray& packet) {
    ClWireReader reader(packet);
    readHeader(reader);
    for (unsigned int& param : m_param) {
        reader >> param;
    }
}

QByteArray ClNuboCommand::getData() const {
    QByteArray packet;
    packet.reserve(PLAIN_LENGTH);
    ClWireWriter writer(&packet);
    writeHeader(writer, m_length);
    for (const unsigned int param : m_param) {
        writer << param;
    }
    return packet;
}

void ClNuboCommand::readHeader(ClWireReader& reader) {
    quint16 reserved = 0;
    reader >> m_type >> m_id >> m_length >> m_code >> reserved;
}

void ClNuboCommand::writeHeader(ClWireWriter& writer, unsigned int length) const {
    writer << m_type << m_id << length << m_code << quint16{0};
}
