// SPDX-License-Identifier: MIT
#include "simulator/VirtualCamera.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/simulator/BusBench.h"
#include "tests/simulator/CameraTalk.h"
#include "tests/support/TestSubject.h"

#include <QElapsedTimer>
#include <QTest>

#include <libusb.h>

#include <chrono>
#include <future>

namespace nubo::simulator {

namespace {

using namespace std::chrono_literals;
using Bytes = ScriptedDevice::Bytes;

constexpr auto PATIENCE = BusBench::PATIENCE;

/// Tells a camera something in hexadecimal, without fetching its answer.
bool order(const LibusbHandle& handle, const QByteArray& hex) {
    const QByteArray raw = QByteArray::fromHex(hex);
    return bulkOut(handle, Bytes(raw.begin(), raw.end())) == 0;
}

}  // namespace

/// Devices that come and go.
class BusPluggingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench = std::make_unique<BusBench>(); }
    void cleanup() { m_bench.reset(); }

    void busIsAvailableHere();
    void emptyBusHasNoDevices();
    void devicesArePluggedWhileLibusbRuns();
    void unpluggingEndsAPendingRead();
    void everyCallOnAnUnpluggedDeviceFails();
    void replugGivesANewDeviceNumber();
    void handlesOnAFormerNodeDoNotCount();
    void replugOfAPluggedDeviceIsRefused();
    void hundredPlugCycles();
    void thousandSearchPasses();
    void twoDevicesKeepApart();
    void restartingDeviceComesBackUnderANewNumber();
    void unplugDuringRestartIsFinal();
    void aCameraToldToRestartComesBackUnderANewNumber();
    void aCameraToldToPowerOffLeavesAndStaysAway();
    void unknownDeviceIsLeftAlone();

private:
    std::unique_ptr<BusBench> m_bench;
};

void BusPluggingTest::busIsAvailableHere() {
    QVERIFY(VirtualUsbBus::isAvailable());
}

void BusPluggingTest::emptyBusHasNoDevices() {
    QCOMPARE(LibusbDeviceList(m_bench->context.get()).devices().size(), 0U);
    QVERIFY(m_bench->bus.devices().empty());
}

void BusPluggingTest::devicesArePluggedWhileLibusbRuns() {
    QCOMPARE(LibusbDeviceList(m_bench->context.get()).devices().size(), 0U);
    const DeviceId id = m_bench->plug();
    QVERIFY(id);
    QVERIFY(m_bench->deviceCountBecomes(1));
    QCOMPARE(m_bench->bus.devices(), std::vector{id});
    QVERIFY(m_bench->bus.unplug(id));
    QVERIFY(m_bench->deviceCountBecomes(0));
    QVERIFY(m_bench->bus.devices().empty());
}

void BusPluggingTest::unpluggingEndsAPendingRead() {
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    auto reading = std::async(std::launch::async, [&] { return bulkIn(handle, 1024); });
    QVERIFY(m_bench->bus.waitForLog(id, isWaiting, PATIENCE));
    QElapsedTimer timer;
    timer.start();
    m_bench->bus.unplug(id);
    QCOMPARE(reading.get().code, LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE_LT(timer.elapsed(), PATIENCE_MS / 2);  // the read's time-out is not waited for
    QCOMPARE(m_bench->bus.log(id).transfers.back().status, -ESHUTDOWN);
}

void BusPluggingTest::everyCallOnAnUnpluggedDeviceFails() {
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    m_bench->bus.unplug(id);
    QCOMPARE(bulkOut(handle, pattern(32)), LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(bulkIn(handle, 1024).code, LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(libusb_release_interface(handle.get(), 0), LIBUSB_ERROR_NO_DEVICE);
    QCOMPARE(libusb_claim_interface(handle.get(), 0), LIBUSB_ERROR_NO_DEVICE);
    QVERIFY(m_bench->device->received().empty());
}

void BusPluggingTest::replugGivesANewDeviceNumber() {
    const DeviceId id = m_bench->plug();
    const auto first = m_bench->bus.deviceNumber(id);
    QVERIFY(m_bench->bus.unplug(id));
    QCOMPARE(m_bench->bus.deviceNumber(id), std::nullopt);
    QVERIFY(m_bench->bus.replug(id));
    QVERIFY(m_bench->bus.deviceNumber(id).has_value());
    QVERIFY(m_bench->bus.deviceNumber(id) != first);
    QVERIFY(m_bench->open(id));
    QCOMPARE(m_bench->bus.log(id).timesPlugged, 2);
}

void BusPluggingTest::handlesOnAFormerNodeDoNotCount() {
    const DeviceId id = m_bench->plug();
    LibusbHandle former = m_bench->openClaimed(id);
    QVERIFY(former);
    QCOMPARE(m_bench->bus.log(id).openHandles, 1);
    QVERIFY(m_bench->bus.unplug(id));
    QVERIFY(m_bench->bus.replug(id));
    QCOMPARE(m_bench->bus.log(id).openHandles, 0);
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    former.reset();
    QVERIFY(bulkOut(handle, pattern(32)) == 0);
    QCOMPARE(m_bench->bus.log(id).openHandles, 1);
}

void BusPluggingTest::replugOfAPluggedDeviceIsRefused() {
    const DeviceId id = m_bench->plug();
    QVERIFY(!m_bench->bus.replug(id));
    QVERIFY(m_bench->bus.unplug(id));
    QVERIFY(!m_bench->bus.unplug(id));
}

void BusPluggingTest::hundredPlugCycles() {
    const DeviceId id = m_bench->plug();
    for (int cycle = 0; cycle < 100; ++cycle) {
        LibusbHandle handle = m_bench->openClaimed(id);
        QVERIFY2(handle, qPrintable(QString::number(cycle)));
        QCOMPARE(bulkOut(handle, pattern(32)), 0);
        const bool closesFirst = cycle % 2 == 0;
        if (closesFirst) {
            handle.reset();
        }
        QVERIFY(m_bench->bus.unplug(id));
        QVERIFY(m_bench->deviceCountBecomes(0));
        handle.reset();
        QVERIFY(m_bench->bus.replug(id));
    }
    const auto allClosed = [](const DeviceLog& log) { return log.openHandles == 0; };
    QVERIFY(m_bench->bus.waitForLog(id, allClosed, PATIENCE));
    QCOMPARE(m_bench->bus.log(id).timesPlugged, 101);
    QCOMPARE(m_bench->device->received().size(), 100U);
}

void BusPluggingTest::thousandSearchPasses() {
    const DeviceId id = m_bench->plug();
    const LibusbHandle handle = m_bench->open(id);
    QVERIFY(handle);
    for (int pass = 0; pass < 1000; ++pass) {
        const LibusbDeviceList list(m_bench->context.get());
        QCOMPARE(list.devices().size(), 1U);
        libusb_device_descriptor descriptor{};
        QCOMPARE(libusb_get_device_descriptor(list.devices().front(), &descriptor), 0);
        QCOMPARE(list.devices().front(), libusb_get_device(handle.get()));
    }
}

void BusPluggingTest::twoDevicesKeepApart() {
    const auto other = std::make_shared<ScriptedDevice>();
    const DeviceId first = m_bench->plug();
    const DeviceId second = m_bench->bus.plug(other);
    QCOMPARE(m_bench->bus.devices(), (std::vector{first, second}));
    const LibusbHandle firstHandle = m_bench->openClaimed(first);
    const LibusbHandle secondHandle = m_bench->openClaimed(second);
    QVERIFY(firstHandle);
    QVERIFY(secondHandle);
    QCOMPARE(bulkOut(firstHandle, pattern(1)), 0);
    QCOMPARE(bulkOut(secondHandle, pattern(2)), 0);
    m_bench->bus.unplug(first);
    QCOMPARE(bulkOut(secondHandle, pattern(3)), 0);
    QCOMPARE(m_bench->device->received(), std::vector<Bytes>{pattern(1)});
    QCOMPARE(other->received(), (std::vector{pattern(2), pattern(3)}));
}

void BusPluggingTest::restartingDeviceComesBackUnderANewNumber() {
    DeviceOptions options;
    options.restartDelay = 30ms;
    const DeviceId id = m_bench->plug(options);
    const auto number = m_bench->bus.deviceNumber(id);
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    m_bench->device->answerWith(pattern(32));
    m_bench->device->restartAfterNextRead();
    QCOMPARE(bulkIn(handle, 1024).bytes, pattern(32));
    const auto pluggedTwice = [](const DeviceLog& log) { return log.timesPlugged == 2; };
    QVERIFY(m_bench->bus.waitForLog(id, pluggedTwice, PATIENCE));
    QVERIFY(m_bench->bus.waitForPlugged(id, true, PATIENCE));
    QVERIFY(m_bench->bus.deviceNumber(id) != number);
    QCOMPARE(bulkOut(handle, pattern(1)), LIBUSB_ERROR_NO_DEVICE);
    QVERIFY(m_bench->openClaimed(id));
}

void BusPluggingTest::unplugDuringRestartIsFinal() {
    DeviceOptions options;
    options.restartDelay = 50ms;
    const DeviceId id = m_bench->plug(options);
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    m_bench->device->answerWith(pattern(32));
    m_bench->device->restartAfterNextRead();
    QCOMPARE(bulkIn(handle, 1024).code, 0);
    QVERIFY(m_bench->bus.waitForPlugged(id, false, PATIENCE));
    m_bench->bus.unplug(id);
    QVERIFY(!m_bench->bus.waitForPlugged(id, true, 200ms));
}

void BusPluggingTest::aCameraToldToRestartComesBackUnderANewNumber() {
    DeviceOptions options;
    options.restartDelay = 30ms;
    const DeviceId id = m_bench->bus.plug(std::make_shared<VirtualCamera>(), options);
    const auto number = m_bench->bus.deviceNumber(id);
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    QVERIFY(order(handle, command("0268")));
    // It stays until the host knows that it has understood.
    QCOMPARE(m_bench->bus.deviceNumber(id), number);
    QCOMPARE(bulkIn(handle, 1024).bytes.size(), 32U);
    const auto pluggedTwice = [](const DeviceLog& log) { return log.timesPlugged == 2; };
    QVERIFY(m_bench->bus.waitForLog(id, pluggedTwice, PATIENCE));
    QVERIFY(m_bench->bus.waitForPlugged(id, true, PATIENCE));
    QVERIFY(m_bench->bus.deviceNumber(id) != number);
    QVERIFY(!order(handle, command("3750")));

    const LibusbHandle again = m_bench->openClaimed(id);
    QVERIFY(again);
    QVERIFY(order(again, command("3750")));
    QCOMPARE(bulkIn(again, 1024).bytes.size(), 32U);
}

void BusPluggingTest::aCameraToldToPowerOffLeavesAndStaysAway() {
    DeviceOptions options;
    options.restartDelay = 10ms;
    const DeviceId id = m_bench->bus.plug(std::make_shared<VirtualCamera>(), options);
    const LibusbHandle handle = m_bench->openClaimed(id);
    QVERIFY(handle);
    QVERIFY(order(handle, command("0168")));
    QVERIFY(m_bench->bus.deviceNumber(id).has_value());
    QCOMPARE(bulkIn(handle, 1024).bytes.size(), 32U);
    QVERIFY(m_bench->bus.waitForPlugged(id, false, PATIENCE));
    QVERIFY(m_bench->deviceCountBecomes(0));
    QVERIFY(!order(handle, command("3750")));
    QVERIFY(!m_bench->bus.waitForPlugged(id, true, 200ms));
    QCOMPARE(m_bench->bus.log(id).timesPlugged, 1);
    // Its button brings it back.
    QVERIFY(m_bench->bus.replug(id));
    QVERIFY(m_bench->openClaimed(id));
}

void BusPluggingTest::unknownDeviceIsLeftAlone() {
    const DeviceId unknown{7};
    QVERIFY(!m_bench->bus.unplug(unknown));
    QVERIFY(!m_bench->bus.replug(unknown));
    QVERIFY(!m_bench->bus.waitForTransfers(unknown, 0, 0ms));
    QCOMPARE(m_bench->bus.deviceNumber(unknown), std::nullopt);
    QCOMPARE(m_bench->bus.log(unknown).timesPlugged, 0);
    m_bench->bus.addFault(unknown, {});
    m_bench->bus.clearFaults(unknown);
    m_bench->bus.setNodeAccess(unknown, NodeAccess::Missing);
    m_bench->bus.setBusyInterfaces(unknown, {0});
    QVERIFY(m_bench->bus.devices().empty());
}

}  // namespace nubo::simulator

const TestSubject registered = subjectWithoutScreen<nubo::simulator::BusPluggingTest>();
#include "BusPluggingTest.moc"
