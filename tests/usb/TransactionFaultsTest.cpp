// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/usb/DisturbedTransaction.h"
#include "tests/usb/Requests.h"

#include <QTest>

#include <array>

using namespace nubo::simulator;

namespace {

struct stReadFault {
    const char* name;
    Fault fault;
    Answer answer = Answer::Whole;
    const char* failure = "";
};

const std::array READ_FAULTS{
    stReadFault{"busy once", {.kind = FaultKind::Busy}},
    stReadFault{"stall once", {.kind = FaultKind::Stall}},
    stReadFault{"babble once", {.kind = FaultKind::Babble}},
    stReadFault{"empty packet ahead", {.kind = FaultKind::EmptyPacket}},
    stReadFault{"late", {.kind = FaultKind::Delay, .argument = 50}},
    stReadFault{"over-long packet", {.kind = FaultKind::OverlongPacket}},
    stReadFault{"head only", {.kind = FaultKind::ShortPacket, .argument = 12}, Answer::Hollow},
    stReadFault{
        "busy", {.kind = FaultKind::Busy, .count = 3}, Answer::Failure, "USB_CMD_ERROR 0xef05"},
    stReadFault{
        "stall", {.kind = FaultKind::Stall, .count = 3}, Answer::Failure, "USB_CMD_ERROR 0xef05"},
};

constexpr Fault CAMERA_IS_BUSY{.kind = FaultKind::CameraError, .argument = 0xFFF9, .nth = 2};

}  // namespace

/// Faults that strike one transfer of a request after the other and cost no time-out.
class TransactionFaultsTest : public DisturbedTransaction {
    Q_OBJECT

private Q_SLOTS:
    void aFaultOfATransferEndsOneRequest_data();
    void aFaultOfATransferEndsOneRequest() { runRow(); }
};

void TransactionFaultsTest::aFaultOfATransferEndsOneRequest_data() {
    QTest::addColumn<stDisturbedRequest>("row");
    for (const auto& [name, request, transfers, success] : REQUESTS) {
        // A write that moves nothing ends the transaction as a success; the Wi-Fi information then
        // waits in vain for its other packets, which is among the time-outs.
        if (request != USB_REQ_NUBO_CMD_GET_WIFI_INFO) {
            addRow(QByteArray(name) + ", write: busy",
                   {request, {.kind = FaultKind::Busy}, Answer::Hollow});
            addRow(QByteArray(name) + ", write: stall",
                   {request, {.kind = FaultKind::Stall}, Answer::Hollow});
        }
        for (unsigned transfer = 2; transfer <= transfers; ++transfer) {
            for (const stReadFault& row : READ_FAULTS) {
                Fault fault = row.fault;
                fault.nth = transfer;
                addRow(QByteArray(name) + ", read " + QByteArray::number(transfer - 1) + ": " +
                           row.name,
                       {request, fault, row.answer, row.failure});
            }
        }
        addRow(QByteArray(name) + ": error of the camera",
               {request, CAMERA_IS_BUSY, Answer::Failure, "USB_NUBO_CMD_RESPONSE 0xfff9"});
    }
}

const TestSubject registered = subjectWithoutScreen<TransactionFaultsTest>();
#include "TransactionFaultsTest.moc"
