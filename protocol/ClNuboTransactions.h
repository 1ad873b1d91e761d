// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/NuboRecords.h"

#include <QByteArray>

#include <atomic>

class ClBulkPort;
class ClNuboCommand;
class ClNuboCommandDataReceive;
class ClNuboCommandDataSend;

/// Complete exchanges with a camera on one bulk port: write a command, move data, read the answer
/// with the command's transaction id.
///
/// Every operation returns 0 for success, a transport code (0xEF00 to 0xEF05) or the camera's own
/// error code. All waiting is bounded: a write by 1000 ms, a packet from the camera by three times
/// its read time-out, foreign packets included. A write that moves no bytes ends the transaction
/// with 0. Once the stop flag is set, no further read is made but the one that a data phase always
/// has; a loop that it ends reports 0.
///
/// A short-lived value on the USB thread; port and stop flag belong to the caller.
class ClNuboTransactions {
public:
    ClNuboTransactions(ClBulkPort& port, const std::atomic<bool>& stop)
        : m_port(port),
          m_stop(stop) {}

    /// Sends @p command and parses the answer into it, waiting @p timeoutMs in each of three reads.
    [[nodiscard]] unsigned short command(ClNuboCommand& command, int timeoutMs);

    /// Sends @p command and then all of @p data, and parses the answer into the command.
    [[nodiscard]] unsigned short dataWrite(ClNuboCommand& command,
                                           const ClNuboCommandDataSend& data);

    /// Sends @p command, whose answer announces a size in param1, and collects that much in @p
    /// data.
    [[nodiscard]] unsigned short dataRead(ClNuboCommand& command, ClNuboCommandDataReceive& data);

    /// Reads the Wi-Fi information: an answer, which has the status, and two more packets. The rest
    /// of @p info changes only when all have come.
    [[nodiscard]] unsigned short wifiInfo(stWifiInfo& info);

    /// Scans for access points: an answer with their number and two packets for each. Those found
    /// are appended to @p list, which keeps what it held.
    [[nodiscard]] unsigned short accesspointList(AccesspointList& list);

private:
    enum class CameraErrors { Accept, Skip };

    /// Writes @p packet. True when the transaction goes on; otherwise it ends with @p result.
    [[nodiscard]] bool send(const QByteArray& packet, unsigned short& result);
    [[nodiscard]] unsigned short receiveAnswer(ClNuboCommand& command, int timeoutMs);
    /// Reads until a packet of transaction @p id comes. It stays empty with a result of 0 when the
    /// stop flag ended the search.
    [[nodiscard]] unsigned short receive(unsigned short id, int timeoutMs, CameraErrors errors,
                                         QByteArray& packet);

    ClBulkPort& m_port;
    const std::atomic<bool>& m_stop;
};
