// SPDX-License-Identifier: MIT
#include "simulator/VirtualUsbBus.h"

#include "tests/simulator/BusBench.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WithoutFileOverride.h"

#include <QFile>
#include <QTest>

#include <libusb.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <future>

namespace nubo::simulator {

namespace {

using namespace std::chrono_literals;
using Bytes = ScriptedDevice::Bytes;

constexpr auto PATIENCE = BusBench::PATIENCE;
constexpr int MIB = 1024 * 1024;

}  // namespace

/// What a host sees of a device that is plugged in.
class VirtualUsbBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<BusBench>(); }
    void cleanup() { m_bench.reset(); }

    void pluggedDeviceShowsItsDescriptors();
    void describedInterfacesAreShown();
    void serialNumberIsReadWithAndWithoutOpening();
    void deviceWithoutSerialNumberHasNone();
    void otherControlRequestsStall();
    void transferBeyondTheKernelsMemoryIsRefused();
    void memoryIsSharedByAllTransfersAndGivenBack();
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

private:
    std::unique_ptr<BusBench> m_bench;
};

void VirtualUsbBusTest::pluggedDeviceShowsItsDescriptors() {
    m_bench->plug();
    QVERIFY(m_bench->deviceCountBecomes(1));
    const LibusbDeviceList list(m_bench->context.get());
    libusb_device_descriptor device{};
    QCOMPARE(libusb_get_device_descriptor(list.devices().front(), &device), 0);
    QCOMPARE(device.idVendor, NUBO_USB_VENDOR_ID);
    QCOMPARE(device.idProduct, NUBO_USB_PRODUCT_ID);
    QCOMPARE(device.bNumConfigurations, 1);

    libusb_config_descriptor* raw = nullptr;
    QCOMPARE(libusb_get_config_descriptor(list.devices().front(), 0, &raw), 0);
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
    m_bench->plug(options);
    QVERIFY(m_bench->deviceCountBecomes(1));
    const LibusbDeviceList list(m_bench->context.get());
    for (std::uint8_t index = 0; index < 2; ++index) {
        libusb_config_descriptor* raw = nullptr;
        QCOMPARE(libusb_get_config_descriptor(list.devices().front(), index, &raw), 0);
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

void VirtualUsbBusTest::serialNumberIsReadWithAndWithoutOpening() {
    m_bench->device->setSerialNumber("A\xE9\\7");
    const LibusbHandle handle = m_bench->open(m_bench->plug());
    QVERIFY(handle);
    libusb_device_descriptor device{};
    QCOMPARE(libusb_get_device_descriptor(libusb_get_device(handle.get()), &device), 0);
    std::array<unsigned char, 255> room{};
    const int size = libusb_get_string_descriptor(handle.get(), device.iSerialNumber, 0x0409,
                                                  room.data(), static_cast<int>(room.size()));
    QCOMPARE(QByteArray(reinterpret_cast<const char*>(room.data()), size).toHex(),
             QByteArray("0a03"
                        "4100"
                        "e900"
                        "5c00"
                        "3700"));
    QFile attribute(QStringLiteral("/sys/devices/usb1/1-1/serial"));
    QVERIFY(attribute.open(QIODevice::ReadOnly));
    QCOMPARE(attribute.readAll(), QByteArray("A\xC3\xA9\\7\n"));
}

void VirtualUsbBusTest::deviceWithoutSerialNumberHasNone() {
    const LibusbHandle handle = m_bench->open(m_bench->plug());
    QVERIFY(handle);
    libusb_device_descriptor device{};
    QCOMPARE(libusb_get_device_descriptor(libusb_get_device(handle.get()), &device), 0);
    QCOMPARE(device.iSerialNumber, 0);
    std::array<unsigned char, 255> room{};
    QCOMPARE(libusb_get_string_descriptor_ascii(handle.get(), 1, room.data(), 255),
             LIBUSB_ERROR_PIPE);
    QVERIFY(!QFile::exists(QStringLiteral("/sys/devices/usb1/1-1/serial")));
}

void VirtualUsbBusTest::otherControlRequestsStall() {
    m_bench->device->setSerialNumber("7");
    const LibusbHandle handle = m_bench->open(m_bench->plug());
    QVERIFY(handle);
    std::array<unsigned char, 64> room{};
    QCOMPARE(libusb_get_string_descriptor_ascii(handle.get(), 2, room.data(), 64),
             LIBUSB_ERROR_PIPE);
    QCOMPARE(libusb_get_descriptor(handle.get(), LIBUSB_DT_BOS, 0, room.data(), 64),
             LIBUSB_ERROR_PIPE);
    QCOMPARE(libusb_control_transfer(handle.get(), 0x40, 6, 0x0301, 0, nullptr, 0, PATIENCE_MS),
             LIBUSB_ERROR_PIPE);
}

void VirtualUsbBusTest::transferBeyondTheKernelsMemoryIsRefused() {
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    Bytes tooMuch = pattern(16 * MIB);
    int moved = 0;
    QCOMPARE(
        libusb_bulk_transfer(handle.get(), 0x02, tooMuch.data(), 16 * MIB, &moved, PATIENCE_MS),
        LIBUSB_ERROR_NO_MEM);
    QCOMPARE(moved, 0);
    QVERIFY(m_bench->device->received().empty());
    QCOMPARE(m_bench->bus.log(id).transferCount, 0U);
    const Bytes fitting = pattern(15 * MIB);
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(bulkOut(handle, fitting), 0);
        QVERIFY(m_bench->device->received().back() == fitting);
    }
}

void VirtualUsbBusTest::memoryIsSharedByAllTransfersAndGivenBack() {
    const DeviceId readId = m_bench->plug();
    const LibusbHandle reader = m_bench->openClaimed(readId);
    const auto other = std::make_shared<ScriptedDevice>();
    const LibusbHandle writer = m_bench->openClaimed(m_bench->bus.plug(other));
    QVERIFY(reader);
    QVERIFY(writer);
    auto reading = std::async(std::launch::async, [&] { return bulkIn(reader, 9 * MIB); });
    QVERIFY(m_bench->bus.waitForLog(readId, isWaiting, PATIENCE));
    QCOMPARE(bulkOut(writer, pattern(8 * MIB)), LIBUSB_ERROR_NO_MEM);
    m_bench->device->answerWith(pattern(32));
    QCOMPARE(reading.get().bytes, pattern(32));
    QCOMPARE(bulkOut(writer, pattern(8 * MIB)), 0);
}

void VirtualUsbBusTest::bytesGoOut_data() {
    QTest::addColumn<int>("size");
    for (const int size : {0, 1, 31, 32, 512, 1024, 70000}) {
        QTest::addRow("%d bytes", size) << size;
    }
}

void VirtualUsbBusTest::bytesGoOut() {
    QFETCH(int, size);
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    const Bytes bytes = pattern(static_cast<std::size_t>(size));
    QCOMPARE(bulkOut(handle, bytes), 0);
    QCOMPARE(m_bench->device->received(), std::vector<Bytes>{bytes});
    const TransferRecord record = m_bench->bus.log(id).transfers.back();
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
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    const Bytes bytes = pattern(static_cast<std::size_t>(size));
    m_bench->device->answerWith(bytes);
    const BulkResult result = bulkIn(handle, 1024);
    QCOMPARE(result.code, 0);
    QCOMPARE(result.bytes, bytes);
    const TransferRecord record = m_bench->bus.log(id).transfers.back();
    QCOMPARE(record.endpoint, 0x81);
    QCOMPARE(record.requested, 1024U);
    QCOMPARE(record.moved, bytes.size());
}

void VirtualUsbBusTest::longMessageContinuesInNextTransfers() {
    const LibusbHandle handle = m_bench->openClaimed(m_bench->plug());
    QVERIFY(handle);
    const Bytes message = pattern(2500);
    m_bench->device->answerWith(message);
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
    const LibusbHandle handle = m_bench->openClaimed(m_bench->plug());
    QVERIFY(handle);
    m_bench->device->answerWith(pattern(32));
    QCOMPARE(bulkIn(handle, 16).code, LIBUSB_ERROR_OVERFLOW);
}

void VirtualUsbBusTest::readWaitsUntilDeviceHasSomething() {
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    auto reading = std::async(std::launch::async, [&] { return bulkIn(handle, 1024); });
    QVERIFY(m_bench->bus.waitForLog(id, isWaiting, PATIENCE));
    m_bench->device->answerWith(pattern(32));
    const BulkResult result = reading.get();
    QCOMPARE(result.code, 0);
    QCOMPARE(result.bytes, pattern(32));
}

void VirtualUsbBusTest::readWithoutAnswerTimesOut() {
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    const BulkResult result = bulkIn(handle, 1024, 50);
    QCOMPARE(result.code, LIBUSB_ERROR_TIMEOUT);
    QVERIFY(m_bench->bus.waitForTransfers(id, 1, PATIENCE));
    QCOMPARE(m_bench->bus.log(id).transfers.back().status, -ENOENT);
    m_bench->device->answerWith(pattern(32));
    QCOMPARE(bulkIn(handle, 1024).bytes, pattern(32));
}

void VirtualUsbBusTest::transferWithoutClaimFails() {
    const LibusbHandle handle = m_bench->open(m_bench->plug());
    QVERIFY(handle);
    QCOMPARE(bulkOut(handle, pattern(32)), LIBUSB_ERROR_IO);
    QVERIFY(m_bench->device->received().empty());
}

void VirtualUsbBusTest::claimsAndReleasesAreLogged() {
    DeviceOptions options;
    options.description.interfaces.resize(2, DeviceDescription::cameraInterface());
    const DeviceId id = m_bench->plug(options);
    const LibusbHandle handle = m_bench->open(id);
    QVERIFY(handle);
    QCOMPARE(libusb_claim_interface(handle.get(), 1), 0);
    QCOMPARE(libusb_claim_interface(handle.get(), 0), 0);
    QCOMPARE(libusb_release_interface(handle.get(), 1), 0);
    QCOMPARE(m_bench->bus.log(id).claims, (std::vector{1, 0}));
    QCOMPARE(m_bench->bus.log(id).releases, std::vector{1});
}

void VirtualUsbBusTest::unknownInterfaceIsNotFound() {
    const LibusbHandle handle = m_bench->open(m_bench->plug());
    QVERIFY(handle);
    QCOMPARE(libusb_claim_interface(handle.get(), 1), LIBUSB_ERROR_NOT_FOUND);
}

void VirtualUsbBusTest::busyInterfaceIsRefused() {
    DeviceOptions options;
    options.busyInterfaces = {0};
    const DeviceId id = m_bench->plug(options);
    const LibusbHandle handle = m_bench->open(id);
    QVERIFY(handle);
    QCOMPARE(libusb_claim_interface(handle.get(), 0), LIBUSB_ERROR_BUSY);
    QCOMPARE(m_bench->bus.log(id).refusedClaims, std::vector{0});
    QVERIFY(m_bench->bus.log(id).claims.empty());
    m_bench->bus.setBusyInterfaces(id, {});
    QCOMPARE(libusb_claim_interface(handle.get(), 0), 0);
}

void VirtualUsbBusTest::interfaceClaimedByAnotherHandleIsBusy() {
    const DeviceId id = m_bench->plug();
    LibusbHandle first = m_bench->openClaimed(id);
    const LibusbHandle second = m_bench->open(id);
    QVERIFY(first);
    QVERIFY(second);
    QCOMPARE(libusb_claim_interface(second.get(), 0), LIBUSB_ERROR_BUSY);
    first.reset();
    const auto oneLeft = [](const DeviceLog& log) { return log.openHandles == 1; };
    QVERIFY(m_bench->bus.waitForLog(id, oneLeft, PATIENCE));
    QCOMPARE(libusb_claim_interface(second.get(), 0), 0);
}

void VirtualUsbBusTest::openHandlesAreCounted() {
    const DeviceId id = m_bench->plug();
    LibusbHandle first = m_bench->openClaimed(id);
    LibusbHandle second = m_bench->open(id);
    const auto opened = [](int count) {
        return [count](const DeviceLog& log) { return log.openHandles == count; };
    };
    QVERIFY(m_bench->bus.waitForLog(id, opened(2), PATIENCE));
    first.reset();
    QVERIFY(m_bench->bus.waitForLog(id, opened(1), PATIENCE));
    m_bench->bus.unplug(id);
    second.reset();
    QVERIFY(m_bench->bus.waitForLog(id, opened(0), PATIENCE));
    QCOMPARE(m_bench->bus.log(id).timesOpened, 2);
}

void VirtualUsbBusTest::deniedNodeCannotBeOpened() {
    DeviceOptions options;
    options.access = NodeAccess::Denied;
    const DeviceId id = m_bench->plug(options);
    QVERIFY(m_bench->deviceCountBecomes(1));
    const LibusbDeviceList list(m_bench->context.get());
    libusb_device_handle* handle = nullptr;
    {
        const WithoutFileOverride asAnyUser;
        QCOMPARE(libusb_open(list.devices().front(), &handle), LIBUSB_ERROR_ACCESS);
        m_bench->bus.setNodeAccess(id, NodeAccess::Allowed);
        QCOMPARE(libusb_open(list.devices().front(), &handle), 0);
    }
    libusb_close(handle);
}

void VirtualUsbBusTest::missingNodeCannotBeOpened() {
    DeviceOptions options;
    options.access = NodeAccess::Missing;
    const DeviceId id = m_bench->plug(options);
    QVERIFY(m_bench->deviceCountBecomes(1));
    const LibusbDeviceList list(m_bench->context.get());
    libusb_device_handle* handle = nullptr;
    QCOMPARE(libusb_open(list.devices().front(), &handle), LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(LibusbDeviceList(m_bench->context.get()).devices().size(), 0U);
    m_bench->bus.unplug(id);
    m_bench->bus.setNodeAccess(id, NodeAccess::Allowed);
    m_bench->bus.replug(id);
    QVERIFY(m_bench->open(id));
}

}  // namespace nubo::simulator

const TestSubject registered = subjectWithoutScreen<nubo::simulator::VirtualUsbBusTest>();
#include "VirtualUsbBusTest.moc"
