// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/usb/FaultMatrix.h"

#include <algorithm>
#include <cerrno>

using namespace nubo::simulator;

namespace {

/// How a camera gets lost.
struct stWay {
    const char* name;
    FaultKind fault;
    bool isPulled;  ///< by the test, while the tool waits for the transfer, not by the fault
};

constexpr std::array WAYS{
    stWay{"gone", FaultKind::DeviceGone, false},
    stWay{"unplugged", FaultKind::UnplugBefore, false},
    stWay{"pulled", FaultKind::Timeout, true},
};

struct stLoss {
    QByteArray name;
    const stKind* kind;
    Fault fault;
    bool isPulled;
    QByteArray outcome;  ///< empty: nothing but the news that the camera has gone
};

/// Every row needs a camera, and one program has no more than 50 handles.
bool isTried(const stKind& kind, const stWay& way) {
    return !way.isPulled || kind.request == USB_REQ_NUBO_CMD_GET_WIFI_INFO;
}

bool wasGivenUp(const TransferRecord& transfer) {
    return transfer.status == -ENOENT;
}

QList<stLoss> losses() {
    QList<stLoss> rows;
    for (const stKind& kind : KINDS) {
        for (unsigned transfer = 1; transfer <= kind.transfers.size(); ++transfer) {
            const char place = kind.transfers[transfer - 1];
            // A write that moves nothing is a success, unless more is read after it.
            const bool isUnnoticed =
                place == 'w' || (place == 'W' && kind.request != USB_REQ_NUBO_CMD_GET_WIFI_INFO &&
                                 kind.request != USB_NUBO_CMD_REQ_AUDIO);
            QByteArray outcome = isUnnoticed ? kind.success : "USB_CMD_ERROR 0xef00";
            if (place == 'R') {
                outcome.clear();
            }
            for (const stWay& way : WAYS) {
                if (isTried(kind, way)) {
                    rows.append({transferName(kind, transfer) + ": " + way.name,
                                 &kind,
                                 {.kind = way.fault, .nth = transfer},
                                 way.isPulled,
                                 outcome});
                }
            }
        }
    }
    return rows;
}

}  // namespace

/// The camera goes during, and between, all transfers of all kinds of transactions. Every row has
/// a camera of its own.
class FaultMatrixUnplugTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theToolIsReportedOnceAndGoesOn_data();
    void theToolIsReportedOnceAndGoesOn();
    void everyCameraWorksWhenItIsBack();

private:
    const QList<stLoss> m_losses = losses();
    ManagerBench m_bench;
    std::map<unsigned int, DeviceId> m_cameras;              ///< by the charge of the battery
    std::map<unsigned int, ClUsbController*> m_controllers;  ///< likewise
};

void FaultMatrixUnplugTest::initTestCase() {
    for (unsigned int charge = 0; charge < m_losses.size(); ++charge) {
        m_cameras[charge] = m_bench.bus.plug(makeMatrixCamera(charge));
    }
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(std::ssize(m_cameras)));
    m_controllers = m_bench.controllersByCharge();
    QCOMPARE(m_controllers.size(), m_cameras.size());
}

void FaultMatrixUnplugTest::theToolIsReportedOnceAndGoesOn_data() {
    QTest::addColumn<unsigned int>("charge");
    for (unsigned int charge = 0; charge < m_losses.size(); ++charge) {
        QTest::newRow(m_losses[charge].name.constData()) << charge;
    }
}

void FaultMatrixUnplugTest::theToolIsReportedOnceAndGoesOn() {
    QFETCH(const unsigned int, charge);
    const auto& [name, kind, fault, isPulled, outcome] = m_losses[charge];
    const DeviceId camera = m_cameras.at(charge);
    ClUsbController* const controller = m_controllers.at(charge);
    m_bench.ui.forgetArrivals();
    m_bench.bus.addFault(camera, fault);
    const std::uint64_t transfers = m_bench.bus.log(camera).transferCount;
    sendRequest(m_bench, *kind, controller);
    if (isPulled) {
        const auto waits = [before = transfers + fault.nth - 1](const DeviceLog& log) {
            return log.transferCount == before && log.pendingTransfers == 1;
        };
        QVERIFY(m_bench.bus.waitForLog(camera, waits, PATIENCE));
        QVERIFY(m_bench.bus.unplug(camera));
    }
    const qsizetype answerCount = outcome.isEmpty() ? 0 : 1;
    QVERIFY(m_bench.ui.waitForClosed(1));
    TRY_COMPARE(m_bench.ui.answers().size(), answerCount);
    // The transfer itself notices, not the next pass of the search: the close message comes first.
    QCOMPARE(getCommand(m_bench.ui.arrivals().first().message), USB_CMD_DEVICE_CLOSE);
    // No time-out is waited for.
    const DeviceLog log = m_bench.bus.log(camera);
    QVERIFY(std::none_of(log.transfers.begin() + static_cast<std::ptrdiff_t>(transfers),
                         log.transfers.end(), wasGivenUp));
    if (answerCount == 1) {
        QCOMPARE(outcomeOf(m_bench.ui.answers().first()), outcome);
    }
    QCOMPARE(m_bench.ui.closed(), QList<ClUsbController*>{controller});
    QCOMPARE(outcomeOf(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, controller)),
             "USB_CMD_ERROR 0xef00");
    QVERIFY(m_bench.bus.waitForPlugged(camera, false, PATIENCE));
    QCOMPARE(m_bench.search(), 1);
    QVERIFY(m_bench.waitForHandles(camera, 0));
    QCOMPARE(m_bench.ui.arrivals().size(), answerCount + 2);
}

void FaultMatrixUnplugTest::everyCameraWorksWhenItIsBack() {
    // The announcements of the emulated bus end the process when nobody has read the last ten.
    constexpr int BURST = 5;
    m_bench.ui.forgetArrivals();
    int back = 0;
    for (const auto& [charge, camera] : m_cameras) {
        QVERIFY(m_bench.bus.replug(camera));
        if (++back % BURST == 0) {
            QVERIFY(m_bench.ui.waitForOpened(back));
        }
    }
    QVERIFY(m_bench.ui.waitForOpened(std::ssize(m_cameras)));
    QCOMPARE(m_bench.ui.closed().size(), 0);
    QVERIFY(m_bench.manager->canCommunication());
    m_controllers = m_bench.controllersByCharge();
    QCOMPARE(m_controllers.size(), m_cameras.size());
    for (const auto& [charge, controller] : m_controllers) {
        m_bench.ui.forgetArrivals();
        const stKind& kind = *m_losses[charge].kind;
        sendRequest(m_bench, kind, controller);
        TRY_COMPARE(m_bench.ui.answers().size(), 1);
        QCOMPARE(outcomeOf(m_bench.ui.answers().first()), kind.success);
    }
}

const TestSubject registered = subjectWithoutScreen<FaultMatrixUnplugTest>();
#include "FaultMatrixUnplugTest.moc"
