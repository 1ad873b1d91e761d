// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/usb/ControllerBench.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>

using namespace nubo::simulator;

namespace {

constexpr int TIMEOUT_MS = 2000;
constexpr unsigned char OWN_ENDPOINT = 255;

using Interfaces = std::vector<InterfaceDescription>;
using Numbers = std::vector<int>;
using Closing = std::function<void(std::unique_ptr<ClUsbController>&)>;

}  // namespace

/// How a controller opens a device, which endpoints it finds, and how it closes.
class UsbControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensTheFirstInterfaceThatCanBeClaimed_data();
    void opensTheFirstInterfaceThatCanBeClaimed();
    void refusesADeviceThatItCannotUse_data();
    void refusesADeviceThatItCannotUse();
    void reportsThatTheDeviceCannotBeOpened();
    void findsNoEndpointsWithoutAnOpenDevice();
    void picksAnEndpointForAnAddress_data();
    void picksAnEndpointForAnAddress();
    void closingAnnouncesItOnce_data();
    void closingAnnouncesItOnce();
    void closingGivesEverythingBack();

private:
    /// With the row's interfaces, in each of its configurations.
    static DeviceOptions deviceOfRow();
};

DeviceOptions UsbControllerTest::deviceOfRow() {
    QFETCH(const Interfaces, interfaces);
    QFETCH(const int, configurations);
    QFETCH(const std::set<int>, busy);
    DeviceOptions options = deviceWith(interfaces);
    options.description.configurationCount = configurations;
    options.busyInterfaces = busy;
    return options;
}

void UsbControllerTest::opensTheFirstInterfaceThatCanBeClaimed_data() {
    QTest::addColumn<Interfaces>("interfaces");
    QTest::addColumn<int>("configurations");
    QTest::addColumn<std::set<int>>("busy");
    QTest::addColumn<Numbers>("refused");
    QTest::addColumn<int>("claimed");
    QTest::addColumn<int>("in");
    QTest::addColumn<int>("out");

    const InterfaceDescription camera = interfaceWith({0x81, 0x02});
    const InterfaceDescription other = interfaceWith({0x04, 0x83});
    QTest::newRow("only one") << Interfaces{camera} << 1 << std::set<int>{} << Numbers{} << 0
                              << 0x81 << 0x02;
    QTest::newRow("first of two") << Interfaces{camera, other} << 1 << std::set<int>{} << Numbers{}
                                  << 0 << 0x81 << 0x02;
    QTest::newRow("second, the first is busy")
        << Interfaces{camera, other} << 1 << std::set<int>{0} << Numbers{0} << 1 << 0x83 << 0x04;
    QTest::newRow("first of the first configuration")
        << Interfaces{camera, other} << 2 << std::set<int>{} << Numbers{} << 0 << 0x81 << 0x02;
}

void UsbControllerTest::opensTheFirstInterfaceThatCanBeClaimed() {
    ControllerBench bench(deviceOfRow());
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);

    QCOMPARE(bench.controller.open(), 0);
    QVERIFY(bench.controller.isOpened());
    QFETCH(const Numbers, refused);
    QFETCH(const int, claimed);
    QCOMPARE(bench.log().refusedClaims, refused);
    QCOMPARE(bench.log().claims, Numbers{claimed});
    QTEST(int{bench.controller.getEndPoint(0xFF)}, "in");
    QTEST(int{bench.controller.getEndPoint(0x7F)}, "out");

    bench.say("answer");
    int error = 0;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), "answer");
    QCOMPARE(bench.controller.write("request", TIMEOUT_MS, OWN_ENDPOINT), 7);
    QCOMPARE(closings.size(), 0);
}

void UsbControllerTest::refusesADeviceThatItCannotUse_data() {
    QTest::addColumn<Interfaces>("interfaces");
    QTest::addColumn<int>("configurations");
    QTest::addColumn<std::set<int>>("busy");
    QTest::addColumn<Numbers>("refused");

    const InterfaceDescription camera = interfaceWith({0x81, 0x02});
    QTest::newRow("no interface") << Interfaces{} << 1 << std::set<int>{} << Numbers{};
    QTest::newRow("no configuration") << Interfaces{camera} << 0 << std::set<int>{} << Numbers{};
    QTest::newRow("no endpoint") << Interfaces{interfaceWith({})} << 1 << std::set<int>{}
                                 << Numbers{};
    QTest::newRow("no endpoint in the first of two interfaces")
        << Interfaces{interfaceWith({}), camera} << 1 << std::set<int>{} << Numbers{};
    QTest::newRow("all interfaces busy")
        << Interfaces{camera, camera} << 1 << std::set<int>{0, 1} << Numbers{0, 1};
    QTest::newRow("busy in both configurations")
        << Interfaces{camera} << 2 << std::set<int>{0} << Numbers{0, 0};
}

void UsbControllerTest::refusesADeviceThatItCannotUse() {
    ControllerBench bench(deviceOfRow());
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);

    QCOMPARE(bench.controller.open(), int{LIBUSB_ERROR_NOT_FOUND});
    QVERIFY(!bench.controller.isOpened());
    QFETCH(const Numbers, refused);
    QCOMPARE(bench.log().refusedClaims, refused);
    QCOMPARE(bench.controller.claimError(),
             int{refused.empty() ? LIBUSB_ERROR_NOT_FOUND : LIBUSB_ERROR_BUSY});
    QCOMPARE(bench.log().timesOpened, 1);
    QVERIFY(bench.waitUntilClosed());
    QCOMPARE(closings.size(), 0);
}

void UsbControllerTest::reportsThatTheDeviceCannotBeOpened() {
    DeviceOptions options;
    options.access = NodeAccess::Missing;
    ControllerBench bench(options);
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);

    QCOMPARE(bench.controller.open(), int{LIBUSB_ERROR_NO_DEVICE});
    QVERIFY(!bench.controller.isOpened());
    QCOMPARE(bench.log().claims, Numbers{});
    QCOMPARE(closings.size(), 0);
}

void UsbControllerTest::findsNoEndpointsWithoutAnOpenDevice() {
    ControllerBench bench;
    QCOMPARE(bench.controller.findEndpoints(), int{LIBUSB_ERROR_NOT_FOUND});
    QCOMPARE(bench.log().timesOpened, 0);
}

void UsbControllerTest::picksAnEndpointForAnAddress_data() {
    QTest::addColumn<std::vector<std::uint8_t>>("addresses");
    QTest::addColumn<int>("wanted");
    QTest::addColumn<int>("chosen");

    const std::vector<std::uint8_t> both{0x81, 0x02, 0x83, 0x04};
    QTest::newRow("first IN exactly") << both << 0x81 << 0x81;
    QTest::newRow("second IN exactly") << both << 0x83 << 0x83;
    QTest::newRow("second OUT exactly") << both << 0x04 << 0x04;
    QTest::newRow("any IN") << both << 0x80 << 0x81;
    QTest::newRow("unknown IN") << both << 0xFF << 0x81;
    QTest::newRow("any OUT") << both << 0x00 << 0x02;
    QTest::newRow("unknown OUT") << both << 0x7F << 0x02;
    QTest::newRow("no OUT") << std::vector<std::uint8_t>{0x81} << 0x02 << 0;
    QTest::newRow("no IN") << std::vector<std::uint8_t>{0x02} << 0x81 << 0;
}

void UsbControllerTest::picksAnEndpointForAnAddress() {
    QFETCH(const std::vector<std::uint8_t>, addresses);
    QFETCH(const int, wanted);
    ControllerBench bench(deviceWith({interfaceWith(addresses)}));
    QCOMPARE(bench.controller.open(), 0);
    QTEST(int{bench.controller.getEndPoint(static_cast<unsigned char>(wanted))}, "chosen");
}

void UsbControllerTest::closingAnnouncesItOnce_data() {
    QTest::addColumn<Closing>("closing");
    QTest::newRow("close") << Closing([](auto& controller) { controller->close(); });
    QTest::newRow("close twice") << Closing([](auto& controller) {
        controller->close();
        controller->close();
    });
    QTest::newRow("destruction") << Closing([](auto& controller) { controller.reset(); });
    QTest::newRow("close and destruction") << Closing([](auto& controller) {
        controller->close();
        controller.reset();
    });
}

void UsbControllerTest::closingAnnouncesItOnce() {
    QFETCH(const Closing, closing);
    ControllerBench bench;
    auto controller = std::make_unique<ClUsbController>(bench.devices.devices().front());
    QSignalSpy closings(controller.get(), &ClUsbController::sigClose);
    QCOMPARE(controller->open(), 0);
    QCOMPARE(closings.size(), 0);
    closing(controller);
    QCOMPARE(closings.size(), 1);
}

void UsbControllerTest::closingGivesEverythingBack() {
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(bench.log().openHandles, 1);
    QCOMPARE(bench.log().releases, Numbers{});
    bench.controller.close();
    QCOMPARE(bench.log().releases, Numbers{0});
    QVERIFY(bench.waitUntilClosed());

    ClUsbController second(bench.devices.devices().front());
    QCOMPARE(second.open(), 0);
}

const TestSubject registered = subjectWithoutScreen<UsbControllerTest>();
#include "UsbControllerTest.moc"
