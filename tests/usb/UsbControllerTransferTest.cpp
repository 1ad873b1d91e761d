// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/usb/ControllerBench.h"

#include <QSignalSpy>
#include <QTest>

using namespace nubo::simulator;

namespace {

constexpr int TIMEOUT_MS = 2000;
constexpr int SHORT_TIMEOUT_MS = 100;
constexpr unsigned char OWN_ENDPOINT = 255;
constexpr int UNTOUCHED = 77;

}  // namespace

/// The reads and writes of a controller on a device whose behaviour the test scripts.
class UsbControllerTransferTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
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
    void aTornTransferFailsAndTheNextOneTellsThatTheDeviceHasGone();
};

void UsbControllerTransferTest::readTakesWhatArrives_data() {
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 32, 511, 512, 1023, 1024}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void UsbControllerTransferTest::readTakesWhatArrives() {
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

void UsbControllerTransferTest::aLongReplyArrivesInPieces() {
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

void UsbControllerTransferTest::readUsesTheFirstEndpointOfTheDirection_data() {
    QTest::addColumn<int>("argument");
    for (const int argument : {0xFF, 0x80, 0x81, 0x83}) {
        QTest::addRow("0x%02x", argument) << argument;
    }
}

void UsbControllerTransferTest::readUsesTheFirstEndpointOfTheDirection() {
    QFETCH(const int, argument);
    ControllerBench bench(deviceWith({interfaceWith({0x02, 0x81, 0x83})}));
    QCOMPARE(bench.controller.open(), 0);
    bench.say("x");
    int error = 0;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, static_cast<unsigned char>(argument), &error), "x");
    QCOMPARE(int{bench.log().transfers.back().endpoint}, 0x81);
}

void UsbControllerTransferTest::aFailedReadLeavesTheControllerOpen_data() {
    QTest::addColumn<FaultKind>("fault");
    QTest::addColumn<int>("code");
    QTest::newRow("time-out") << FaultKind::Timeout << 0xEF03;
    QTest::newRow("stall") << FaultKind::Stall << 0xEF05;
    QTest::newRow("overflow") << FaultKind::Babble << 0xEF05;
    // libusb hands a transfer that the kernel refuses on as an input/output error.
    QTest::newRow("refused") << FaultKind::Busy << 0xEF05;
}

void UsbControllerTransferTest::aFailedReadLeavesTheControllerOpen() {
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

void UsbControllerTransferTest::writeSendsEverythingInOneTransfer_data() {
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 32, 512, 1024, 100'000}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void UsbControllerTransferTest::writeSendsEverythingInOneTransfer() {
    QFETCH(const int, size);
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    const QByteArray packet(size, 'x');
    QCOMPARE(bench.controller.write(packet, TIMEOUT_MS, OWN_ENDPOINT), size);
    const std::vector<ScriptedDevice::Bytes> expected{{packet.cbegin(), packet.cend()}};
    QVERIFY(bench.device->received() == expected);
    QCOMPARE(bench.log().transferCount, std::uint64_t{1});
}

void UsbControllerTransferTest::writeIgnoresTheEndpointArgument_data() {
    QTest::addColumn<int>("argument");
    for (const int argument : {0x00, 0x02, 0x04, 0x81, 0xFF}) {
        QTest::addRow("0x%02x", argument) << argument;
    }
}

void UsbControllerTransferTest::writeIgnoresTheEndpointArgument() {
    QFETCH(const int, argument);
    ControllerBench bench(deviceWith({interfaceWith({0x81, 0x02, 0x04})}));
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(bench.controller.write("x", TIMEOUT_MS, static_cast<unsigned char>(argument)), 1);
    QCOMPARE(int{bench.log().transfers.back().endpoint}, 0x02);
}

void UsbControllerTransferTest::aFailedWriteReturnsWhatWentOut_data() {
    QTest::addColumn<FaultKind>("fault");
    QTest::newRow("time-out") << FaultKind::Timeout;
    QTest::newRow("stall") << FaultKind::Stall;
    QTest::newRow("refused") << FaultKind::Busy;
}

void UsbControllerTransferTest::aFailedWriteReturnsWhatWentOut() {
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

void UsbControllerTransferTest::aMissingDirectionIsAnError_data() {
    QTest::addColumn<int>("address");
    QTest::addColumn<int>("written");
    QTest::addColumn<int>("error");
    QTest::newRow("only IN") << 0x81 << -4 << UNTOUCHED;
    QTest::newRow("only OUT") << 0x02 << 1 << -4;
}

void UsbControllerTransferTest::aMissingDirectionIsAnError() {
    QFETCH(const int, address);
    ControllerBench bench(deviceWith({interfaceWith({static_cast<std::uint8_t>(address)})}));
    QCOMPARE(bench.controller.open(), 0);
    bench.say("x");
    QTEST(bench.controller.write("x", TIMEOUT_MS, OWN_ENDPOINT), "written");
    int error = UNTOUCHED;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error).isEmpty(), address != 0x81);
    QTEST(error, "error");
}

void UsbControllerTransferTest::aClosedControllerTransfersNothing_data() {
    QTest::addColumn<bool>("wasOpen");
    QTest::newRow("never opened") << false;
    QTest::newRow("closed") << true;
}

void UsbControllerTransferTest::aClosedControllerTransfersNothing() {
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

void UsbControllerTransferTest::theDeviceGoesInTheMiddleOfATransfer_data() {
    QTest::addColumn<FaultKind>("fault");
    QTest::addColumn<bool>("isRead");
    QTest::newRow("before a read") << FaultKind::UnplugBefore << true;
    QTest::newRow("during a read") << FaultKind::DeviceGone << true;
    QTest::newRow("before a write") << FaultKind::UnplugBefore << false;
    QTest::newRow("during a write") << FaultKind::DeviceGone << false;
}

void UsbControllerTransferTest::theDeviceGoesInTheMiddleOfATransfer() {
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

// As the kernel has it: what is under way ends in an error of the link.
void UsbControllerTransferTest::aTornTransferFailsAndTheNextOneTellsThatTheDeviceHasGone() {
    ControllerBench bench;
    QSignalSpy closings(&bench.controller, &ClUsbController::sigClose);
    QCOMPARE(bench.controller.open(), 0);
    bench.bus.addFault(bench.id, {.kind = FaultKind::LinkError});
    int error = 0;
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), QByteArray());
    QCOMPARE(error, 0xEF05);
    QCOMPARE(bench.controller.read(TIMEOUT_MS, OWN_ENDPOINT, &error), QByteArray());
    QCOMPARE(error, 0xEF00);
    QCOMPARE(closings.size(), 1);
}

const TestSubject registered = subjectWithoutScreen<UsbControllerTransferTest>();
#include "UsbControllerTransferTest.moc"
