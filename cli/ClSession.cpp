// SPDX-License-Identifier: MIT
#include "cli/ClSession.h"

#include "cli/Interruption.h"
#include "protocol/ClNuboTransactions.h"
#include "protocol/ResultCodes.h"

#include <QThread>

namespace {

constexpr int PLAIN_TIMEOUT_MS = 1000;

/// A transaction under way is always finished: half of one would leave its answer to the next.
const std::atomic<bool> NEVER = false;

}  // namespace

int ClSession::open() {
    const int result = m_controller.open();
    return result == LIBUSB_ERROR_NOT_FOUND ? m_controller.claimError() : result;
}

template <class Transaction>
unsigned short ClSession::transact(Transaction transaction) {
    if (Interruption::isRequested()) {
        return NOT_BEGUN;
    }
    ClNuboTransactions transactions(m_port, NEVER, ClNuboTransactions::CutAnswers::Fail);
    const unsigned short result = transaction(transactions);
    if (isTransportError(result)) {
        // The camera may still have an answer to this one. The next command is not to take it for
        // its own, and transaction ids go by the clock's milliseconds.
        QThread::msleep(2);
    }
    return result;
}

unsigned short ClSession::run(ClNuboCommand& command) {
    return execNuboCommand(command, nullptr, PLAIN_TIMEOUT_MS);
}

unsigned short ClSession::execNuboCommand(ClNuboCommand& command, ClUsbController* /*controller*/,
                                          int timeoutMs) {
    return transact(
        [&](ClNuboTransactions& transactions) { return transactions.command(command, timeoutMs); });
}

unsigned short ClSession::execNuboDataWrite(ClNuboCommand& command, ClNuboCommandDataSend& data,
                                            ClUsbController* /*controller*/) {
    return transact(
        [&](ClNuboTransactions& transactions) { return transactions.dataWrite(command, data); });
}

unsigned short ClSession::execNuboDataRead(ClNuboCommand& command, ClNuboCommandDataReceive& data,
                                           ClUsbController* /*controller*/) {
    return transact(
        [&](ClNuboTransactions& transactions) { return transactions.dataRead(command, data); });
}

unsigned short ClSession::execNuboGetWifiInfo(ClUsbController* /*controller*/, stWifiInfo* info) {
    return transact([&](ClNuboTransactions& transactions) { return transactions.wifiInfo(*info); });
}

unsigned short ClSession::execNuboGetAccesspointList(ClUsbController* /*controller*/,
                                                     QList<stAccesspointInfo>* list) {
    return transact(
        [&](ClNuboTransactions& transactions) { return transactions.accesspointList(*list); });
}
