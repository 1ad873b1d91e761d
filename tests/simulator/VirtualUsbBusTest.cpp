// SPDX-License-Identifier: MIT
#include "simulator/VirtualUsbBus.h"

#include <libusb.h>
#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QElapsedTimer>
#include <QTest>
#include <array>
#include <chrono>
#include <future>

#include "tests/simulator/ScriptedDevice.h"
#include "tests/simulator/UsbHost.h"

namespace nubo::simulator {

namespace {

using namespace std::chrono_literals;
using Bytes = ScriptedDevice::Bytes;

constexpr auto kPatience = 5s;

Bytes pattern(std::size_t size) {
    Bytes bytes(size);
    std::uint8_t value = 0;
    for (std::uint8_t& byte : bytes) {
        byte = value;
        value = static_cast<std::uint8_t>(value + 7);
    }
    return bytes;
}

/// Takes from the calling thread, while it lives, what lets root pass over file permissions.
class WithoutFileOverride {
public:
    WithoutFileOverride() {
        syscall(SYS_capget, &m_header, m_kept.data());
        auto reduced = m_kept;
        reduced[0].effective &= ~(1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH);
        syscall(SYS_capset, &m_header, reduced.data());
    }
    ~WithoutFileOverride() { syscall(SYS_capset, &m_header, m_kept.data()); }
    WithoutFileOverride(const WithoutFileOverride&) = delete;
    WithoutFileOverride& operator=(const WithoutFileOverride&) = delete;

private:
    __user_cap_header_struct m_header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> m_kept{};
};

}  // namespace

class VirtualUsbBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void busIsAvailableHere();
    void emptyBusHasNoDevices();
    void pluggedDeviceShowsItsDescriptors();
    void describedInterfacesAreShown();
    void devicesArePluggedWhileLibusbRuns();
    void bytesGoOut_data();
    void bytesGoOut();
    void bytesComeIn_data();
    void bytesComeIn();
    void longMessageContinuesInNextTransfers();
    void messageThatOverflowsPartOfAPacketIsAnError();
    void readWaitsUntilDeviceHasSomething();
    void readWithoutAnswerTimesOut();
    void transferWithoutClaimFails();
    void claimsAndReleasesAreLogged();
    void unknownInterfaceIsNotFound();
    void busyInterfaceIsRefused();
    void interfaceClaimedByAnotherHandleIsBusy();
    void openHandlesAreCounted();
    void deniedNodeCannotBeOpened();
    void missingNodeCannotBeOpened();
    void unpluggingEndsAPendingRead();
    void everyCallOnAnUnpluggedDeviceFails();
    void replugGivesANewDeviceNumber();
    void replugOfAPluggedDeviceIsRefused();
    void hundredPlugCycles();
    void thousandSearchPasses();
    void twoDevicesKeepApart();
    void restartingDeviceComesBackUnderANewNumber();
    void unplugDuringRestartIsFinal();
    void unknownDeviceIsLeftAlone();

private:
    UsbHandle open(DeviceId id);
    UsbHandle openClaimed(DeviceId id);
    DeviceId plug(const DeviceOptions& options = {});
    bool deviceCountBecomes(int count);

    std::shared_ptr<ScriptedDevice> m_device;
    std::unique_ptr<VirtualUsbBus> m_bus;
    UsbContext m_context;
};

void VirtualUsbBusTest::init() {
    m_device = std::make_shared<ScriptedDevice>();
    m_bus = std::make_unique<VirtualUsbBus>();
    m_context = newUsbContext();
    QVERIFY(m_context);
}

void VirtualUsbBusTest::cleanup() {
    m_context.reset();
    m_bus.reset();
}

DeviceId VirtualUsbBusTest::plug(const DeviceOptions& options) {
    return m_bus->plug(m_device, options);
}

/// A handle on the device, as soon as libusb knows of it; null when it cannot be opened.
UsbHandle VirtualUsbBusTest::open(DeviceId id) {
    const int number = m_bus->deviceNumber(id).value_or(0);
    QElapsedTimer timer;
    timer.start();
    while (std::chrono::milliseconds(timer.elapsed()) < kPatience) {
        const UsbDeviceList list(m_context);
        for (int i = 0; i < list.count(); ++i) {
            if (libusb_get_device_address(list.at(i)) == number) {
                libusb_device_handle* handle = nullptr;
                libusb_open(list.at(i), &handle);
                return UsbHandle(handle);
            }
        }
    }
    return nullptr;
}

UsbHandle VirtualUsbBusTest::openClaimed(DeviceId id) {
    UsbHandle handle = open(id);
    return handle && libusb_claim_interface(handle.get(), 0) == 0 ? std::move(handle) : nullptr;
}

/// Waits until libusb knows of so many devices; a plain loop, since every pass takes the news.
bool VirtualUsbBusTest::deviceCountBecomes(int count) {
    QElapsedTimer timer;
    timer.start();
    bool reached = false;
    while (!reached && std::chrono::milliseconds(timer.elapsed()) < kPatience) {
        reached = UsbDeviceList(m_context).count() == count;
    }
    return reached;
}

void VirtualUsbBusTest::busIsAvailableHere() {
    QVERIFY(VirtualUsbBus::isAvailable());
}

void VirtualUsbBusTest::emptyBusHasNoDevices() {
    QCOMPARE(UsbDeviceList(m_context).count(), 0);
    QVERIFY(m_bus->devices().empty());
}

void VirtualUsbBusTest::pluggedDeviceShowsItsDescriptors() {
    plug();
    QVERIFY(deviceCountBecomes(1));
    const UsbDeviceList list(m_context);
    libusb_device_descriptor device{};
    QCOMPARE(libusb_get_device_descriptor(list.at(0), &device), 0);
    QCOMPARE(device.idVendor, NUBO_USB_VENDOR_ID);
    QCOMPARE(device.idProduct, NUBO_USB_PRODUCT_ID);
    QCOMPARE(device.bNumConfigurations, 1);

    libusb_config_descriptor* raw = nullptr;
    QCOMPARE(libusb_get_config_descriptor(list.at(0), 0, &raw), 0);
    const std::unique_ptr<libusb_config_descriptor, void (*)(libusb_config_descriptor*)> config(
        raw, libusb_free_config_descriptor);
    QCOMPARE(config->bNumInterfaces, 1);
    const libusb_interface_descriptor& setting = config->interface[0].altsetting[0];
    QCOMPARE(setting.bInterfaceClass, 0xFF);
    QCOMPARE(setting.bNumEndpoints, 2);
    QCOMPARE(setting.endpoint[0].bEndpointAddress, 0x81);
    QCOMPARE(setting.endpoint[1].bEndpointAddress, 0x02);
    QCOMPARE(setting.endpoint[1].wMaxPacketSize, 512);
}

void VirtualUsbBusTest::describedInterfacesAreShown() {
    DeviceOptions options;
    options.description.vendorId = 0x1D6B;
    options.description.configurationCount = 2;
    EndpointDescription special{0x83, 3, 64, 8, {2, 0x30}};
    options.description.interfaces = {
        DeviceDescription::cameraInterface(),
        {{AlternateSetting{}, AlternateSetting{{special}, 8, 6, 80, {4, 0x21, 0xAB, 0xCD}}}}};
    plug(options);
    QVERIFY(deviceCountBecomes(1));
    const UsbDeviceList list(m_context);
    for (std::uint8_t index = 0; index < 2; ++index) {
        libusb_config_descriptor* raw = nullptr;
        QCOMPARE(libusb_get_config_descriptor(list.at(0), index, &raw), 0);
        const std::unique_ptr<libusb_config_descriptor, void (*)(libusb_config_descriptor*)> config(
            raw, libusb_free_config_descriptor);
        QCOMPARE(config->bConfigurationValue, index + 1);
        QCOMPARE(config->bNumInterfaces, 2);
        QCOMPARE(config->interface[1].num_altsetting, 2);
        const libusb_interface_descriptor& setting = config->interface[1].altsetting[1];
        QCOMPARE(setting.bAlternateSetting, 1);
        QCOMPARE(setting.bInterfaceClass, 8);
        QCOMPARE(setting.extra_length, 4);
        QCOMPARE(setting.extra[2], 0xAB);
        QCOMPARE(setting.endpoint[0].wMaxPacketSize, 64);
        QCOMPARE(setting.endpoint[0].extra_length, 2);
    }
}

void VirtualUsbBusTest::devicesArePluggedWhileLibusbRuns() {
    QCOMPARE(UsbDeviceList(m_context).count(), 0);
    const DeviceId id = plug();
    QVERIFY(id);
    QVERIFY(deviceCountBecomes(1));
    QCOMPARE(m_bus->devices(), std::vector{id});
    QVERIFY(m_bus->unplug(id));
    QVERIFY(deviceCountBecomes(0));
    QVERIFY(m_bus->devices().empty());
}

void VirtualUsbBusTest::bytesGoOut_data() {
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 31, 32, 512, 1024, 70000}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void VirtualUsbBusTest::bytesGoOut() {
    QFETCH(int, size);
    const DeviceId id = plug();
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    const Bytes bytes = pattern(static_cast<std::size_t>(size));
    QCOMPARE(bulkOut(handle, bytes), 0);
    QCOMPARE(m_device->received(), std::vector<Bytes>{bytes});
    const TransferRecord record = m_bus->log(id).transfers.back();
    QCOMPARE(record.endpoint, 0x02);
    QCOMPARE(record.requested, bytes.size());
    QCOMPARE(record.moved, bytes.size());
    QCOMPARE(record.status, 0);
}

void VirtualUsbBusTest::bytesComeIn_data() {
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 32, 512, 1023, 1024}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void VirtualUsbBusTest::bytesComeIn() {
    QFETCH(int, size);
    const DeviceId id = plug();
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    const Bytes bytes = pattern(static_cast<std::size_t>(size));
    m_device->answerWith(bytes);
    const BulkResult result = bulkIn(handle, 1024);
    QCOMPARE(result.code, 0);
    QCOMPARE(result.bytes, bytes);
    const TransferRecord record = m_bus->log(id).transfers.back();
    QCOMPARE(record.endpoint, 0x81);
    QCOMPARE(record.requested, 1024U);
    QCOMPARE(record.moved, bytes.size());
}

void VirtualUsbBusTest::longMessageContinuesInNextTransfers() {
    const UsbHandle handle = openClaimed(plug());
    QVERIFY(handle);
    const Bytes message = pattern(2500);
    m_device->answerWith(message);
    Bytes together;
    for (const std::size_t size : {1024U, 1024U, 452U}) {
        const BulkResult part = bulkIn(handle, 1024);
        QCOMPARE(part.code, 0);
        QCOMPARE(part.bytes.size(), size);
        together.insert(together.end(), part.bytes.begin(), part.bytes.end());
    }
    QCOMPARE(together, message);
}

void VirtualUsbBusTest::messageThatOverflowsPartOfAPacketIsAnError() {
    const UsbHandle handle = openClaimed(plug());
    QVERIFY(handle);
    m_device->answerWith(pattern(32));
    QCOMPARE(bulkIn(handle, 16).code, LIBUSB_ERROR_OVERFLOW);
}

void VirtualUsbBusTest::readWaitsUntilDeviceHasSomething() {
    const DeviceId id = plug();
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    auto reading = std::async(std::launch::async, [&] { return bulkIn(handle, 1024, 5000); });
    QCOMPARE(reading.wait_for(20ms), std::future_status::timeout);
    m_device->answerWith(pattern(32));
    const BulkResult result = reading.get();
    QCOMPARE(result.code, 0);
    QCOMPARE(result.bytes, pattern(32));
}

void VirtualUsbBusTest::readWithoutAnswerTimesOut() {
    const DeviceId id = plug();
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    const BulkResult result = bulkIn(handle, 1024, 50);
    QCOMPARE(result.code, LIBUSB_ERROR_TIMEOUT);
    QVERIFY(m_bus->waitForTransfers(id, 1, kPatience));
    QCOMPARE(m_bus->log(id).transfers.back().status, -ENOENT);
    m_device->answerWith(pattern(32));
    QCOMPARE(bulkIn(handle, 1024).bytes, pattern(32));
}

void VirtualUsbBusTest::transferWithoutClaimFails() {
    const UsbHandle handle = open(plug());
    QVERIFY(handle);
    QCOMPARE(bulkOut(handle, pattern(32)), LIBUSB_ERROR_IO);
    QVERIFY(m_device->received().empty());
}

void VirtualUsbBusTest::claimsAndReleasesAreLogged() {
    DeviceOptions options;
    options.description.interfaces.resize(2, DeviceDescription::cameraInterface());
    const DeviceId id = plug(options);
    const UsbHandle handle = open(id);
    QVERIFY(handle);
    QCOMPARE(libusb_claim_interface(handle.get(), 1), 0);
    QCOMPARE(libusb_claim_interface(handle.get(), 0), 0);
    QCOMPARE(libusb_release_interface(handle.get(), 1), 0);
    QCOMPARE(m_bus->log(id).claims, (std::vector{1, 0}));
    QCOMPARE(m_bus->log(id).releases, std::vector{1});
}

void VirtualUsbBusTest::unknownInterfaceIsNotFound() {
    const UsbHandle handle = open(plug());
    QVERIFY(handle);
    QCOMPARE(libusb_claim_interface(handle.get(), 1), LIBUSB_ERROR_NOT_FOUND);
}

void VirtualUsbBusTest::busyInterfaceIsRefused() {
    DeviceOptions options;
    options.busyInterfaces = {0};
    const DeviceId id = plug(options);
    const UsbHandle handle = open(id);
    QVERIFY(handle);
    QCOMPARE(libusb_claim_interface(handle.get(), 0), LIBUSB_ERROR_BUSY);
    QCOMPARE(m_bus->log(id).refusedClaims, std::vector{0});
    QVERIFY(m_bus->log(id).claims.empty());
    m_bus->setBusyInterfaces(id, {});
    QCOMPARE(libusb_claim_interface(handle.get(), 0), 0);
}

void VirtualUsbBusTest::interfaceClaimedByAnotherHandleIsBusy() {
    const DeviceId id = plug();
    UsbHandle first = openClaimed(id);
    const UsbHandle second = open(id);
    QVERIFY(first);
    QVERIFY(second);
    QCOMPARE(libusb_claim_interface(second.get(), 0), LIBUSB_ERROR_BUSY);
    first.reset();
    const auto oneLeft = [](const DeviceLog& log) { return log.openHandles == 1; };
    QVERIFY(m_bus->waitForLog(id, oneLeft, kPatience));
    QCOMPARE(libusb_claim_interface(second.get(), 0), 0);
}

void VirtualUsbBusTest::openHandlesAreCounted() {
    const DeviceId id = plug();
    UsbHandle first = openClaimed(id);
    UsbHandle second = open(id);
    const auto open = [](int count) {
        return [count](const DeviceLog& log) { return log.openHandles == count; };
    };
    QVERIFY(m_bus->waitForLog(id, open(2), kPatience));
    first.reset();
    QVERIFY(m_bus->waitForLog(id, open(1), kPatience));
    m_bus->unplug(id);
    second.reset();
    QVERIFY(m_bus->waitForLog(id, open(0), kPatience));
    QCOMPARE(m_bus->log(id).timesOpened, 2);
}

void VirtualUsbBusTest::deniedNodeCannotBeOpened() {
    DeviceOptions options;
    options.access = NodeAccess::Denied;
    const DeviceId id = plug(options);
    QVERIFY(deviceCountBecomes(1));
    const UsbDeviceList list(m_context);
    libusb_device_handle* handle = nullptr;
    {
        const WithoutFileOverride asAnyUser;
        QCOMPARE(libusb_open(list.at(0), &handle), LIBUSB_ERROR_ACCESS);
        m_bus->setNodeAccess(id, NodeAccess::Allowed);
        QCOMPARE(libusb_open(list.at(0), &handle), 0);
    }
    libusb_close(handle);
}

void VirtualUsbBusTest::missingNodeCannotBeOpened() {
    DeviceOptions options;
    options.access = NodeAccess::Missing;
    const DeviceId id = plug(options);
    QVERIFY(deviceCountBecomes(1));
    const UsbDeviceList list(m_context);
    libusb_device_handle* handle = nullptr;
    QCOMPARE(libusb_open(list.at(0), &handle), LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(UsbDeviceList(m_context).count(), 0);
    m_bus->unplug(id);
    m_bus->setNodeAccess(id, NodeAccess::Allowed);
    m_bus->replug(id);
    QVERIFY(open(id));
}

void VirtualUsbBusTest::unpluggingEndsAPendingRead() {
    const DeviceId id = plug();
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    auto reading = std::async(std::launch::async, [&] { return bulkIn(handle, 1024, 10000); });
    QCOMPARE(reading.wait_for(20ms), std::future_status::timeout);
    QElapsedTimer timer;
    timer.start();
    m_bus->unplug(id);
    QCOMPARE(reading.get().code, LIBUSB_ERROR_NO_DEVICE);
    QVERIFY2(timer.elapsed() < 500, qPrintable(QString::number(timer.elapsed())));
}

void VirtualUsbBusTest::everyCallOnAnUnpluggedDeviceFails() {
    const DeviceId id = plug();
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    m_bus->unplug(id);
    QCOMPARE(bulkOut(handle, pattern(32)), LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(bulkIn(handle, 1024).code, LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(libusb_release_interface(handle.get(), 0), LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(libusb_claim_interface(handle.get(), 0), LIBUSB_ERROR_NO_DEVICE);
    QVERIFY(m_device->received().empty());
}

void VirtualUsbBusTest::replugGivesANewDeviceNumber() {
    const DeviceId id = plug();
    const auto first = m_bus->deviceNumber(id);
    QVERIFY(m_bus->unplug(id));
    QCOMPARE(m_bus->deviceNumber(id), std::nullopt);
    QVERIFY(m_bus->replug(id));
    QVERIFY(m_bus->deviceNumber(id).has_value());
    QVERIFY(m_bus->deviceNumber(id) != first);
    QVERIFY(open(id));
    QCOMPARE(m_bus->log(id).timesPlugged, 2);
}

void VirtualUsbBusTest::replugOfAPluggedDeviceIsRefused() {
    const DeviceId id = plug();
    QVERIFY(!m_bus->replug(id));
    QVERIFY(m_bus->unplug(id));
    QVERIFY(!m_bus->unplug(id));
}

void VirtualUsbBusTest::hundredPlugCycles() {
    const DeviceId id = plug();
    for (int cycle = 0; cycle < 100; ++cycle) {
        UsbHandle handle = openClaimed(id);
        QVERIFY2(handle, qPrintable(QString::number(cycle)));
        QCOMPARE(bulkOut(handle, pattern(32)), 0);
        const bool closesFirst = cycle % 2 == 0;
        if (closesFirst) {
            handle.reset();
        }
        QVERIFY(m_bus->unplug(id));
        QVERIFY(deviceCountBecomes(0));
        handle.reset();
        QVERIFY(m_bus->replug(id));
    }
    const auto allClosed = [](const DeviceLog& log) { return log.openHandles == 0; };
    QVERIFY(m_bus->waitForLog(id, allClosed, kPatience));
    QCOMPARE(m_bus->log(id).timesPlugged, 101);
    QCOMPARE(m_device->received().size(), 100U);
}

void VirtualUsbBusTest::thousandSearchPasses() {
    const DeviceId id = plug();
    const UsbHandle handle = open(id);
    QVERIFY(handle);
    for (int pass = 0; pass < 1000; ++pass) {
        const UsbDeviceList list(m_context);
        QCOMPARE(list.count(), 1);
        libusb_device_descriptor descriptor{};
        QCOMPARE(libusb_get_device_descriptor(list.at(0), &descriptor), 0);
        QCOMPARE(list.at(0), libusb_get_device(handle.get()));
    }
}

void VirtualUsbBusTest::twoDevicesKeepApart() {
    const auto other = std::make_shared<ScriptedDevice>();
    const DeviceId first = plug();
    const DeviceId second = m_bus->plug(other);
    QCOMPARE(m_bus->devices(), (std::vector{first, second}));
    const UsbHandle firstHandle = openClaimed(first);
    const UsbHandle secondHandle = openClaimed(second);
    QVERIFY(firstHandle);
    QVERIFY(secondHandle);
    QCOMPARE(bulkOut(firstHandle, pattern(1)), 0);
    QCOMPARE(bulkOut(secondHandle, pattern(2)), 0);
    m_bus->unplug(first);
    QCOMPARE(bulkOut(secondHandle, pattern(3)), 0);
    QCOMPARE(m_device->received(), std::vector<Bytes>{pattern(1)});
    QCOMPARE(other->received(), (std::vector{pattern(2), pattern(3)}));
}

void VirtualUsbBusTest::restartingDeviceComesBackUnderANewNumber() {
    DeviceOptions options;
    options.restartDelay = 30ms;
    const DeviceId id = plug(options);
    const auto number = m_bus->deviceNumber(id);
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    m_device->answerWith(pattern(32));
    m_device->restartAfterNextRead();
    QCOMPARE(bulkIn(handle, 1024).bytes, pattern(32));
    const auto pluggedTwice = [](const DeviceLog& log) { return log.timesPlugged == 2; };
    QVERIFY(m_bus->waitForLog(id, pluggedTwice, kPatience));
    QVERIFY(m_bus->waitForPlugged(id, true, kPatience));
    QVERIFY(m_bus->deviceNumber(id) != number);
    QCOMPARE(bulkOut(handle, pattern(1)), LIBUSB_ERROR_NO_DEVICE);
    QVERIFY(openClaimed(id));
}

void VirtualUsbBusTest::unplugDuringRestartIsFinal() {
    DeviceOptions options;
    options.restartDelay = 50ms;
    const DeviceId id = plug(options);
    const UsbHandle handle = openClaimed(id);
    QVERIFY(handle);
    m_device->answerWith(pattern(32));
    m_device->restartAfterNextRead();
    QCOMPARE(bulkIn(handle, 1024).code, 0);
    QVERIFY(m_bus->waitForPlugged(id, false, kPatience));
    m_bus->unplug(id);
    QVERIFY(!m_bus->waitForPlugged(id, true, 200ms));
}

void VirtualUsbBusTest::unknownDeviceIsLeftAlone() {
    const DeviceId unknown{7};
    QVERIFY(!m_bus->unplug(unknown));
    QVERIFY(!m_bus->replug(unknown));
    QVERIFY(!m_bus->waitForTransfers(unknown, 0, 0ms));
    QCOMPARE(m_bus->deviceNumber(unknown), std::nullopt);
    QCOMPARE(m_bus->log(unknown).timesPlugged, 0);
    m_bus->addFault(unknown, {});
    m_bus->clearFaults(unknown);
    m_bus->setNodeAccess(unknown, NodeAccess::Missing);
    m_bus->setBusyInterfaces(unknown, {0});
    QVERIFY(m_bus->devices().empty());
}

}  // namespace nubo::simulator

QTEST_GUILESS_MAIN(nubo::simulator::VirtualUsbBusTest)
#include "VirtualUsbBusTest.moc"
