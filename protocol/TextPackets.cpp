// SPDX-License-Identifier: MIT
#include "protocol/TextPackets.h"

#include "protocol/ClWireStream.h"

#include <QStringList>

namespace {

// Bytes of a packet beside its strings.
constexpr unsigned int LENGTH_WITHOUT_STRING = 28;
constexpr unsigned int LENGTH_WITHOUT_SSID_AND_KEY = 24;

// Part i sits 24 - 8i bits up; a fifth part starts again at the top, as the shift counts modulo 32.
unsigned int packAddress(const QString& address) {
    unsigned int packed = 0;
    unsigned int shift = 24;
    for (const QString& part : address.split(u'.', Qt::SkipEmptyParts)) {
        packed += part.toUInt() << shift;
        shift = (shift - 8) % 32;
    }
    return packed;
}

}  // namespace

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

ClNuboCommandIpv4::ClNuboCommandIpv4(const QString& address, unsigned short code)
    : ClNuboCommand(code, packAddress(address), 0, 0, 0, 0, 0, 0, PLAIN_LENGTH) {}

QString ClNuboCommandIpv4::getAddress() const {
    const unsigned int packed = param(1);
    return QStringLiteral("%1.%2.%3.%4")
        .arg(packed >> 24 & 0xFF)
        .arg(packed >> 16 & 0xFF)
        .arg(packed >> 8 & 0xFF)
        .arg(packed & 0xFF);
}

ClNuboCommandConnectWifi::ClNuboCommandConnectWifi(const QString& ssid, const QString& key)
    : ClNuboCommand(CODE, 0, 0, 0, 0, 0, 0, 0,
                    static_cast<unsigned int>(ssid.toLatin1().size() + key.toLatin1().size()) +
                        LENGTH_WITHOUT_SSID_AND_KEY),
      m_ssid(ssid),
      m_key(key) {}

QByteArray ClNuboCommandConnectWifi::getData() const {
    const QByteArray ssid = m_ssid.toLatin1();
    const QByteArray key = m_key.toLatin1();
    // Not m_length: an answer that has been parsed has left its own there.
    const auto length =
        static_cast<unsigned int>(ssid.size() + key.size()) + LENGTH_WITHOUT_SSID_AND_KEY;
    QByteArray packet;
    packet.reserve(length);
    ClWireWriter writer(&packet);
    writeHeader(writer, length);
    writer.writeCounted(ssid);
    writer.writeCounted(key);
    writer << param(5);
    return packet;
}

void ClNuboCommandRecord::setData(const QByteArray& packet) {
    ClWireReader reader(packet);
    readHeader(reader);
    reader >> m_param[0];
    m_firstString = QString::fromLatin1(reader.readCounted());
    m_secondString = QString::fromLatin1(reader.readCounted());
}
