// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/DisturbedTransaction.h"

#include <QTest>

using namespace nubo::simulator;

namespace {

const QByteArray TIMED_OUT = "USB_CMD_ERROR 0xef03";
constexpr Fault LOST_COMMAND{.kind = FaultKind::Timeout, .unit = FaultUnit::Command};

}  // namespace

/// Plain requests that wait: a write for one second, an answer for three times one second.
class TransactionTimeoutsTest : public DisturbedTransaction {
    Q_OBJECT

private Q_SLOTS:
    void aRequestWaitsNoLongerThanStated_data();
    void aRequestWaitsNoLongerThanStated() { runRow(); }
};

void TransactionTimeoutsTest::aRequestWaitsNoLongerThanStated_data() {
    QTest::addColumn<stDisturbedRequest>("row");
    const QUuid get = USB_REQ_NUBO_CMD_GET_BATTERY;
    const QUuid action = USB_NUBO_CMD_FORMAT_SD;
    addRow("get: the write times out",
           {get, {.kind = FaultKind::Timeout}, Answer::Hollow, {}, 1000});
    addRow("get: one read times out",
           {get, {.kind = FaultKind::Timeout, .nth = 2}, Answer::Whole, {}, 1000});
    // The answer comes when nobody waits any more; the next request has to pass over it.
    addRow("get: three reads time out", {get,
                                         {.kind = FaultKind::Timeout, .nth = 2, .count = 3},
                                         Answer::Failure,
                                         TIMED_OUT,
                                         3000});
    addRow("get: the command is lost", {get, LOST_COMMAND, Answer::Failure, TIMED_OUT, 3000});
    addRow("get: a foreign answer",
           {get, {.kind = FaultKind::ForeignId, .nth = 2}, Answer::Failure, TIMED_OUT, 3000});
    addRow("get: half a head", {get,
                                {.kind = FaultKind::ShortPacket, .argument = 3, .nth = 2},
                                Answer::Failure,
                                TIMED_OUT,
                                3000});
    addRow("action: the write times out",
           {action, {.kind = FaultKind::Timeout}, Answer::Whole, {}, 1000});
    addRow("action: the command is lost", {action, LOST_COMMAND, Answer::Failure, TIMED_OUT, 3000});
}

const TestSubject registered = subjectWithoutScreen<TransactionTimeoutsTest>();
#include "TransactionTimeoutsTest.moc"
