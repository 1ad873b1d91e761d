// SPDX-License-Identifier: MIT
//
// What the controller makes of libusb's results, those included that no device can be told to
// cause. The linker sends its calls to the functions here (see CMakeLists.txt); all else is the
// real libusb.

#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ControllerBench.h"
#include "tests/usb/ManagerBench.h"

#include <QSignalSpy>
#include <QTest>

#include <functional>
#include <optional>
#include <span>

using namespace nubo::simulator;

extern "C" {
int __real_libusb_bulk_transfer(libusb_device_handle*, unsigned char, unsigned char*, int, int*,
                                unsigned int);
int __real_libusb_claim_interface(libusb_device_handle*, int);
int __real_libusb_release_interface(libusb_device_handle*, int);
int __real_libusb_get_config_descriptor(libusb_device*, std::uint8_t, libusb_config_descriptor**);
}

namespace {

struct stTransferEnd {
    int result;
    int transferred;
};

/// What was called, and how the next transfer ends; without an end the device decides.
struct stLibusbCalls {
    QList<int> claims;
    QList<int> releases;
    QList<int> timeouts;
    int claimsUntilRefusal = 100;
    std::optional<stTransferEnd> transferEnd;
    std::function<void()> duringTransfer = [] {};
    std::optional<std::uint8_t> interfaceNumber;  ///< of all settings, whatever the device says
};

stLibusbCalls g_calls;

}  // namespace

extern "C" {
int __wrap_libusb_bulk_transfer(libusb_device_handle* handle, unsigned char endpoint,
                                unsigned char* data, int length, int* transferred,
                                unsigned int timeout) {
    g_calls.timeouts.append(static_cast<int>(timeout));
    g_calls.duringTransfer();
    if (g_calls.transferEnd) {
        *transferred = g_calls.transferEnd->transferred;
        return g_calls.transferEnd->result;
    }
    return __real_libusb_bulk_transfer(handle, endpoint, data, length, transferred, timeout);
}

int __wrap_libusb_claim_interface(libusb_device_handle* handle, int number) {
    g_calls.claims.append(number);
    if (g_calls.claimsUntilRefusal-- <= 0) {
        return LIBUSB_ERROR_BUSY;
    }
    return __real_libusb_claim_interface(handle, number);
}

int __wrap_libusb_get_config_descriptor(libusb_device* device, std::uint8_t index,
                                        libusb_config_descriptor** config) {
    const int result = __real_libusb_get_config_descriptor(device, index, config);
    if (result == LIBUSB_SUCCESS && g_calls.interfaceNumber) {
        for (const auto& interface : std::span((*config)->interface, (*config)->bNumInterfaces)) {
            // Memory of libusb's heap, which its callers only read.
            const_cast<libusb_interface_descriptor*>(interface.altsetting)->bInterfaceNumber =
                *g_calls.interfaceNumber;
        }
    }
    return result;
}

int __wrap_libusb_release_interface(libusb_device_handle* handle, int number) {
    g_calls.releases.append(number);
    return __real_libusb_release_interface(handle, number);
}
}

namespace {

constexpr int TIMEOUT_MS = 1234;
constexpr int CODE_LEFT_ALONE = 0;
const QByteArray REQUEST(32, 'r');

DeviceOptions twoSettings() {
    InterfaceDescription interface = interfaceWith({0x81, 0x02});
    interface.alternates.push_back(interfaceWith({0x83, 0x04}).alternates.front());
    return deviceWith({interface, interfaceWith({0x85, 0x06})});
}

}  // namespace

class UsbControllerCallsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { g_calls = {}; }

    void everySettingIsClaimedAndReleased();
    void aRefusedSettingEndsTheInterface();
    void interfacesAreClaimedByTheirPlace();
    void aReadMapsTheResult_data();
    void aReadMapsTheResult();
    void aWriteReturnsTheCount_data();
    void aWriteReturnsTheCount();
    void theTimeoutIsTheCallersOwn();
    void nothingIsLeftOfTheEndpointsFoundBefore();
    void aRawReadWaitsOneSecondAndKeepsOthersOut();
};

void UsbControllerCallsTest::everySettingIsClaimedAndReleased() {
    ControllerBench bench(twoSettings());
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(g_calls.claims, (QList<int>{0, 0}));
    for (const int address : {0x81, 0x02, 0x83, 0x04}) {
        QCOMPARE(int{bench.controller.getEndPoint(static_cast<unsigned char>(address))}, address);
    }
    QCOMPARE(int{bench.controller.getEndPoint(0x85)}, 0x81);
    QCOMPARE(int{bench.controller.getEndPoint(0x06)}, 0x02);

    bench.controller.close();
    QCOMPARE(g_calls.releases, (QList<int>{0, 0}));
    bench.controller.close();
    QCOMPARE(g_calls.releases, (QList<int>{0, 0}));
}

void UsbControllerCallsTest::aRefusedSettingEndsTheInterface() {
    g_calls.claimsUntilRefusal = 1;
    ControllerBench bench(twoSettings());
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(g_calls.claims, (QList<int>{0, 0}));
    QCOMPARE(int{bench.controller.getEndPoint(0x83)}, 0x81);
    bench.controller.close();
    QCOMPARE(g_calls.releases, (QList<int>{0}));
}

void UsbControllerCallsTest::interfacesAreClaimedByTheirPlace() {
    g_calls.interfaceNumber = 5;
    DeviceOptions options = deviceWith({interfaceWith({0x81, 0x02}), interfaceWith({0x83, 0x04})});
    options.busyInterfaces = {0};
    ControllerBench bench(options);
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(g_calls.claims, (QList<int>{0, 1}));
    bench.controller.close();
    QCOMPARE(g_calls.releases, (QList<int>{1}));
}

void UsbControllerCallsTest::aReadMapsTheResult_data() {
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("transferred");
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("closings");
    QTest::newRow("all") << 0 << 1024 << CODE_LEFT_ALONE << 1024 << 0;
    QTest::newRow("part") << 0 << 10 << CODE_LEFT_ALONE << 10 << 0;
    QTest::newRow("nothing") << 0 << 0 << CODE_LEFT_ALONE << 0 << 0;
    QTest::newRow("time-out") << int{LIBUSB_ERROR_TIMEOUT} << 0 << 0xEF03 << 0 << 0;
    QTest::newRow("time-out after part") << int{LIBUSB_ERROR_TIMEOUT} << 10 << 0xEF03 << 0 << 0;
    QTest::newRow("busy") << int{LIBUSB_ERROR_BUSY} << 0 << 0xEF02 << 0 << 0;
    QTest::newRow("gone") << int{LIBUSB_ERROR_NO_DEVICE} << 0 << 0xEF00 << 0 << 1;
    QTest::newRow("gone after part") << int{LIBUSB_ERROR_NO_DEVICE} << 10 << 0xEF00 << 0 << 1;
    for (const int other :
         {LIBUSB_ERROR_IO, LIBUSB_ERROR_INVALID_PARAM, LIBUSB_ERROR_ACCESS, LIBUSB_ERROR_NOT_FOUND,
          LIBUSB_ERROR_OVERFLOW, LIBUSB_ERROR_PIPE, LIBUSB_ERROR_INTERRUPTED, LIBUSB_ERROR_NO_MEM,
          LIBUSB_ERROR_NOT_SUPPORTED, LIBUSB_ERROR_OTHER}) {
        QTest::addRow("%s", libusb_error_name(other)) << other << 10 << 0xEF05 << 0 << 0;
    }
}

void UsbControllerCallsTest::aReadMapsTheResult() {
    QFETCH(const int, result);
    QFETCH(const int, transferred);
    QFETCH(const int, closings);
    ControllerBench bench;
    QSignalSpy closed(&bench.controller, &ClUsbController::sigClose);
    QCOMPARE(bench.controller.open(), 0);
    g_calls.transferEnd = {result, transferred};
    int code = CODE_LEFT_ALONE;
    const QByteArray packet = bench.controller.read(TIMEOUT_MS, 255, &code);
    QTEST(code, "code");
    QTEST(int(packet.size()), "size");
    QCOMPARE(closed.size(), closings);
    QCOMPARE(bench.controller.isOpened(), closings == 0);
}

void UsbControllerCallsTest::aWriteReturnsTheCount_data() {
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("transferred");
    QTest::addColumn<int>("closings");
    for (const int transferred : {0, 10, 32}) {
        QTest::addRow("success, %d bytes", transferred) << 0 << transferred << 0;
        for (const int other :
             {LIBUSB_ERROR_TIMEOUT, LIBUSB_ERROR_BUSY, LIBUSB_ERROR_PIPE, LIBUSB_ERROR_IO}) {
            QTest::addRow("%s, %d bytes", libusb_error_name(other), transferred)
                << other << transferred << 0;
        }
        QTest::addRow("gone, %d bytes", transferred)
            << int{LIBUSB_ERROR_NO_DEVICE} << transferred << 1;
    }
}

void UsbControllerCallsTest::aWriteReturnsTheCount() {
    QFETCH(const int, result);
    QFETCH(const int, transferred);
    QFETCH(const int, closings);
    ControllerBench bench;
    QSignalSpy closed(&bench.controller, &ClUsbController::sigClose);
    QCOMPARE(bench.controller.open(), 0);
    g_calls.transferEnd = {result, transferred};
    QCOMPARE(bench.controller.write(REQUEST, TIMEOUT_MS, 255), transferred);
    QCOMPARE(closed.size(), closings);
    QCOMPARE(bench.controller.isOpened(), closings == 0);
}

void UsbControllerCallsTest::theTimeoutIsTheCallersOwn() {
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    bench.say("answer");
    QCOMPARE(bench.controller.write(REQUEST, 1000, 255), int(REQUEST.size()));
    QCOMPARE(bench.controller.read(3000, 255, nullptr), "answer");
    QCOMPARE(g_calls.timeouts, (QList<int>{1000, 3000}));
}

void UsbControllerCallsTest::nothingIsLeftOfTheEndpointsFoundBefore() {
    ControllerBench bench;
    QCOMPARE(bench.controller.open(), 0);
    QCOMPARE(int{bench.controller.getEndPoint(0x80)}, 0x81);
    g_calls.claimsUntilRefusal = 0;
    QCOMPARE(bench.controller.findEndpoints(), int{LIBUSB_ERROR_NOT_FOUND});
    QCOMPARE(int{bench.controller.getEndPoint(0x80)}, 0);
}

void UsbControllerCallsTest::aRawReadWaitsOneSecondAndKeepsOthersOut() {
    ManagerBench bench;
    bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));
    QVERIFY(bench.manager->canCommunication());
    QList<bool> canCommunicate;
    g_calls.transferEnd = {LIBUSB_SUCCESS, 3};
    g_calls.duringTransfer = [&] { canCommunicate << bench.manager->canCommunication(); };
    const VX_CMD notice = bench.ui.ask(USB_CMD_SEND_DATA, bench.ui.opened().first());
    QCOMPARE(notice.value(Key::PARAM2), QVariant(QByteArray(3, '\0')));
    QCOMPARE(canCommunicate, QList<bool>{false});
    QCOMPARE(g_calls.timeouts, QList<int>{1000});
    QVERIFY(bench.manager->canCommunication());
}

const TestSubject registered = subjectWithoutScreen<UsbControllerCallsTest>();
#include "UsbControllerCallsTest.moc"
