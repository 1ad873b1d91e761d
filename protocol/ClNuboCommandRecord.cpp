// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommandRecord.h"

#include "protocol/ClWireStream.h"

void ClNuboCommandRecord::setData(const QByteArray& packet) {
    ClWireReader reader(packet);
    readHeader(reader);
    reader >> m_param[0];
    m_firstString = QString::fromLatin1(reader.readCounted());
    m_secondString = QString::fromLatin1(reader.readCounted());
}
