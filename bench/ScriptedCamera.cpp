// SPDX-License-Identifier: MIT
#include "bench/ScriptedCamera.h"

#include "protocol/RequestDispatcher.h"

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

void ScriptedCamera::slotReceiveCommand(const VX_CMD& clCommand) {
    dispatchRequest(clCommand, *this);
}

}  // namespace bench
