// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/FuzzedPort.h"
#include "protocol/ClCameraAccess.h"
#include "protocol/ClNuboTransactions.h"

#include <QList>

/// The USB side with one live camera behind a fuzzed port. Requests name the camera by an address
/// that is only compared. Messages are collected.
class FuzzedCamera : public ClCameraAccess {
public:
    FuzzedCamera(FuzzInput& input, const void* liveController)
        : m_port(input),
          m_liveController(liveController) {}

    [[nodiscard]] const FuzzedPort& port() const { return m_port; }
    [[nodiscard]] const QList<VX_CMD>& messages() const { return m_messages; }
    [[nodiscard]] int rawReads() const { return m_rawReads; }

    unsigned short execNuboCommand(ClNuboCommand& command, ClUsbController* controller,
                                   int timeoutMs) override;
    unsigned short execNuboDataWrite(ClNuboCommand& command, ClNuboCommandDataSend& data,
                                     ClUsbController* controller) override;
    unsigned short execNuboDataRead(ClNuboCommand& command, ClNuboCommandDataReceive& data,
                                    ClUsbController* controller) override;
    unsigned short execNuboGetWifiInfo(ClUsbController* controller, stWifiInfo* info) override;
    unsigned short execNuboGetAccesspointList(ClUsbController* controller,
                                              QList<stAccesspointInfo>* list) override;
    void readRawData(ClUsbController* controller) override;
    void sendMessage(const VX_CMD& message) override;
    void sendCommunicationResult(void* controller, QUuid command, unsigned short result) override;

private:
    [[nodiscard]] bool isLive(const void* controller) const {
        return controller == m_liveController;
    }

    FuzzedPort m_port;
    const void* m_liveController;
    ClNuboTransactions m_transactions{m_port, m_port.stop()};
    QList<VX_CMD> m_messages;
    int m_rawReads = 0;
};
