// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/DataPackets.h"
#include "protocol/NuboCommands.h"
#include "tests/support/TestSubject.h"
#include "tests/usb/ManagerBench.h"

#include <QTest>

using namespace nubo::simulator;

/// What the manager makes of requests for a camera that is not there. FaultMatrixUnplugTest pulls
/// it in the middle of them.
class UsbManagerUnplugTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aTransactionWithoutPlaceForItsResultFails();
    void aCameraThatGoesIsReported();
    void aRequestForACameraThatHasGoneFails();
    void everyTransactionOnACameraThatHasGoneFails();

private:
    ManagerBench m_bench;
    DeviceId m_camera = m_bench.plugCamera();
    ClUsbController* m_controller = nullptr;
};

void UsbManagerUnplugTest::initTestCase() {
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(1));
    m_controller = m_bench.ui.opened().first();
}

void UsbManagerUnplugTest::aTransactionWithoutPlaceForItsResultFails() {
    ClUsbManager& manager = *m_bench.manager;
    m_bench.runOnWorker([&] {
        QVERIFY(manager.canCommunication());
        QCOMPARE(manager.execNuboGetWifiInfo(m_controller, nullptr), 0xEF01);
        QCOMPARE(manager.execNuboGetAccesspointList(m_controller, nullptr), 0xEF01);
    });
}

void UsbManagerUnplugTest::aCameraThatGoesIsReported() {
    m_bench.ui.forgetArrivals();
    QVERIFY(m_bench.bus.unplug(m_camera));
    QVERIFY(m_bench.ui.waitForClosed(1));
    QCOMPARE(m_bench.ui.closed(), QList<ClUsbController*>{m_controller});
    QCOMPARE(m_bench.ui.arrivals().size(), 1);
}

void UsbManagerUnplugTest::aRequestForACameraThatHasGoneFails() {
    QVERIFY(!m_bench.manager->canCommunication());
    m_bench.ui.forgetArrivals();
    for (ClUsbController* const controller :
         {m_controller, static_cast<ClUsbController*>(nullptr)}) {
        for (const QUuid& request : {USB_REQ_NUBO_CMD_GET_BATTERY, USB_NUBO_CMD_FORMAT_SD}) {
            QCOMPARE(outcomeOf(m_bench.ui.ask(request, controller)), "USB_CMD_ERROR 0xef00");
        }
        QCOMPARE(outcomeOf(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_WIFI_INFO, controller)),
                 "USB_CMD_ERROR 0xef01");
    }
    QCOMPARE(m_bench.ui.arrivals().size(), 6);
}

void UsbManagerUnplugTest::everyTransactionOnACameraThatHasGoneFails() {
    ClUsbManager& manager = *m_bench.manager;
    m_bench.runOnWorker([&] {
        ClNuboCommandGetBatteryState command;
        ClNuboCommandDataSend image(1, "image");
        ClNuboCommandDataReceive picture;
        stWifiInfo info;
        AccesspointList list;
        QCOMPARE(manager.execNuboCommand(command, m_controller, 1000), 0xEF00);
        // Nor does it matter what there is to say: a reception has no bytes to send.
        QCOMPARE(manager.execNuboCommand(picture, m_controller, 1000), 0xEF00);
        QCOMPARE(manager.execNuboDataWrite(command, image, m_controller), 0xEF00);
        QCOMPARE(manager.execNuboDataRead(command, picture, m_controller), 0xEF00);
        QCOMPARE(manager.execNuboGetWifiInfo(m_controller, &info), 0xEF01);
        QCOMPARE(manager.execNuboGetAccesspointList(m_controller, &list), 0xEF01);
    });
}

const TestSubject registered = subjectWithoutScreen<UsbManagerUnplugTest>();
#include "UsbManagerUnplugTest.moc"
