// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClBulkPort.h"
#include "protocol/ClCameraAccess.h"

#include <QObject>

#include <atomic>

namespace bench {

/// A camera that has succeeded with every command before the write has returned.
class ScriptedPort : public ClBulkPort {
public:
    int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) override;
    QByteArray read(int timeoutMs, unsigned char endpoint, int* status) override;

private:
    QByteArray m_answer;
};

/// The USB side with a scripted camera in place of libusb's: runs requests as the USB manager does.
/// Of the transactions it knows the plain command; the rest fail.
class ScriptedCamera : public QObject, public ClCameraAccess {
    Q_OBJECT

public:
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

Q_SIGNALS:
    void sigSendCommand(const VX_CMD& clCommand);

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand);

private:
    ScriptedPort m_port;
    std::atomic<bool> m_stop = false;
};

}  // namespace bench
