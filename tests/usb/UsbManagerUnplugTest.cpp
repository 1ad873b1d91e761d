// SPDX-License-Identifier: MIT
#include "protocol/ClNuboCommandDataReceive.h"
#include "protocol/ClNuboCommandDataSend.h"
#include "protocol/NuboCommands.h"
#include "tests/usb/ManagerBench.h"
#include "tests/usb/Requests.h"

#include <QTest>

using namespace nubo::simulator;
using namespace std::chrono_literals;

namespace {

/// How the camera of a row gets lost.
struct stLoss {
    QByteArray name;
    QUuid request;
    unsigned transfer;  ///< of the request, from 1
    bool isPulled;  ///< while the tool waits for the transfer, rather than by the transfer itself
    QByteArray outcome;
};

QList<stLoss> losses() {
    const char* const gone = "USB_CMD_ERROR 0xef00";
    QList<stLoss> rows;
    for (const auto& [name, request, transfers, success] : REQUESTS) {
        for (unsigned transfer = 1; transfer <= transfers; ++transfer) {
            // A write that moves nothing is a success, unless more packets are to come.
            const bool isNoticed = transfer > 1 || transfers > 2;
            rows.append({QByteArray(name) + ", transfer " + QByteArray::number(transfer), request,
                         transfer, false, isNoticed ? gone : success});
        }
    }
    for (const unsigned transfer : {1U, 2U, 4U}) {
        rows.append({"pulled before transfer " + QByteArray::number(transfer),
                     USB_REQ_NUBO_CMD_GET_WIFI_INFO, transfer, true, gone});
    }
    return rows;
}

}  // namespace

/// The camera goes in the middle of a transaction. Every row has a camera of its own, so that the
/// three seconds until an announcement pass for all of them together.
class UsbManagerUnplugTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void aCameraThatGoesDuringATransferIsReportedOnce_data();
    void aCameraThatGoesDuringATransferIsReportedOnce();
    void aRequestForACameraThatHasGoneFails();
    void everyTransactionOnACameraThatHasGoneFails();
    void everyCameraWorksWhenItIsBack();
    void aTransactionWithoutPlaceForItsResultFails();

private:
    const QList<stLoss> m_losses = losses();
    ManagerBench m_bench;
    std::map<unsigned int, DeviceId> m_cameras;              ///< by the charge of the battery
    std::map<unsigned int, ClUsbController*> m_controllers;  ///< likewise
};

void UsbManagerUnplugTest::initTestCase() {
    for (unsigned int charge = 0; charge < m_losses.size(); ++charge) {
        m_cameras[charge] = m_bench.plugCamera({}, charge);
    }
    QCOMPARE(m_bench.start(), 0);
    QVERIFY(m_bench.ui.waitForOpened(std::ssize(m_cameras)));
    m_controllers = m_bench.controllersByCharge();
    QCOMPARE(m_controllers.size(), m_cameras.size());
}

void UsbManagerUnplugTest::aCameraThatGoesDuringATransferIsReportedOnce_data() {
    QTest::addColumn<unsigned int>("charge");
    for (unsigned int charge = 0; charge < m_losses.size(); ++charge) {
        QTest::newRow(m_losses[charge].name.constData()) << charge;
    }
}

void UsbManagerUnplugTest::aCameraThatGoesDuringATransferIsReportedOnce() {
    QFETCH(const unsigned int, charge);
    const auto& [name, request, transfer, isPulled, outcome] = m_losses[charge];
    const DeviceId camera = m_cameras.at(charge);
    m_bench.ui.forgetArrivals();

    const qint64 before = m_bench.ui.now();
    const FaultKind fault = isPulled ? FaultKind::Timeout : FaultKind::DeviceGone;
    m_bench.bus.addFault(camera, {.kind = fault, .nth = transfer});
    const std::uint64_t finished = m_bench.bus.log(camera).transferCount + transfer - 1;
    m_bench.ui.send(request, m_controllers.at(charge));
    if (isPulled) {
        QVERIFY(m_bench.bus.waitForLog(
            camera,
            [&](const DeviceLog& log) {
                return log.transferCount == finished && log.pendingTransfers == 1;
            },
            5s));
        QVERIFY(m_bench.bus.unplug(camera));
    }
    QTRY_COMPARE(m_bench.ui.answers().size(), 1);
    QCOMPARE_LT(m_bench.ui.now() - before, 900);  // no time-out is waited for
    QCOMPARE(outcomeOf(m_bench.ui.answers().first()), outcome);
    // The transfer itself notices, not the next pass of the search: the close message comes first.
    QCOMPARE(getCommand(m_bench.ui.arrivals().first().message), USB_CMD_DEVICE_CLOSE);

    QVERIFY(m_bench.bus.waitForPlugged(camera, false, 5s));
    QCOMPARE(m_bench.search(), 1);
    QVERIFY(m_bench.waitForHandles(camera, 0));
    QCOMPARE(m_bench.ui.closed(), QList<ClUsbController*>{m_controllers.at(charge)});
    QCOMPARE(m_bench.ui.arrivals().size(), 2);
}

void UsbManagerUnplugTest::aRequestForACameraThatHasGoneFails() {
    ClUsbController* const gone = m_controllers.at(0);
    QVERIFY(!m_bench.manager->canCommunication());
    m_bench.ui.forgetArrivals();
    for (ClUsbController* const controller : {gone, static_cast<ClUsbController*>(nullptr)}) {
        for (const QUuid& request : {USB_REQ_NUBO_CMD_GET_BATTERY, USB_NUBO_CMD_FORMAT_SD}) {
            QCOMPARE(outcomeOf(m_bench.ui.ask(request, controller)), "USB_CMD_ERROR 0xef00");
        }
        QCOMPARE(outcomeOf(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_WIFI_INFO, controller)),
                 "USB_CMD_ERROR 0xef01");
    }
    QCOMPARE(m_bench.ui.arrivals().size(), 6);
}

void UsbManagerUnplugTest::everyTransactionOnACameraThatHasGoneFails() {
    ClUsbController* const gone = m_controllers.at(0);
    ClUsbManager& manager = *m_bench.manager;
    m_bench.runOnWorker([&] {
        ClNuboCommandGetBatteryState command;
        ClNuboCommandDataSend image(1, "image");
        ClNuboCommandDataReceive picture;
        stWifiInfo info;
        AccesspointList list;
        QCOMPARE(manager.execNuboCommand(command, gone, 1000), 0xEF00);
        // Nor does it matter what there is to say: a reception has no bytes to send.
        QCOMPARE(manager.execNuboCommand(picture, gone, 1000), 0xEF00);
        QCOMPARE(manager.execNuboDataWrite(command, image, gone), 0xEF00);
        QCOMPARE(manager.execNuboDataRead(command, picture, gone), 0xEF00);
        QCOMPARE(manager.execNuboGetWifiInfo(gone, &info), 0xEF01);
        QCOMPARE(manager.execNuboGetAccesspointList(gone, &list), 0xEF01);
    });
}

void UsbManagerUnplugTest::everyCameraWorksWhenItIsBack() {
    m_bench.ui.forgetArrivals();
    for (const auto& [charge, camera] : m_cameras) {
        QVERIFY(m_bench.bus.replug(camera));
    }
    QVERIFY(m_bench.ui.waitForOpened(std::ssize(m_cameras)));
    QCOMPARE(m_bench.ui.closed().size(), 0);
    QVERIFY(m_bench.manager->canCommunication());
    m_controllers = m_bench.controllersByCharge();
    QCOMPARE(m_controllers.size(), m_cameras.size());
    for (const auto& [charge, controller] : m_controllers) {
        QCOMPARE(outcomeOf(m_bench.ui.ask(USB_REQ_NUBO_CMD_GET_WIFI_INFO, controller)),
                 "USB_RES_NUBO_CMD_GET_WIFI_INFO");
    }
}

void UsbManagerUnplugTest::aTransactionWithoutPlaceForItsResultFails() {
    ClUsbController* const camera = m_controllers.begin()->second;
    ClUsbManager& manager = *m_bench.manager;
    m_bench.runOnWorker([&] {
        QVERIFY(manager.canCommunication());
        QCOMPARE(manager.execNuboGetWifiInfo(camera, nullptr), 0xEF01);
        QCOMPARE(manager.execNuboGetAccesspointList(camera, nullptr), 0xEF01);
    });
}

QTEST_GUILESS_MAIN(UsbManagerUnplugTest)
#include "UsbManagerUnplugTest.moc"
