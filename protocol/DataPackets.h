// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

// The packets of a data phase, which follow a command or its answer.

/// The data packet that follows a command with a payload. It has only an 8-byte head:
///
///     offset  width  field
///          0      2  packet type     2
///          2      2  transaction id  of the command that announced the data
///          4      4  byte count n
///          8      n  the payload
///
/// The whole payload goes out as one packet, whatever its size.
class ClNuboCommandDataSend : public ClNuboCommand {
public:
    ClNuboCommandDataSend(unsigned short id, const QByteArray& payload);
    ClNuboCommandDataSend(unsigned short id, const char* payload, int size);  ///< @p size in bytes

    [[nodiscard]] QByteArray getData() const override;

private:
    QByteArray m_data;
};

/// Collects the packets of a data phase from the camera. The first one has a head, the rest are the
/// continuation of its bytes:
///
///     offset  width  field
///          0      2  packet type
///          2      2  transaction id  of the command that asked for the data
///          4      4  total size      of the data phase in bytes
///          8      4  byte count n    of this packet
///         12      n  the first bytes
///
/// An object serves one data phase; a fresh one is assigned over it for the next.
class ClNuboCommandDataReceive : public ClNuboCommand {
public:
    ClNuboCommandDataReceive() = default;
    /// @p id of the command that asked, @p expectedSize of the data in bytes.
    ClNuboCommandDataReceive(unsigned short id, unsigned int expectedSize);

    /// Takes in the next packet. False when it is the first one and its head does not match.
    [[nodiscard]] bool addData(const QByteArray& packet);
    [[nodiscard]] bool addData(const char* packet, int size);  ///< @p size in bytes
    /// Takes in the packet with the head; its bytes are kept even when the head does not match.
    [[nodiscard]] bool addDataFirst(const QByteArray& packet);

    /// Whether fewer bytes have arrived than were announced.
    [[nodiscard]] bool isIncomplete() const { return m_data.size() < m_expectedSize; }
    [[nodiscard]] const QByteArray& receivedData() const { return m_data; }

    /// Nothing is ever sent for a reception.
    [[nodiscard]] QByteArray getData() const override { return {}; }

private:
    /// Room for @p count more bytes: at the most twice what has arrived, and no more than announced
    /// unless more than that arrives.
    void makeRoomFor(qsizetype count);

    unsigned int m_expectedSize = 0;
    QByteArray m_data;
    bool m_hasFirstPacket = false;
};
