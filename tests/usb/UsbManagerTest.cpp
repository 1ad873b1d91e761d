// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "simulator/RootHub.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"

#include <QTest>

using namespace nubo::simulator;

namespace {

constexpr qint64 SEARCH_INTERVAL_MS = 1000;
constexpr qint64 CONNECT_WAIT_MS = 3000;

unsigned int chargeOf(ManagerBench& bench, ClUsbController* camera) {
    return bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, camera).value(Key::PARAM3).toUInt();
}

}  // namespace

/// When cameras are announced and when they are reported as gone. In real time.
class UsbManagerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aCameraAtStartIsAnnouncedAfterThreeSeconds();
    void everyCameraIsFoundWithinASecondAndAnnouncedOnce();
    void aCameraUnpluggedWhileItWaitsIsNeverAnnounced();
    void aCameraPluggedInAgainIsAnnouncedAgain();
    void aCameraWithoutHubStaysUntilTheBusCanBeRead();
    void closingTheDevicesEndsTheirWait();
};

void UsbManagerTest::aCameraAtStartIsAnnouncedAfterThreeSeconds() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    const qint64 before = bench.ui.now();
    QCOMPARE(bench.start(), 0);
    const qint64 after = bench.ui.now();
    QCOMPARE(bench.bus.log(camera).openHandles, 1);

    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE(bench.ui.arrivals().size(), 1);
    const auto& [message, atMs] = bench.ui.arrivals().first();
    QCOMPARE_GE(atMs, before + CONNECT_WAIT_MS);
    QCOMPARE_LT(atMs, after + CONNECT_WAIT_MS + SLACK_MS);

    QCOMPARE(message.keys(), (QStringList{Key::CMD, Key::PARAM1}));
    QCOMPARE(message.value(Key::CMD).typeId(), int{QMetaType::QUuid});
    QCOMPARE(message.value(Key::PARAM1).typeId(), int{QMetaType::VoidStar});
    QVERIFY(getController(message) != nullptr);
}

void UsbManagerTest::everyCameraIsFoundWithinASecondAndAnnouncedOnce() {
    ManagerBench bench;
    bench.plugCamera({}, 11);
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));

    const qint64 plugged = bench.ui.now();
    const DeviceId second = bench.plugCamera({}, 22);
    QVERIFY(bench.waitForHandles(second, 1));
    const qint64 opened = bench.ui.now();
    QCOMPARE_LT(opened, plugged + SEARCH_INTERVAL_MS + SLACK_MS);

    QVERIFY(bench.ui.waitForOpened(2));
    const qint64 announced = bench.ui.arrivals().last().atMs;
    QCOMPARE_GE(announced, plugged + CONNECT_WAIT_MS);
    QCOMPARE_LT(announced, opened + CONNECT_WAIT_MS + SLACK_MS);
    // Three seconds of searching after the first announcement brought no second one.
    QCOMPARE(bench.ui.opened().size(), 2);
    QCOMPARE(bench.ui.closed().size(), 0);
    QCOMPARE(chargeOf(bench, bench.ui.opened().at(0)), 11U);
    QCOMPARE(chargeOf(bench, bench.ui.opened().at(1)), 22U);
}

void UsbManagerTest::aCameraUnpluggedWhileItWaitsIsNeverAnnounced() {
    ManagerBench bench;
    const DeviceId early = bench.plugCamera({}, 11);
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.bus.unplug(early));
    QVERIFY(bench.ui.waitForClosed(1));
    QVERIFY(bench.waitForHandles(early, 0));

    // The wait of the next camera outlasts that of the first one, and ends by itself even if its
    // controller has got the same address.
    const qint64 plugged = bench.ui.now();
    bench.plugCamera({}, 22);
    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE_GE(bench.ui.arrivals().last().atMs, plugged + CONNECT_WAIT_MS);
    QCOMPARE(bench.ui.opened().size(), 1);
    QCOMPARE(bench.ui.closed().size(), 1);
    QCOMPARE(chargeOf(bench, bench.ui.opened().first()), 22U);
}

void UsbManagerTest::aCameraPluggedInAgainIsAnnouncedAgain() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));

    const qint64 unplugged = bench.ui.now();
    QVERIFY(bench.bus.unplug(camera));
    QVERIFY(bench.ui.waitForClosed(1));
    QCOMPARE_LT(bench.ui.arrivals().last().atMs, unplugged + SEARCH_INTERVAL_MS + SLACK_MS);
    QCOMPARE(bench.ui.closed(), bench.ui.opened());

    QVERIFY(bench.bus.replug(camera));
    QVERIFY(bench.ui.waitForOpened(2));
    QCOMPARE(bench.ui.closed().size(), 1);
    QCOMPARE(chargeOf(bench, bench.ui.opened().last()), 85U);
}

void UsbManagerTest::aCameraWithoutHubStaysUntilTheBusCanBeRead() {
    ManagerBench bench(ManagerBench::Hub::Missing);
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
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    bench.bus.setBusyInterfaces(camera, {0});
    bench.runOnWorker([&] { bench.manager->closeDevice(); });
    QVERIFY(!bench.manager->canCommunication());
    QVERIFY(bench.waitForHandles(camera, 0));

    // Opened anew some passes later, it waits three seconds from then on.
    TRY_VERIFY(bench.bus.log(camera).refusedClaims.size() >= 2);
    const qint64 freed = bench.ui.now();
    bench.bus.setBusyInterfaces(camera, {});
    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE_GE(bench.ui.arrivals().first().atMs, freed + CONNECT_WAIT_MS);
    QCOMPARE(bench.ui.arrivals().size(), 1);
}

const TestSubject registered = subjectWithoutScreen<UsbManagerTest>();
#include "UsbManagerTest.moc"
