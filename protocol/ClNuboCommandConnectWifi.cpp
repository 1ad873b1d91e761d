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
    QByteArray packet;
    packet.reserve(m_length);
    ClWireWriter writer(&packet);
    writeHeader(writer);
    writer.writeCounted(m_ssid.toLatin1());
    writer.writeCounted(m_key.toLatin1());
    writer << param(5);
    return packet;
}
