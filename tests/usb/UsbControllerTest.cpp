// SPDX-License-Identifier: MIT
#include "tests/usb/ControllerBench.h"

#include <QSignalSpy>
#include <QTest>

using namespace nubo::simulator;
using namespace std::chrono_literals;

namespace {

constexpr int TIMEOUT_MS = 2000;
constexpr int SHORT_TIMEOUT_MS = 100;
constexpr unsigned char OWN_ENDPOINT = 255;
constexpr int UNTOUCHED = 77;

using Interfaces = std::vector<InterfaceDescription>;
using Numbers = std::vector<int>;

}  // namespace

/// The controller on a device whose behaviour the test scripts.
class UsbControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void opensTheFirstInterfaceThatCanBeClaimed_data();
    void opensTheFirstInterfaceThatCanBeClaimed();
    void refusesADeviceThatItCannotUse_data();
    void refusesADeviceThatItCannotUse();
    void reportsThatTheDeviceCannotBeOpened();
    void picksAnEndpointForAnAddress_data();
    void picksAnEndpointForAnAddress();

    void readTakesWhatArrives_data();
    void readTakesWhatArrives();
    void aLongReplyArrivesInPieces();
    void readUsesTheFirstEndpointOfTheDirection_data();
    void readUsesTheFirstEndpointOfTheDirection();
    void aFailedReadLeavesTheControllerOpen_data();
    void aFailedReadLeavesTheControllerOpen();

    void writeSendsEverythingInOneTransfer_data();
    void writeSendsEverythingInOneTransfer();
    void writeIgnoresTheEndpointArgument_data();
    void writeIgnoresTheEndpointArgument();
    void aFailedWriteReturnsWhatWentOut_data();
    void aFailedWriteReturnsWhatWentOut();

    void aMissingDirectionIsAnError_data();
    void aMissingDirectionIsAnError();
    void aClosedControllerTransfersNothing_data();
    void aClosedControllerTransfersNothing();
    void theDeviceGoesInTheMiddleOfATransfer_data();
    void theDeviceGoesInTheMiddleOfATransfer();

    void closingAnnouncesItOnce_data();
    void closingAnnouncesItOnce();
    void closingGivesEverythingBack();
};

void UsbControllerTest::opensTheFirstInterfaceThatCanBeClaimed_data()
{
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
    QTest::newRow("first of two")
        << Interfaces{camera, other} << 1 << std::set<int>{} << Numbers{} << 0 << 0x81 << 0x02;
    QTest::newRow("second, the first is busy")
        << Interfaces{camera, other} << 1 << std::set<int>{0} << Numbers{0} << 1 << 0x83 << 0x04;
    QTest::newRow("first of the first configuration")
        << Interfaces{camera, other} << 2 << std::set<int>{} << Numbers{} << 0 << 0x81 << 0x02;
}

void UsbControllerTest::opensTheFirstInterfaceThatCanBeClaimed()
{
    QFETCH(const Interfaces, interfaces);
    QFETCH(const int, configurations);
    QFETCH(const std::set<int>, busy);
    DeviceOptions options = deviceWith(interfaces);
    options.description.configurationCount = configurations;
    options.busyInterfaces = busy;
    ControllerBench bench(options);
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

void UsbControllerTest::refusesADeviceThatItCannotUse_data()
{
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

void UsbControllerTest::refusesADeviceThatItCannotUse()
{
    QFETCH(const Interfaces, interfaces);
    QFETCH(const int, configurations);
    QFETCH(const std::set<int>, busy);
    DeviceOptions options = deviceWith(interfaces);
    options.description.configurationCount = configurations;
    options.busyInterfaces = busy;
    ControllerBench bench(options);
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);

    QCOMPARE(bench.controller.open(), int{LIBUSB_ERROR_NOT_FOUND});
    QVERIFY(!bench.controller.isOpened());
    QFETCH(const Numbers, refused);
    QCOMPARE(bench.log().refusedClaims, refused);
    QCOMPARE(bench.log().timesOpened, 1);
    QVERIFY(bench.bus.waitForLog(
        bench.id, [](const DeviceLog& log) { return log.openHandles == 0; }, 5s));
    QCOMPARE(closings.size(), 0);
}

void UsbControllerTest::reportsThatTheDeviceCannotBeOpened()
{
    DeviceOptions options;
    options.access = NodeAccess::Missing;
    ControllerBench bench(options);
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);

    QCOMPARE(bench.controller.open(), int{LIBUSB_ERROR_NO_DEVICE});
    QVERIFY(!bench.controller.isOpened());
    QCOMPARE(bench.log().claims, Numbers{});
    QCOMPARE(closings.size(), 0);
}

void UsbControllerTest::picksAnEndpointForAnAddress_data()
{
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

void UsbControllerTest::picksAnEndpointForAnAddress()
{
    QFETCH(const std::vector<std::uint8_t>, addresses);
    QFETCH(const int, wanted);
    ControllerBench bench(deviceWith({interfaceWith(addresses)}));
    QCOMPARE(bench.controller.open(), 0);
    QTEST(int{bench.controller.getEndPoint(static_cast<unsigned char>(wanted))}, "chosen");
}

void UsbControllerTest::readTakesWhatArrives_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 32, 511, 512, 1023, 1024}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void UsbControllerTest::readTakesWhatArrives()
{
    QFETCH(const int, size);
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    const QByteArray packet(size, 'x');
    bench.say(packet);
    int error = UNTOUCHED;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), packet);
    QCOMPARE(error, UNTOUCHED);
    QCOMPARE(bench.log().transfers.back().requested, std::size_t{1024});
}

void UsbControllerTest::aLongReplyArrivesInPieces()
{
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    const QByteArray pieces[] = {QByteArray(1024, 'a'), QByteArray(1024, 'b'),
                                 QByteArray(452, 'c')};
    bench.say(pieces[0] + pieces[1] + pieces[2]);
    for (const QByteArray& piece : pieces) {
        int error = UNTOUCHED;
        QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), piece);
        QCOMPARE(error, UNTOUCHED);
    }
    QCOMPARE(bench.log().transferCount, std::uint64_t{3});
}

void UsbControllerTest::readUsesTheFirstEndpointOfTheDirection_data()
{
    QTest::addColumn<int>("argument");
    for (const int argument : {0xFF, 0x80, 0x81, 0x83}) {
        QTest::addRow("0x%02x", argument) << argument;
    }
}

void UsbControllerTest::readUsesTheFirstEndpointOfTheDirection()
{
    QFETCH(const int, argument);
    ControllerBench bench(deviceWith({interfaceWith({0x02, 0x81, 0x83})}));
    QCOMPARE(bench.controller.open(), 0);
    bench.say("x");
    int error = 0;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, static_cast<unsigned char>(argument), &error), "x");
    QCOMPARE(int{bench.log().transfers.back().endpoint}, 0x81);
}

void UsbControllerTest::aFailedReadLeavesTheControllerOpen_data()
{
    QTest::addColumn<FaultKind>("fault");
    QTest::addColumn<int>("code");
    QTest::newRow("time-out") << FaultKind::Timeout << 0xEF03;
    QTest::newRow("stall") << FaultKind::Stall << 0xEF05;
    QTest::newRow("overflow") << FaultKind::Babble << 0xEF05;
    // libusb hands a transfer that the kernel refuses on as an input/output error.
    QTest::newRow("refused") << FaultKind::Busy << 0xEF05;
}

void UsbControllerTest::aFailedReadLeavesTheControllerOpen()
{
    QFETCH(const FaultKind, fault);
    ControllerBench bench;
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);
    QCOMPARE(bench.controller.open(), 0);
    bench.say("answer");

    bench.bus.addFault(bench.id, {.kind = fault, .count = 2});
    int error = 0;
    QCOMPARE(bench.controller.read(SHORT_TIMEOUT_MS, OWN_ENDPOINT, &error), QByteArray());
    QTEST(error, "code");
    QCOMPARE(bench.controller.read(SHORT_TIMEOUT_MS, OWN_ENDPOINT, nullptr), QByteArray());

    QVERIFY(bench.controller.isOpened());
    QCOMPARE(closings.size(), 0);
    error = UNTOUCHED;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), "answer");
    QCOMPARE(error, UNTOUCHED);
}

void UsbControllerTest::writeSendsEverythingInOneTransfer_data()
{
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 32, 512, 1024, 100'000}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void UsbControllerTest::writeSendsEverythingInOneTransfer()
{
    QFETCH(const int, size);
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    const QByteArray packet(size, 'x');
    QCOMPARE(bench.controller.write(packet, TIMEOUT_MS, OWN_ENDPOINT), size);
    const std::vector<ScriptedDevice::Bytes> expected{{packet.cbegin(), packet.cend()}};
    QVERIFY(bench.device->received() == expected);
    QCOMPARE(bench.log().transferCount, std::uint64_t{1});
}

void UsbControllerTest::writeIgnoresTheEndpointArgument_data()
{
    QTest::addColumn<int>("argument");
    for (const int argument : {0x00, 0x02, 0x04, 0x81, 0xFF}) {
        QTest::addRow("0x%02x", argument) << argument;
    }
}

void UsbControllerTest::writeIgnoresTheEndpointArgument()
{
    QFETCH(const int, argument);
    ControllerBench bench(deviceWith({interfaceWith({0x81, 0x02, 0x04})}));
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(bench.controller.write("x", TIMEOUT_MS, static_cast<unsigned char>(argument)), 1);
    QCOMPARE(int{bench.log().transfers.back().endpoint}, 0x02);
}

void UsbControllerTest::aFailedWriteReturnsWhatWentOut_data()
{
    QTest::addColumn<FaultKind>("fault");
    QTest::newRow("time-out") << FaultKind::Timeout;
    QTest::newRow("stall") << FaultKind::Stall;
    QTest::newRow("refused") << FaultKind::Busy;
}

void UsbControllerTest::aFailedWriteReturnsWhatWentOut()
{
    QFETCH(const FaultKind, fault);
    ControllerBench bench;
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);
    QCOMPARE(bench.controller.open(), 0);

    bench.bus.addFault(bench.id, {.kind = fault});
    QCOMPARE(bench.controller.write("request", SHORT_TIMEOUT_MS, OWN_ENDPOINT), 0);
    QVERIFY(bench.controller.isOpened());
    QCOMPARE(closings.size(), 0);
    QVERIFY(bench.device->received().empty());
    QCOMPARE(bench.controller.write("request", TIMEOUT_MS, OWN_ENDPOINT), 7);
}

void UsbControllerTest::aMissingDirectionIsAnError_data()
{
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("written");
    QTest::addColumn<int>("error");
    QTest::newRow("only IN") << 0x81 << -4 << UNTOUCHED;
    QTest::newRow("only OUT") << 0x02 << 1 << -4;
}

void UsbControllerTest::aMissingDirectionIsAnError()
{
    QFETCH(const int, address);
    ControllerBench bench(deviceWith({interfaceWith({static_cast<std::uint8_t>(address)})}));
    QCOMPARE(bench.controller.open(), 0);
    bench.say("x");
    QTEST(bench.controller.write("x", TIMEOUT_MS, OWN_ENDPOINT), "written");
    int error = UNTOUCHED;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error).isEmpty(), address != 0x81);
    QTEST(error, "error");
}

void UsbControllerTest::aClosedControllerTransfersNothing_data()
{
    QTest::addColumn<bool>("wasOpen");
    QTest::newRow("never opened") << false;
    QTest::newRow("closed") << true;
}

void UsbControllerTest::aClosedControllerTransfersNothing()
{
    QFETCH(const bool, wasOpen);
    ControllerBench bench;
    if (wasOpen) {
        QCOMPARE(bench.controller.open(), 0);
        bench.controller.close();
    }
    QVERIFY(!bench.controller.isOpened());
    bench.say("answer");
    int error = 0;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), QByteArray());
    QCOMPARE(error, -4);
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, nullptr), QByteArray());
    QCOMPARE(bench.controller.write("request", TIMEOUT_MS, OWN_ENDPOINT), -4);
    QCOMPARE(bench.log().transferCount, std::uint64_t{0});
}

void UsbControllerTest::theDeviceGoesInTheMiddleOfATransfer_data()
{
    QTest::addColumn<FaultKind>("fault");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("before a read") << FaultKind::UnplugBefore << true;
    QTest::newRow("during a read") << FaultKind::DeviceGone << true;
    QTest::newRow("before a write") << FaultKind::UnplugBefore << false;
    QTest::newRow("during a write") << FaultKind::DeviceGone << false;
}

void UsbControllerTest::theDeviceGoesInTheMiddleOfATransfer()
{
    QFETCH(const FaultKind, fault);
    QFETCH(const bool, isRead);
    ControllerBench bench;
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);
    QCOMPARE(bench.controller.open(), 0);
    bench.say("answer");

    bench.bus.addFault(bench.id, {.kind = fault});
    int error = 0;
    if (isRead) {
        QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), QByteArray());
        QCOMPARE(error, 0xEF00);
    } else {
        QCOMPARE(bench.controller.write("request", TIMEOUT_MS, OWN_ENDPOINT), 0);
    }
    QVERIFY(!bench.controller.isOpened());
    QCOMPARE(closings.size(), 1);
    QCOMPARE(closings.first().first().value<ClUsbController*>(), &bench.controller);

    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), QByteArray());
    QCOMPARE(error, -4);
    QCOMPARE(bench.controller.write("request", TIMEOUT_MS, OWN_ENDPOINT), -4);
    bench.controller.close();
    QCOMPARE(closings.size(), 1);
}

void UsbControllerTest::closingAnnouncesItOnce_data()
{
    using Closing = std::function<void(std::unique_ptr<ClUsbController>&)>;
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

void UsbControllerTest::closingAnnouncesItOnce()
{
    using Closing = std::function<void(std::unique_ptr<ClUsbController>&)>;
    QFETCH(const Closing, closing);
    ControllerBench bench;
    auto controller = std::make_unique<ClUsbController>(bench.devices.devices().front());
    QSignalSpy closings(controller.get(), &ClUsbController::sigClose);
    QCOMPARE(controller->open(), 0);
    QCOMPARE(closings.size(), 0);
    closing(controller);
    QCOMPARE(closings.size(), 1);
}

void UsbControllerTest::closingGivesEverythingBack()
{
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(bench.log().openHandles, 1);
    QCOMPARE(bench.log().releases, Numbers{});
    bench.controller.close();
    QCOMPARE(bench.log().releases, Numbers{0});
    QVERIFY(bench.bus.waitForLog(
        bench.id, [](const DeviceLog& log) { return log.openHandles == 0; }, 5s));

    ClUsbController second(bench.devices.devices().front());
    QCOMPARE(second.open(), 0);
}

QTEST_GUILESS_MAIN(UsbControllerTest)
#include "UsbControllerTest.moc"
