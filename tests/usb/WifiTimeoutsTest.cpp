// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/DisturbedTransaction.h"

#include <QTest>

using namespace nubo::simulator;

namespace {

struct stRow {
    const char* name;
    Fault fault;
    Answer answer;
    qint64 leastMs;
};

// Transfer 1 is the write, 2 the answer, 3 and 4 are the packets that follow it.
constexpr std::array ROWS{
    stRow{"the write times out", {.kind = FaultKind::Timeout}, Answer::Failure, 4000},
    stRow{"the write stalls", {.kind = FaultKind::Stall}, Answer::Failure, 3000},
    stRow{"the command is lost",
          {.kind = FaultKind::Timeout, .unit = FaultUnit::Command},
          Answer::Failure,
          9000},
    stRow{"one read of the answer times out",
          {.kind = FaultKind::Timeout, .nth = 2},
          Answer::Whole,
          3000},
    stRow{"a foreign answer", {.kind = FaultKind::ForeignId, .nth = 2}, Answer::Failure, 3000},
    stRow{"one read of the texts times out",
          {.kind = FaultKind::Timeout, .nth = 3},
          Answer::Whole,
          1000},
    stRow{"all reads of the texts time out",
          {.kind = FaultKind::Timeout, .nth = 3, .count = 3},
          Answer::Failure,
          3000},
    stRow{"the camera refuses the texts",
          {.kind = FaultKind::CameraError, .argument = 0xFFF9, .nth = 3},
          Answer::Failure,
          3000},
    stRow{"all reads of the values time out",
          {.kind = FaultKind::Timeout, .nth = 4, .count = 3},
          Answer::Failure,
          3000},
    stRow{"foreign values", {.kind = FaultKind::ForeignId, .nth = 4}, Answer::Failure, 3000},
};

}  // namespace

/// The Wi-Fi information waits for the answer three times three seconds, for each of the packets
/// that follow three times one second.
class WifiTimeoutsTest : public DisturbedTransaction {
    Q_OBJECT

private Q_SLOTS:
    void aRequestWaitsNoLongerThanStated_data();
    void aRequestWaitsNoLongerThanStated() { runRow(); }
};

void WifiTimeoutsTest::aRequestWaitsNoLongerThanStated_data() {
    QTest::addColumn<stDisturbedRequest>("row");
    for (const auto& [name, fault, answer, leastMs] : ROWS) {
        addRow(name,
               {USB_REQ_NUBO_CMD_GET_WIFI_INFO, fault, answer, "USB_CMD_ERROR 0xef03", leastMs});
    }
}

const TestSubject registered = subjectWithoutScreen<WifiTimeoutsTest>();
#include "WifiTimeoutsTest.moc"
