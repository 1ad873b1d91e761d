// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommandConnectWifi.h"

#include "protocol/ClWireStream.h"

namespace {
constexpr unsigned int LENGTH_WITHOUT_STRINGS = 24;
}

ClNuboCommandConnectWifi::ClNuboCommandConnectWifi(const QString& ssid, const QString& key)
    : ClNuboCommand(CODE, 0, 0, 0, 0, 0, 0, 0,
                    static_cast<unsigned int>(ssid.toLatin1().size() + key.toLatin1().size()) +
                        LENGTH_WITHOUT_STRINGS),
      m_ssid(ssid),
      m_key(key) {}

QByteArray ClNuboCommandConnectWifi::getData() const {
    const QByteArray ssid = m_ssid.toLatin1();
    const QByteArray key = m_key.toLatin1();
    // Not m_length: an answer that has been parsed has left its own there.
    const auto length =
        static_cast<unsigned int>(ssid.size() + key.size()) + LENGTH_WITHOUT_STRINGS;
    QByteArray packet;
    packet.reserve(length);
    ClWireWriter writer(&packet);
    writeHeader(writer, length);
    writer.writeCounted(ssid);
    writer.writeCounted(key);
    writer << param(5);
    return packet;
}
