// SPDX-License-Identifier: MIT
#include "fuzz/FuzzedCamera.h"

#include "protocol/ResultCodes.h"

unsigned short FuzzedCamera::execNuboCommand(ClNuboCommand& command, ClUsbController* controller,
                                             int timeoutMs) {
    return isLive(controller) ? m_transactions.command(command, timeoutMs) : USB_NO_DEVICE;
}

unsigned short FuzzedCamera::execNuboDataWrite(ClNuboCommand& command, ClNuboCommandDataSend& data,
                                               ClUsbController* controller) {
    return isLive(controller) ? m_transactions.dataWrite(command, data) : USB_NO_DEVICE;
}

unsigned short FuzzedCamera::execNuboDataRead(ClNuboCommand& command,
                                              ClNuboCommandDataReceive& data,
                                              ClUsbController* controller) {
    return isLive(controller) ? m_transactions.dataRead(command, data) : USB_NO_DEVICE;
}

unsigned short FuzzedCamera::execNuboGetWifiInfo(ClUsbController* controller, stWifiInfo* info) {
    return isLive(controller) ? m_transactions.wifiInfo(*info) : USB_ERROR_BAD_PARAM;
}

unsigned short FuzzedCamera::execNuboGetAccesspointList(ClUsbController* controller,
                                                        QList<stAccesspointInfo>* list) {
    return isLive(controller) ? m_transactions.accesspointList(*list) : USB_ERROR_BAD_PARAM;
}

void FuzzedCamera::readRawData(ClUsbController*) {
    ++m_rawReads;
}

void FuzzedCamera::sendMessage(const VX_CMD& message) {
    m_messages.append(message);
}

void FuzzedCamera::sendCommunicationResult(void* controller, QUuid command, unsigned short result) {
    m_messages.append(communicationResult(controller, command, result));
}
