// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommandString.h"

#include "protocol/ClWireStream.h"

namespace {
constexpr unsigned int LENGTH_WITHOUT_STRING = 28;
}

ClNuboCommandString::ClNuboCommandString(const QString& string, unsigned short code)
    : ClNuboCommand(code, static_cast<unsigned int>(string.toLatin1().size()), 0, 0, 0, 0, 0, 0,
                    PLAIN_LENGTH),
      m_string(string) {
    if (const unsigned int bytes = param(1); bytes != 0) {
        m_length = bytes + LENGTH_WITHOUT_STRING;
    }
}

void ClNuboCommandString::setData(const QByteArray& packet) {
    ClWireReader reader(packet);
    readHeader(reader);
    reader >> m_param[0];
    if (m_param[0] != 0) {
        m_string = QString::fromLatin1(reader.readBytes(m_param[0]));
    } else {
        m_string.clear();
        reader >> m_param[1];
    }
    reader >> m_param[2] >> m_param[3] >> m_param[4];
}

QByteArray ClNuboCommandString::getData() const {
    const QByteArray bytes = m_string.toLatin1();
    if (bytes.isEmpty()) {
        return ClNuboCommand::getData();
    }
    // Not m_length: an answer that has been parsed has left its own there.
    const auto length = static_cast<unsigned int>(bytes.size()) + LENGTH_WITHOUT_STRING;
    QByteArray packet;
    packet.reserve(length);
    ClWireWriter writer(&packet);
    writeHeader(writer, length);
    writer.writeCounted(bytes);
    writer << m_param[2] << m_param[3] << m_param[4];
    return packet;
}
