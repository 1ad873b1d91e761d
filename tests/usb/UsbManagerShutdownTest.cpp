// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"

#include <QSemaphore>
#include <QTest>

using namespace nubo::simulator;

namespace {

constexpr stUsbTimes ENDLESS_WAIT{.search = SHORT_USB_TIMES.search,
                                  .connectWait = std::chrono::hours(1)};

/// The transfers that the device has finished, and no more than one that was under way.
std::uint64_t transfersWithTheOneUnderWay(const ManagerBench& bench, DeviceId camera) {
    return bench.bus.log(camera).transferCount + 1;
}

}  // namespace

/// The end of the manager: whatever it is doing, it stops soon and leaves nothing behind.
class UsbManagerShutdownTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anIdleManagerEnds_data();
    void anIdleManagerEnds();
    void anOpenCameraIsGivenBackWithoutAMessage_data();
    void anOpenCameraIsGivenBackWithoutAMessage();
    void aRunningTransactionEndsWithItsRead();
    void requestsThatStillWaitAreDropped();
    void aManagerEndsInTheMiddleOfItsSearch();
};

void UsbManagerShutdownTest::anIdleManagerEnds_data() {
    QTest::addColumn<bool>("isStarted");
    QTest::newRow("never started") << false;
    QTest::newRow("no camera") << true;
}

void UsbManagerShutdownTest::anIdleManagerEnds() {
    QFETCH(const bool, isStarted);
    constexpr int ROUNDS = 20;
    ManagerBench bench;
    const qsizetype files = openFileCount();
    for (int round = 0; round < ROUNDS; ++round) {
        bench.manager = std::make_unique<ClUsbManager>();
        if (isStarted) {
            const qsizetype filesBefore = openFileCount();
            QCOMPARE(bench.start(), 0);
            QCOMPARE_GT(openFileCount(), filesBefore);
        }
        const qint64 before = bench.ui.now();
        bench.manager.reset();
        QCOMPARE_LT(bench.ui.now() - before, SLACK_MS);
    }
    // libusb has ended too, each time. The emulated bus opens a file of its own when its thread
    // comes to it, which may be only now.
    TRY_VERIFY(openFileCount() < files + ROUNDS);
}

void UsbManagerShutdownTest::anOpenCameraIsGivenBackWithoutAMessage_data() {
    QTest::addColumn<int>("announced");
    QTest::newRow("waiting") << 0;
    QTest::newRow("announced") << 1;
}

void UsbManagerShutdownTest::anOpenCameraIsGivenBackWithoutAMessage() {
    QFETCH(const int, announced);
    ManagerBench bench(announced == 0 ? ENDLESS_WAIT : SHORT_USB_TIMES);
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(announced));

    bench.manager.reset();
    QCOMPARE(bench.bus.log(camera).releases, std::vector<int>{0});
    QVERIFY(bench.waitForHandles(camera, 0));
    QCOMPARE(bench.ui.arrivals().size(), announced);
    QCOMPARE(bench.ui.closed().size(), 0);
}

void UsbManagerShutdownTest::aRunningTransactionEndsWithItsRead() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));

    bench.bus.addFault(camera, {.kind = FaultKind::Timeout, .unit = FaultUnit::Command});
    bench.ui.send(USB_REQ_NUBO_CMD_GET_BATTERY, bench.ui.opened().first());
    QVERIFY(bench.bus.waitForTransfers(camera, 1, PATIENCE));
    const std::uint64_t transfers = transfersWithTheOneUnderWay(bench, camera);
    bench.manager.reset();
    // One of the three reads that the transaction would wait for.
    QCOMPARE_LE(bench.bus.log(camera).transferCount, transfers);
    QCOMPARE(bench.bus.log(camera).releases, std::vector<int>{0});
    QVERIFY(bench.waitForHandles(camera, 0));
    QCOMPARE(bench.ui.closed().size(), 0);
}

void UsbManagerShutdownTest::requestsThatStillWaitAreDropped() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));

    bench.bus.addFault(camera, {.kind = FaultKind::Timeout, .unit = FaultUnit::Command});
    // Requests that have come while the thread was busy are delivered together.
    QSemaphore busy;
    ThreadTask::start(*bench.manager, [&] { busy.acquire(); });
    for (int i = 0; i < 5; ++i) {
        bench.ui.send(USB_NUBO_CMD_FORMAT_SD, bench.ui.opened().first());
    }
    busy.release();
    QVERIFY(bench.bus.waitForTransfers(camera, 1, PATIENCE));
    const std::uint64_t transfers = transfersWithTheOneUnderWay(bench, camera);
    bench.manager.reset();
    QCOMPARE_LE(bench.bus.log(camera).transferCount, transfers);
    QCOMPARE(bench.bus.log(camera).commandCount, std::uint64_t{1});
}

void UsbManagerShutdownTest::aManagerEndsInTheMiddleOfItsSearch() {
    constexpr int ROUNDS = 20;
    ManagerBench bench;
    bench.manager.reset();
    const DeviceId camera = bench.plugCamera();
    qsizetype files = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        bench.manager = std::make_unique<ClUsbManager>();
        QCOMPARE(bench.start(), 0);
        for (int pass = 0; pass < round; ++pass) {
            QMetaObject::invokeMethod(bench.manager.get(), "slotDeviceSearch",
                                      Qt::QueuedConnection);
        }
        const qint64 before = bench.ui.now();
        bench.manager.reset();
        QCOMPARE_LT(bench.ui.now() - before, SLACK_MS);
        QCOMPARE(bench.bus.log(camera).timesOpened, round + 1);
        QVERIFY(bench.waitForHandles(camera, 0));
        if (round == 0) {
            files = openFileCount();
        }
    }
    // The emulated bus closes its end of a handle a little later.
    TRY_VERIFY(openFileCount() <= files);
}

const TestSubject registered = subjectWithoutScreen<UsbManagerShutdownTest>();
#include "UsbManagerShutdownTest.moc"
