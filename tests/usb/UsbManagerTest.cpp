// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "simulator/RootHub.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"

#include <QSemaphore>
#include <QTest>
#include <QTimer>

using namespace nubo::simulator;

namespace {

using namespace std::chrono_literals;

constexpr std::chrono::milliseconds CONNECT_WAIT = 500ms;
constexpr stUsbTimes TIMES{.search = 100ms, .connectWait = CONNECT_WAIT};

/// Starts a timer on this thread that does @p work once and deletes itself.
///
/// However busy the machine is, the timers of a thread end in the order in which they are due: one
/// that is due a little earlier or later than another is a bound for it, and no clock is.
template <class Work>
void startReference(std::chrono::milliseconds time, Work work) {
    auto* const reference = new QTimer;
    reference->setSingleShot(true);
    reference->setTimerType(Qt::PreciseTimer);
    QObject::connect(reference, &QTimer::timeout, reference, [reference, work] {
        work();
        reference->deleteLater();
    });
    reference->start(time);
}

/// Keeps the manager's thread from its events until it is let go.
class BusyWorker {
public:
    explicit BusyWorker(ManagerBench& bench) {
        ThreadTask::start(*bench.manager, [this] { m_end.acquire(); });
    }
    void letGo() { m_end.release(); }

private:
    QSemaphore m_end;
};

unsigned int chargeOf(ManagerBench& bench, ClUsbController* camera) {
    return bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, camera).value(Key::PARAM3).toUInt();
}

}  // namespace

/// When cameras are searched and announced, and when they are reported as gone.
class UsbManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBusIsSearchedEverySecond();
    void aCameraIsAnnouncedAfterThreeSeconds();
    void anAnnouncementNamesTheCamera();
    void everyCameraIsFoundAndAnnouncedOnce();
    void aCameraUnpluggedWhileItWaitsIsNeverAnnounced();
    void aCameraPluggedInAgainIsAnnouncedAgain();
    void aCameraWithoutHubStaysUntilTheBusCanBeRead();
    void closingTheDevicesEndsTheirWait();
};

void UsbManagerTest::theBusIsSearchedEverySecond() {
    ManagerBench bench(stUsbTimes{});
    const DeviceId camera = bench.plugCamera({.busyInterfaces = {0}});
    QList<qsizetype> claims;
    const auto countClaims = [&] {
        bench.runOnWorker([] {});  // what the search timer has started is through
        claims.append(std::ssize(bench.bus.log(camera).refusedClaims));
    };
    // The search timer may be a twentieth early or late.
    startReference(900ms, countClaims);
    QCOMPARE(bench.start(), 0);
    startReference(1100ms, [&] {
        countClaims();
        startReference(1100ms, countClaims);
    });
    TRY_COMPARE(claims.size(), 3);
    QCOMPARE(claims.at(0), 1);
    QCOMPARE(claims.at(1), 2);
    QCOMPARE_GE(claims.at(2), 3);
}

void UsbManagerTest::aCameraIsAnnouncedAfterThreeSeconds() {
    ManagerBench bench(stUsbTimes{});
    bench.plugCamera();
    QStringList events;  // of the manager's thread
    connect(bench.manager.get(), &ClUsbManager::sigSendCommand, bench.manager.get(),
            [&events](const VX_CMD& message) { events << getUsbCommand(getCommand(message)); });
    const auto startReferenceOnWorker = [&](std::chrono::milliseconds time) {
        bench.runOnWorker([&events, time] {
            startReference(time, [&events, time] { events << QString::number(time.count()); });
        });
    };
    startReferenceOnWorker(2900ms);
    QCOMPARE(bench.start(), 0);
    startReferenceOnWorker(3100ms);
    const auto seen = [&] { return bench.runOnWorker([&events] { return events; }); };
    TRY_VERIFY(seen().contains(QStringLiteral("3100")));
    QCOMPARE(seen(), (QStringList{QStringLiteral("2900"), QStringLiteral("USB_CMD_DEVICE_OPEN"),
                                  QStringLiteral("3100")}));
}

void UsbManagerTest::anAnnouncementNamesTheCamera() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QCOMPARE(bench.bus.log(camera).openHandles, 1);
    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE(bench.ui.arrivals().size(), 1);
    const VX_CMD message = bench.ui.arrivals().first().message;
    QCOMPARE(message.keys(), (QStringList{Key::CMD, Key::PARAM1}));
    QCOMPARE(message.value(Key::CMD).typeId(), int{QMetaType::QUuid});
    QCOMPARE(message.value(Key::PARAM1).typeId(), int{QMetaType::VoidStar});
    QVERIFY(getController(message) != nullptr);
}

void UsbManagerTest::everyCameraIsFoundAndAnnouncedOnce() {
    ManagerBench bench(TIMES);
    bench.plugCamera({}, 11);
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));

    const qint64 plugged = bench.ui.now();
    bench.plugCamera({}, 22);
    QVERIFY(bench.ui.waitForOpened(2));
    QCOMPARE_GE(bench.ui.arrivals().last().atMs, plugged + CONNECT_WAIT.count());
    // The searches after the first announcement brought no second one.
    QCOMPARE(bench.ui.opened().size(), 2);
    QCOMPARE(bench.ui.closed().size(), 0);
    QCOMPARE(chargeOf(bench, bench.ui.opened().at(0)), 11U);
    QCOMPARE(chargeOf(bench, bench.ui.opened().at(1)), 22U);
}

void UsbManagerTest::aCameraUnpluggedWhileItWaitsIsNeverAnnounced() {
    ManagerBench bench(TIMES);
    const DeviceId early = bench.plugCamera({}, 11);
    BusyWorker worker(bench);
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.bus.unplug(early));
    QMetaObject::invokeMethod(bench.manager.get(), &ClUsbManager::slotDeviceSearch,
                              Qt::QueuedConnection);
    worker.letGo();
    QVERIFY(bench.ui.waitForClosed(1));
    QVERIFY(bench.waitForHandles(early, 0));

    // The wait of the next camera outlasts that of the first one, and ends by itself even if its
    // controller has got the same address.
    const qint64 plugged = bench.ui.now();
    bench.plugCamera({}, 22);
    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE_GE(bench.ui.arrivals().last().atMs, plugged + CONNECT_WAIT.count());
    QCOMPARE(bench.ui.opened().size(), 1);
    QCOMPARE(bench.ui.closed().size(), 1);
    QCOMPARE(chargeOf(bench, bench.ui.opened().first()), 22U);
}

void UsbManagerTest::aCameraPluggedInAgainIsAnnouncedAgain() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));

    QVERIFY(bench.bus.unplug(camera));
    QVERIFY(bench.ui.waitForClosed(1));
    QCOMPARE(bench.ui.closed(), bench.ui.opened());

    QVERIFY(bench.bus.replug(camera));
    QVERIFY(bench.ui.waitForOpened(2));
    QCOMPARE(bench.ui.closed().size(), 1);
    QCOMPARE(chargeOf(bench, bench.ui.opened().last()), 85U);
}

void UsbManagerTest::aCameraWithoutHubStaysUntilTheBusCanBeRead() {
    ManagerBench bench(ManagerBench::Hub::Missing, NO_SEARCH);
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.bus.unplug(camera));
    QCOMPARE(bench.search(), 0);
    QVERIFY(bench.manager->canCommunication());
    QCOMPARE(bench.ui.closed().size(), 0);

    plugRootHub(bench.bus);
    QCOMPARE(bench.search(), 1);
    QVERIFY(!bench.manager->canCommunication());
    QVERIFY(bench.ui.waitForClosed(1));
}

void UsbManagerTest::closingTheDevicesEndsTheirWait() {
    ManagerBench bench(TIMES);
    const DeviceId camera = bench.plugCamera();
    BusyWorker worker(bench);
    QCOMPARE(bench.start(), 0);
    bench.bus.setBusyInterfaces(camera, {0});
    ThreadTask::start(*bench.manager, [&bench] { bench.manager->closeDevice(); });
    worker.letGo();
    bench.runOnWorker([] {});
    QVERIFY(!bench.manager->canCommunication());
    QVERIFY(bench.waitForHandles(camera, 0));

    // Opened again some passes later, it waits as long as ever from then on.
    TRY_VERIFY(bench.bus.log(camera).refusedClaims.size() >= 2);
    const qint64 freed = bench.ui.now();
    bench.bus.setBusyInterfaces(camera, {});
    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE_GE(bench.ui.arrivals().first().atMs, freed + CONNECT_WAIT.count());
    QCOMPARE(bench.ui.arrivals().size(), 1);
}

const TestSubject registered = subjectWithoutScreen<UsbManagerTest>();
#include "UsbManagerTest.moc"
