// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"

#include <QTest>

#include <malloc.h>

#include <atomic>
#include <new>

using namespace nubo::simulator;

namespace {

/// What was allocated with new, in Qt as in the tool, and not deleted yet.
std::atomic<long> g_liveAllocations = 0;

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = std::malloc(size);
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    ++g_liveAllocations;
    return memory;
}

void operator delete(void* memory) noexcept {
    if (memory != nullptr) {
        --g_liveAllocations;
        std::free(memory);
    }
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
    operator delete(memory);
}

namespace {

constexpr int PASSES = 1000;
constexpr int CYCLES = 100;

/// Bytes in use on the heap; 0 under the sanitizers, which find what is left behind themselves.
std::size_t heapInUse() {
    return mallinfo2().uordblks;
}

}  // namespace

/// Long runs of the search: nothing is left behind. Passes are run one after the other instead of
/// one a second.
class UsbManagerStressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thousandPassesLeaveNothingBehind();
    void hundredPlugCyclesLeaveNothingBehind();
    void hundredRefusalsLeaveNothingBehind();
};

void UsbManagerStressTest::thousandPassesLeaveNothingBehind() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    const auto passes = [&bench](int count) {
        for (int pass = 0; pass < count; ++pass) {
            QCOMPARE(bench.search(), 1);
        }
    };
    passes(PASSES / 10);
    const qsizetype files = openFileCount();
    const std::size_t heap = heapInUse();
    passes(PASSES);
    // A pass that leaves anything behind leaves a list of devices, which is a pointer for each.
    QCOMPARE_LT(heapInUse(), heap + PASSES * sizeof(void*));
    QCOMPARE(openFileCount(), files);
    QCOMPARE(bench.bus.log(camera).timesOpened, 1);
    QCOMPARE(bench.bus.log(camera).openHandles, 1);
    QCOMPARE(bench.ui.closed().size(), 0);
}

void UsbManagerStressTest::hundredPlugCyclesLeaveNothingBehind() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QVERIFY(bench.bus.unplug(camera));
    QCOMPARE(bench.start(), 0);
    const auto cycles = [&](int count) {
        for (int cycle = 0; cycle < count; ++cycle) {
            QVERIFY(bench.bus.replug(camera));
            QCOMPARE(bench.search(), 1);
            QVERIFY(bench.manager->canCommunication());
            QVERIFY(bench.bus.unplug(camera));
            QCOMPARE(bench.search(), 1);
            QVERIFY(!bench.manager->canCommunication());
            QVERIFY(bench.waitForHandles(camera, 0));
            QVERIFY(bench.ui.waitForClosed(1));
            bench.ui.forgetArrivals();
        }
    };
    cycles(CYCLES / 10);
    const qsizetype files = openFileCount();
    const long allocations = g_liveAllocations;
    cycles(CYCLES);
    // The emulated bus closes its end of a handle a little later.
    TRY_VERIFY(openFileCount() <= files);
    // Controllers, timers and their connections; the heap as a whole says nothing here, since the
    // emulated bus grows with every plugging-in.
    TRY_VERIFY(g_liveAllocations < allocations + CYCLES / 2);
    QCOMPARE(bench.bus.log(camera).timesOpened, CYCLES + CYCLES / 10);
}

void UsbManagerStressTest::hundredRefusalsLeaveNothingBehind() {
    ManagerBench bench(NO_SEARCH);
    const DeviceId camera = bench.plugCamera({.busyInterfaces = {0}});
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.waitForHandles(camera, 0));
    const qsizetype files = openFileCount();
    for (int pass = 0; pass < CYCLES; ++pass) {
        QCOMPARE(bench.search(), 1);
    }
    QVERIFY(bench.waitForHandles(camera, 0));
    // The emulated bus closes its end of a handle a little later.
    TRY_VERIFY(openFileCount() <= files);
    QCOMPARE(bench.bus.log(camera).timesOpened, CYCLES + 1);
    QCOMPARE(bench.ui.arrivals().size(), 0);
}

const TestSubject registered("UsbManagerStressTest", [](int argc, char** argv) {
    // One heap for all threads, so that it can be weighed as a whole.
    mallopt(M_ARENA_MAX, 1);
    QCoreApplication app(argc, argv);
    UsbManagerStressTest test;
    return QTest::qExec(&test, argc, argv);
});

#include "UsbManagerStressTest.moc"
