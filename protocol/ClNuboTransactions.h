// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/NuboRecords.h"

#include <QByteArray>

#include <atomic>
#include <chrono>
#include <functional>
#include <utility>

class ClBulkPort;
class ClNuboCommand;
class ClNuboCommandDataReceive;
class ClNuboCommandDataSend;

/// Complete exchanges with a camera on one bulk port: write a command, move data, read the answer
/// with the command's transaction id.
///
/// Every operation returns 0 for success, a transport code (0xEF00 to 0xEF05) or the camera's own
/// error code. A write that moves no bytes ends the transaction with 0.
///
/// All waiting is bounded. A write waits for 1000 ms, and a packet is waited for in three reads of
/// its time-out each. A packet of another command is passed over, and three full reads follow it
/// again; but one that comes when the first of its kind is three time-outs old ends the wait with a
/// time-out. So a silent camera holds the thread for three time-outs, and one that never stops
/// talking of other things for nine at most.
///
/// The stop flag is looked at before each read. When it ends a wait or a loop, the result is 0 or
/// that of the last read. A data phase reads at least once, whatever the flag says.
///
/// A short-lived value on the USB thread; port and stop flag belong to the caller.
class ClNuboTransactions {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    /// What becomes of an answer that ends before the length that it states itself: what is missing
    /// reads as 0, or the transaction ends with USB_ERROR_RECEIVE_DATA.
    enum class CutAnswers { ReadAsZeros, Fail };

    ClNuboTransactions(ClBulkPort& port, const std::atomic<bool>& stop,
                       Clock clock = std::chrono::steady_clock::now)
        : m_port(port),
          m_stop(stop),
          m_clock(std::move(clock)) {}
    ClNuboTransactions(ClBulkPort& port, const std::atomic<bool>& stop, CutAnswers cutAnswers)
        : ClNuboTransactions(port, stop) {
        m_cutAnswers = cutAnswers;
    }

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
    /// are appended to @p list, which keeps what it held. A camera that announces more than 1000 is
    /// believed the first 1000 only: there is an end to the scan, and to the memory that it takes.
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
    Clock m_clock;
    CutAnswers m_cutAnswers = CutAnswers::ReadAsZeros;
};
