// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/usb/FaultMatrix.h"

#include <optional>

using namespace nubo::simulator;

namespace {

// A time-out of libusb may end a little before its time.
constexpr qint64 EARLY_MS = 10;
const QByteArray OTHER = "USB_CMD_ERROR 0xef05";
const QByteArray TIMED_OUT = "USB_CMD_ERROR 0xef03";
const QByteArray BAD_DATA = "USB_CMD_ERROR 0xef04";
// The head of the data is taken for the answer, its count for a code of the camera.
const QByteArray COUNT_AS_CODE = "USB_NUBO_CMD_RESPONSE 0x3f4";
const QByteArray CAMERA_IS_BUSY = "USB_NUBO_CMD_RESPONSE 0xfff9";

struct stEnd {
    QByteArray outcome;
    qint64 leastMs = 0;
};

/// How a transaction ends when the transfer at this place meets the fault; nothing for a fault that
/// says nothing of such a transfer.
using EndOf = std::optional<stEnd> (*)(const stKind& kind, char place);

/// A write that moves nothing ends the command as a success; what should follow is waited for.
stEnd endOfEmptyWrite(const stKind& kind, char place) {
    const bool waitsForMore = place == 'W' && kind.request != USB_NUBO_CMD_EXEC_FWUPDATEDATA;
    if (waitsForMore && kind.request == USB_REQ_NUBO_CMD_GET_WIFI_INFO) {
        return {TIMED_OUT, 3000};
    }
    if (waitsForMore && kind.request == USB_NUBO_CMD_REQ_AUDIO) {
        return {TIMED_OUT, 1000};
    }
    return {kind.success};
}

bool isWrite(char place) {
    return place == 'W' || place == 'w';
}

bool isData(char place) {
    return place == 'D' || place == 'd';
}

std::optional<stEnd> endOfRefusal(const stKind& kind, char place) {
    if (isWrite(place)) {
        return endOfEmptyWrite(kind, place);
    }
    return stEnd{isData(place) ? OTHER : kind.success};
}

std::optional<stEnd> endOfRefusals(const stKind&, char place) {
    if (isWrite(place) || place == 'R') {
        return std::nullopt;
    }
    return stEnd{OTHER};
}

std::optional<stEnd> endOfEmptyPacket(const stKind& kind, char place) {
    if (isWrite(place) || place == 'R') {
        return std::nullopt;
    }
    return stEnd{isData(place) ? OTHER : kind.success};
}

std::optional<stEnd> endOfCutPacket(const stKind& kind, char place) {
    if (isWrite(place) || place == 'R') {
        return std::nullopt;
    }
    if (isData(place)) {
        return stEnd{TIMED_OUT, 1000};
    }
    const bool isSizeLost = place == 'A' && kind.request == USB_NUBO_CMD_REQ_AUDIO;
    return stEnd{isSizeLost ? BAD_DATA : kind.success};
}

std::optional<stEnd> endOfForeignId(const stKind& kind, char place) {
    if (place == 'D') {
        return stEnd{BAD_DATA};
    }
    if (place == 'A' && kind.request == USB_NUBO_CMD_REQ_AUDIO) {
        return stEnd{COUNT_AS_CODE};
    }
    const bool isAwaited = place == 'A' || place == 'F';
    return isAwaited ? std::optional(stEnd{TIMED_OUT, 3000}) : std::nullopt;
}

std::optional<stEnd> endOfForeignIds(const stKind& kind, char place) {
    switch (place) {
        case 'A':
            return stEnd{TIMED_OUT, 3 * kind.answerMs};
        case 'F':
            return stEnd{TIMED_OUT, 3000};
        case 'D':
            return stEnd{BAD_DATA};
        default:
            return std::nullopt;
    }
}

std::optional<stEnd> endOfCameraError(const stKind&, char place) {
    if (place == 'A') {
        return stEnd{CAMERA_IS_BUSY};
    }
    return place == 'F' ? std::optional(stEnd{TIMED_OUT, 3000}) : std::nullopt;
}

std::optional<stEnd> endOfWrongHead(const stKind&, char place) {
    return place == 'D' ? std::optional(stEnd{BAD_DATA}) : std::nullopt;
}

std::optional<stEnd> endOfTimeout(const stKind& kind, char place) {
    if (isWrite(place)) {
        const stEnd end = endOfEmptyWrite(kind, place);
        return stEnd{end.outcome, end.leastMs + 1000};
    }
    if (isData(place)) {
        return stEnd{TIMED_OUT, 1000};
    }
    return stEnd{kind.success, place == 'A' ? kind.answerMs : 1000};
}

std::optional<stEnd> endOfTimeouts(const stKind& kind, char place) {
    if (place == 'A') {
        return stEnd{TIMED_OUT, 3 * kind.answerMs};
    }
    return place == 'F' ? std::optional(stEnd{TIMED_OUT, 3000}) : std::nullopt;
}

struct stFault {
    const char* name;
    Fault fault;
    EndOf end;
};

const std::array FAULTS{
    stFault{"busy once", {.kind = FaultKind::Busy}, endOfRefusal},
    stFault{"busy", {.kind = FaultKind::Busy, .count = 3}, endOfRefusals},
    stFault{"stall once", {.kind = FaultKind::Stall}, endOfRefusal},
    stFault{"stall", {.kind = FaultKind::Stall, .count = 3}, endOfRefusals},
    stFault{"empty packet", {.kind = FaultKind::EmptyPacket}, endOfEmptyPacket},
    stFault{"cut packet", {.kind = FaultKind::ShortPacket, .argument = 12}, endOfCutPacket},
    stFault{"foreign id once", {.kind = FaultKind::ForeignId}, endOfForeignId},
    stFault{"foreign id", {.kind = FaultKind::ForeignId, .count = Fault::FOREVER}, endOfForeignIds},
    stFault{"camera error", {.kind = FaultKind::CameraError, .argument = 0xFFF9}, endOfCameraError},
    stFault{"wrong data head", {.kind = FaultKind::WrongDataHead}, endOfWrongHead},
    stFault{"time-out once", {.kind = FaultKind::Timeout}, endOfTimeout},
    stFault{"time-out", {.kind = FaultKind::Timeout, .count = 3}, endOfTimeouts},
};

}  // namespace

/// The rows of a subject: the faults that a transaction waits for so long, of the kinds of
/// transactions that await their answer for so long.
struct stShare {
    qint64 leastWaitMs;
    qint64 mostWaitMs;
    qint64 leastAnswerMs = 0;
    qint64 mostAnswerMs = 3000;
};

/// Every fault in every transfer of every kind of transaction, on a camera that stays. Several
/// subjects share its rows, since they wait for real time-outs.
class FaultMatrixTest : public QObject {
    Q_OBJECT

public:
    explicit FaultMatrixTest(const stShare& share) : m_share(share) {}

private Q_SLOTS:
    void initTestCase();
    void init() { m_bench.ui.forgetArrivals(); }
    void cleanup() { m_bench.bus.clearFaults(m_camera); }
    void theToolIsReportedOnceAndGoesOn_data();
    void theToolIsReportedOnceAndGoesOn();

private:
    stShare m_share;
    ManagerBench m_bench;
    DeviceId m_camera = m_bench.bus.plug(makeMatrixCamera(85));
    ClUsbController* m_controller = nullptr;
};

void FaultMatrixTest::initTestCase() {
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(1));
    m_controller = m_bench.ui.opened().first();
}

void FaultMatrixTest::theToolIsReportedOnceAndGoesOn_data() {
    QTest::addColumn<const stKind*>("kind");
    QTest::addColumn<Fault>("fault");
    QTest::addColumn<stEnd>("end");
    for (const stKind& kind : KINDS) {
        if (kind.answerMs < m_share.leastAnswerMs || kind.answerMs > m_share.mostAnswerMs) {
            continue;
        }
        for (unsigned transfer = 1; transfer <= kind.transfers.size(); ++transfer) {
            for (const stFault& row : FAULTS) {
                std::optional<stEnd> end = row.end(kind, kind.transfers[transfer - 1]);
                // A raw read finds nothing in time when the camera has nothing to say.
                if (end && kind.transfers == "R" && row.fault.kind == FaultKind::Timeout) {
                    end->leastMs = 1000;
                }
                if (end && end->leastMs >= m_share.leastWaitMs &&
                    end->leastMs <= m_share.mostWaitMs) {
                    Fault fault = row.fault;
                    fault.nth = transfer;
                    QTest::newRow((transferName(kind, transfer) + ": " + row.name).constData())
                        << &kind << fault << *end;
                }
            }
        }
    }
}

void FaultMatrixTest::theToolIsReportedOnceAndGoesOn() {
    QFETCH(const stKind*, kind);
    QFETCH(const Fault, fault);
    QFETCH(const stEnd, end);
    m_bench.bus.addFault(m_camera, fault);
    const qint64 before = m_bench.ui.now();
    sendRequest(m_bench, *kind, m_controller);
    TRY_COMPARE(m_bench.ui.answers().size(), 1);
    const qint64 taken = m_bench.ui.now() - before;
    QVERIFY(m_bench.manager->canCommunication());
    QCOMPARE(outcomeOf(m_bench.ui.answers().first()), end.outcome);
    QCOMPARE_GE(taken, end.leastMs - EARLY_MS);
    QCOMPARE_LT(taken, end.leastMs + SLACK_MS);

    m_bench.bus.clearFaults(m_camera);
    waitForAnotherId();
    QCOMPARE(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_controller).value(Key::PARAM3), 85U);
    // Answers come in the order of the requests: a second one to the first would be here by now.
    QCOMPARE(m_bench.ui.arrivals().size(), 2);
}

template <stShare SHARE>
int runShare(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    FaultMatrixTest test(SHARE);
    return QTest::qExec(&test, argc, argv);
}

const TestSubject atOnce("FaultMatrixTest", runShare<stShare{0, 0}>);
const TestSubject afterShortWaits("FaultMatrixWaitsTest", runShare<stShare{1, 2000}>);
const TestSubject afterLongWaits("FaultMatrixLongWaitsTest",
                                 runShare<stShare{2001, 9000, 0, 1000}>);
const TestSubject afterLongestWaits("FaultMatrixLongestWaitsTest",
                                    runShare<stShare{2001, 9000, 3000, 3000}>);
#include "FaultMatrixTest.moc"
