// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/FuzzInput.h"
#include "protocol/ClBulkPort.h"

#include <QSet>

#include <atomic>

/// A bulk port on a camera that says what a fuzz input says, and after its end nothing more: every
/// further read times out at once, so that no input keeps a transaction going. The port checks what
/// is asked of it. Its part of the input:
///
///     offset  width  field
///          0      1  what the first write (low digit) and the later ones (high digit) return:
///                    1 to 6 the transport codes, 7 that nothing was written, 8 that nothing could
///                    be tried, 9 that half was written; everything else that all was written
///          1      1  number of the read, counted from 1, that sets the stop flag; 0 for none
///
/// and, whenever the tool reads:
///
///          0      1  kind: 0 packet, 1 packet with the transaction id of the last command put in
///                    its place, 2 transport code, 3 failure without one; only these two bits count
///          1      2  byte count of the packet, or
///          1      1  distance of the transport code from 0xEF00
///          3         the packet
class FuzzedPort : public ClBulkPort {
public:
    /// @p input is read on while the port is used.
    explicit FuzzedPort(FuzzInput& input);

    int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) override;
    QByteArray read(int timeoutMs, unsigned char endpoint, int* status) override;

    /// The stop flag, for the transactions under test.
    [[nodiscard]] const std::atomic<bool>& stop() const { return m_stop; }
    /// Whether nothing was read or written.
    [[nodiscard]] bool isUnused() const { return m_writes == 0 && m_reads == 0; }
    /// Whether a packet of the command's transaction had @p code in it.
    [[nodiscard]] bool hasAnswered(quint16 code) const { return m_answers.contains(code); }
    /// Whether a transfer failed with the transport code @p code; one that could not even be tried
    /// counts as USB_ERROR_OTHER.
    [[nodiscard]] bool hasFailed(quint16 code) const { return m_failures.contains(code); }
    /// Whether a transaction may end with 0 though no answer said so: it was told to stop, or a
    /// write moved no bytes.
    [[nodiscard]] bool isCutShort() const { return m_stop || m_hasWrittenNothing; }

private:
    enum Kind { Packet, OwnPacket, TransportCode, OtherFailure };

    [[nodiscard]] int nextWriteResult(int packetSize);
    [[nodiscard]] QByteArray nextPacket(bool isOwn);
    [[nodiscard]] QByteArray fail(int code, int* status);
    void noteFailure(int code);

    FuzzInput& m_input;
    const quint8 m_writeResults;
    const quint8 m_stoppingRead;
    std::atomic<bool> m_stop = false;
    quint16 m_id = 0;  ///< transaction id of the command on the wire
    int m_writes = 0;
    int m_reads = 0;
    int m_readsAfterStop = 0;
    bool m_isDataRequested = false;
    int m_failuresInARow = 0;
    bool m_isGone = false;
    bool m_hasWrittenNothing = false;
    QSet<quint16> m_answers;
    QSet<quint16> m_failures;
};
