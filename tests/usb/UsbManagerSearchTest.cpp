// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"

#include <QTest>

using namespace nubo::simulator;

namespace {

constexpr stVendorProduct OTHER_PRODUCT{CAMERA.usVendorId, CAMERA.usProductId + 1};
constexpr stVendorProduct OTHER_VENDOR{CAMERA.usVendorId + 1, CAMERA.usProductId};
constexpr stVendorProduct SWAPPED{CAMERA.usProductId, CAMERA.usVendorId};

}  // namespace

Q_DECLARE_METATYPE(stVendorProduct)

/// Which devices a search pass opens. Passes are run on request, on the manager's thread.
class UsbManagerSearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingIsSearchedBeforeTheStart();
    void theFirstPassIsPartOfTheStart();
    void anOpenCameraIsNotOpenedAgain();
    void otherIdentitiesAreLeftAlone_data();
    void otherIdentitiesAreLeftAlone();
    void everyIdentityOfTheListIsAccepted();
    void aSecondStartChangesNothing();
    void communicationIsPossibleWhileACameraIsOpenAndIdle();
    void aBusyCameraIsTriedUntilItIsFree();
};

void UsbManagerSearchTest::nothingIsSearchedBeforeTheStart() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QVERIFY(!bench.manager->isInitialized());
    QCOMPARE(bench.search(), 0);
    QCOMPARE(bench.bus.log(camera).timesOpened, 0);
    QVERIFY(!bench.manager->canCommunication());
}

void UsbManagerSearchTest::theFirstPassIsPartOfTheStart() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.manager->isInitialized());
    QCOMPARE(bench.bus.log(camera).claims, std::vector<int>{0});
    QVERIFY(bench.manager->canCommunication());
}

void UsbManagerSearchTest::anOpenCameraIsNotOpenedAgain() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    for (int pass = 0; pass < 10; ++pass) {
        QCOMPARE(bench.search(), 1);
    }
    QCOMPARE(bench.bus.log(camera).timesOpened, 1);
    QCOMPARE(bench.ui.closed().size(), 0);
}

void UsbManagerSearchTest::otherIdentitiesAreLeftAlone_data() {
    QTest::addColumn<stVendorProduct>("identity");
    QTest::newRow("other product") << OTHER_PRODUCT;
    QTest::newRow("other vendor") << OTHER_VENDOR;
    QTest::newRow("vendor and product swapped") << SWAPPED;
}

void UsbManagerSearchTest::otherIdentitiesAreLeftAlone() {
    QFETCH(const stVendorProduct, identity);
    ManagerBench bench;
    const DeviceId other = bench.plugCamera(deviceOfIdentity(identity));
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QCOMPARE(bench.search(), 1);
    QCOMPARE(bench.bus.log(other).timesOpened, 0);
    QCOMPARE(bench.bus.log(camera).timesOpened, 1);
}

void UsbManagerSearchTest::everyIdentityOfTheListIsAccepted() {
    ManagerBench bench;
    const DeviceId first = bench.plugCamera(deviceOfIdentity(OTHER_PRODUCT));
    const DeviceId second = bench.plugCamera(deviceOfIdentity(OTHER_VENDOR));
    const DeviceId neither = bench.plugCamera();
    QCOMPARE(bench.manager->initialize({OTHER_VENDOR, OTHER_PRODUCT}), 0);
    QCOMPARE(bench.bus.log(first).timesOpened, 1);
    QCOMPARE(bench.bus.log(second).timesOpened, 1);
    QCOMPARE(bench.bus.log(neither).timesOpened, 0);
}

void UsbManagerSearchTest::aSecondStartChangesNothing() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    const DeviceId other = bench.plugCamera(deviceOfIdentity(OTHER_PRODUCT));
    QCOMPARE(bench.start(), 0);
    QCOMPARE(bench.manager->initialize({OTHER_PRODUCT}), 0);
    QCOMPARE(bench.search(), 1);
    QCOMPARE(bench.bus.log(camera).timesOpened, 1);
    QCOMPARE(bench.bus.log(camera).openHandles, 1);
    QCOMPARE(bench.bus.log(other).timesOpened, 0);
}

void UsbManagerSearchTest::communicationIsPossibleWhileACameraIsOpenAndIdle() {
    ManagerBench bench;
    QCOMPARE(bench.start(), 0);
    QVERIFY(!bench.manager->canCommunication());

    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.search(), 1);
    QVERIFY(bench.manager->canCommunication());

    QVERIFY(bench.ui.waitForOpened(1));
    // The camera never gets to answer, so the transaction is still at it.
    bench.bus.addFault(camera, {.kind = FaultKind::Timeout, .nth = 2, .count = 3});
    bench.ui.send(USB_REQ_NUBO_CMD_GET_BATTERY, bench.ui.opened().first());
    QVERIFY(bench.bus.waitForTransfers(camera, 1, PATIENCE));
    QVERIFY(!bench.manager->canCommunication());
    TRY_COMPARE(bench.ui.answers().size(), 1);
    QVERIFY(bench.manager->canCommunication());

    QVERIFY(bench.bus.unplug(camera));
    QCOMPARE(bench.search(), 1);
    QVERIFY(!bench.manager->canCommunication());
}

void UsbManagerSearchTest::aBusyCameraIsTriedUntilItIsFree() {
    ManagerBench bench;
    DeviceOptions options;
    options.busyInterfaces = {0};
    const DeviceId camera = bench.plugCamera(options);
    QCOMPARE(bench.start(), 0);
    TRY_VERIFY(bench.bus.log(camera).refusedClaims.size() >= 3);
    QVERIFY(!bench.manager->canCommunication());

    bench.bus.setBusyInterfaces(camera, {});
    TRY_VERIFY(bench.manager->canCommunication());
}

const TestSubject registered = subjectWithoutScreen<UsbManagerSearchTest>();
#include "UsbManagerSearchTest.moc"
