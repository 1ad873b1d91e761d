// SPDX-License-Identifier: MIT
#include "bench/ScriptedCamera.h"

#include "protocol/ClNuboTransactions.h"
#include "protocol/RequestDispatcher.h"
#include "protocol/ResultCodes.h"

namespace bench {

namespace {

constexpr char ANSWER_TYPE = 1;
constexpr qsizetype CODE_PLACE = 8;
constexpr qsizetype CODE_SIZE = 2;

}  // namespace

int ScriptedPort::write(const QByteArray& data, int /*timeoutMs*/, unsigned char /*endpoint*/) {
    // The answer is the command with its transaction id, of another type and with success (0) in
    // place of the code.
    m_answer = data;
    m_answer[0] = ANSWER_TYPE;
    m_answer.replace(CODE_PLACE, CODE_SIZE, QByteArray(CODE_SIZE, '\0'));
    return static_cast<int>(data.size());
}

QByteArray ScriptedPort::read(int /*timeoutMs*/, unsigned char /*endpoint*/, int* /*status*/) {
    return m_answer;
}

unsigned short ScriptedCamera::execNuboCommand(ClNuboCommand& command,
                                               ClUsbController* /*controller*/, int timeoutMs) {
    return ClNuboTransactions(m_port, m_stop).command(command, timeoutMs);
}

unsigned short ScriptedCamera::execNuboDataWrite(ClNuboCommand& /*command*/,
                                                 ClNuboCommandDataSend& /*data*/,
                                                 ClUsbController* /*controller*/) {
    return USB_ERROR_OTHER;
}

unsigned short ScriptedCamera::execNuboDataRead(ClNuboCommand& /*command*/,
                                                ClNuboCommandDataReceive& /*data*/,
                                                ClUsbController* /*controller*/) {
    return USB_ERROR_OTHER;
}

unsigned short ScriptedCamera::execNuboGetWifiInfo(ClUsbController* /*controller*/,
                                                   stWifiInfo* /*info*/) {
    return USB_ERROR_OTHER;
}

unsigned short ScriptedCamera::execNuboGetAccesspointList(ClUsbController* /*controller*/,
                                                          QList<stAccesspointInfo>* /*list*/) {
    return USB_ERROR_OTHER;
}

void ScriptedCamera::readRawData(ClUsbController* /*controller*/) {}

void ScriptedCamera::sendMessage(const VX_CMD& message) {
    Q_EMIT sigSendCommand(message);
}

void ScriptedCamera::sendCommunicationResult(void* controller, QUuid command,
                                             unsigned short result) {
    sendMessage(communicationResult(controller, command, result));
}

void ScriptedCamera::slotReceiveCommand(const VX_CMD& clCommand) {
    dispatchRequest(clCommand, *this);
}

}  // namespace bench
