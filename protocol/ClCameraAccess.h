// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"
#include "protocol/NuboRecords.h"

#include <QUuid>

class ClNuboCommand;
class ClNuboCommandDataReceive;
class ClNuboCommandDataSend;
class ClUsbController;

/// Transactions with the camera that a request names. On the thread of its transfers only.
///
/// Every operation returns 0, a transport code or the camera's own error code. A controller that is
/// not live fails with 0xEF00, or with 0xEF01 in the two multi-packet reads; it is only compared,
/// never touched.
class ClCameraTransactions {
public:
    virtual ~ClCameraTransactions() = default;

    [[nodiscard]] virtual unsigned short execNuboCommand(ClNuboCommand& command,
                                                         ClUsbController* controller,
                                                         int timeoutMs) = 0;
    [[nodiscard]] virtual unsigned short execNuboDataWrite(ClNuboCommand& command,
                                                           ClNuboCommandDataSend& data,
                                                           ClUsbController* controller) = 0;
    [[nodiscard]] virtual unsigned short execNuboDataRead(ClNuboCommand& command,
                                                          ClNuboCommandDataReceive& data,
                                                          ClUsbController* controller) = 0;
    [[nodiscard]] virtual unsigned short execNuboGetWifiInfo(ClUsbController* controller,
                                                             stWifiInfo* info) = 0;
    [[nodiscard]] virtual unsigned short execNuboGetAccesspointList(
        ClUsbController* controller, QList<stAccesspointInfo>* list) = 0;
};

/// What the dispatcher needs of the USB side: the transactions, and a way to answer. USB thread
/// only.
class ClCameraAccess : public ClCameraTransactions {
public:
    /// Reads once (1000 ms, at most 1024 bytes) and sends what came, possibly nothing, as
    /// USB_CMD_NOTIFY_RECEIVE_DATA. Sends nothing when the camera is not live or goes meanwhile.
    virtual void readRawData(ClUsbController* controller) = 0;

    /// Sends @p message to the user interface.
    virtual void sendMessage(const VX_CMD& message) = 0;
    /// Sends the plain result message that answers @p command.
    virtual void sendCommunicationResult(void* controller, QUuid command,
                                         unsigned short result) = 0;
};
