// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QDataStream>
#include <QIODevice>

#include <algorithm>

/// Writes packets in the form of the wire: little-endian, independent of the version of Qt.
class ClWireWriter : public QDataStream {
public:
    explicit ClWireWriter(QByteArray* packet) : QDataStream(packet, QIODevice::WriteOnly) {
        setByteOrder(LittleEndian);
        setVersion(Qt_6_0);
    }

    /// A 32-bit byte count and the bytes. A null array counts 0 like an empty one.
    void writeCounted(const QByteArray& bytes) {
        *this << static_cast<quint32>(bytes.size());
        writeRawData(bytes.constData(), static_cast<int>(bytes.size()));
    }
};

/// Reads packets in the form of the wire. What is missing at the end of a short packet reads as 0.
class ClWireReader : public QDataStream {
public:
    explicit ClWireReader(const QByteArray& packet) : QDataStream(packet) {
        setByteOrder(LittleEndian);
        setVersion(Qt_6_0);
    }

    /// The next @p count bytes, or what arrived of them: a count is the camera's word and may be
    /// larger than the packet.
    QByteArray readBytes(quint32 count) {
        const auto present = std::min<qint64>(count, device()->bytesAvailable());
        QByteArray bytes(static_cast<qsizetype>(present), Qt::Uninitialized);
        readRawData(bytes.data(), static_cast<int>(present));
        return bytes;
    }

    /// A 32-bit byte count and that many bytes, or what arrived of them.
    QByteArray readCounted() {
        quint32 count = 0;
        *this >> count;
        return readBytes(count);
    }
};
