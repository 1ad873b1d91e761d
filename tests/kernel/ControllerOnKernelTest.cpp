// SPDX-License-Identifier: MIT
#include "protocol/ResultCodes.h"
#include "tests/kernel/KernelBench.h"
#include "tests/support/TestSubject.h"

#include <QElapsedTimer>
#include <QTest>

#include <thread>

namespace {

constexpr unsigned char IN = 0x81;
constexpr unsigned char OUT = 0x02;
constexpr int MIB = 1024 * 1024;

const QByteArray GET_BATTERY =
    QByteArray::fromHex("0000 0700 20000000 3750 0000") + QByteArray(20, '\0');

}  // namespace

/// One camera through the kernel: claims, time-outs, unplugging, and the kernel's own limit.
class ControllerOnKernelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aCommandIsAnswered();
    void anInterfaceIsClaimedOnce();
    void aReadWithoutAnswerEndsAfterItsTime();
    void anAnswerAfterATimeOutIsTheNextRead();
    void aReadUnderWayEndsWhenTheCameraLeaves();
    void aWriteUnderWayEndsWhenTheCameraLeaves();
    void aWriteBeyondTheMemoryOfTheKernelMovesNothing();

private:
    [[nodiscard]] QByteArray askBattery();
    [[nodiscard]] bool waitUntilClosed();

    GadgetBench m_gadget;
    KernelHost m_host;
    std::unique_ptr<ClUsbController> m_controller;
};

void ControllerOnKernelTest::initTestCase() {
    QCOMPARE(m_gadget.open(), std::string());
}

void ControllerOnKernelTest::init() {
    QCOMPARE(m_gadget.port.plug(), std::string());
    // A device that is on the list is not configured yet.
    const auto open = [this] {
        if (!m_host.find()) {
            return false;
        }
        m_controller = std::make_unique<ClUsbController>(m_host.device);
        return m_controller->open() == LIBUSB_SUCCESS;
    };
    QVERIFY(QTest::qWaitFor(open, KERNEL_PATIENCE_MS));
}

void ControllerOnKernelTest::cleanup() {
    m_controller.reset();
    m_gadget.port.clearFaults();
    // A test may have unplugged it.
    m_gadget.port.unplug();
}

// What is under way when the cable is pulled ends in an error of the link: that the camera has
// gone, the kernel knows a moment later.
bool ControllerOnKernelTest::waitUntilClosed() {
    const auto isClosed = [this] {
        static_cast<void>(m_controller->read(1, IN, nullptr));
        return !m_controller->isOpened();
    };
    return QTest::qWaitFor(isClosed, KERNEL_PATIENCE_MS);
}

QByteArray ControllerOnKernelTest::askBattery() {
    if (m_controller->write(GET_BATTERY, KERNEL_PATIENCE_MS, OUT) != GET_BATTERY.size()) {
        return {};
    }
    return m_controller->read(KERNEL_PATIENCE_MS, IN, nullptr);
}

void ControllerOnKernelTest::aCommandIsAnswered() {
    const QByteArray answer = askBattery();
    QCOMPARE(answer.first(10).toHex(' '), QByteArray("01 00 07 00 20 00 00 00 00 00"));
    QCOMPARE(answer.size(), 32);
}

void ControllerOnKernelTest::anInterfaceIsClaimedOnce() {
    ClUsbController second(m_host.device);
    QCOMPARE(second.open(), LIBUSB_ERROR_NOT_FOUND);
    QCOMPARE(second.claimError(), LIBUSB_ERROR_BUSY);
    m_controller->close();
    QCOMPARE(second.open(), LIBUSB_SUCCESS);
}

void ControllerOnKernelTest::aReadWithoutAnswerEndsAfterItsTime() {
    constexpr int TIME_MS = 500;
    QElapsedTimer clock;
    clock.start();
    int error = 0;
    QCOMPARE(m_controller->read(TIME_MS, IN, &error), QByteArray());
    QCOMPARE(error, USB_ERROR_TIMEOUT);
    QVERIFY2(clock.elapsed() >= TIME_MS, qPrintable(QString::number(clock.elapsed())));
    QVERIFY2(clock.elapsed() < KERNEL_PATIENCE_MS, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(m_controller->isOpened());
}

void ControllerOnKernelTest::anAnswerAfterATimeOutIsTheNextRead() {
    QVERIFY(m_gadget.camera->set("answer-delay", "1000"));
    QCOMPARE(m_controller->write(GET_BATTERY, KERNEL_PATIENCE_MS, OUT), GET_BATTERY.size());
    int error = 0;
    QCOMPARE(m_controller->read(1, IN, &error), QByteArray());
    QCOMPARE(error, USB_ERROR_TIMEOUT);
    QCOMPARE(m_controller->read(KERNEL_PATIENCE_MS, IN, &error).size(), 32);
    QVERIFY(m_gadget.camera->set("answer-delay", "0"));
}

void ControllerOnKernelTest::aReadUnderWayEndsWhenTheCameraLeaves() {
    std::thread puller([this] {
        QTest::qSleep(200);
        m_gadget.port.unplug();
    });
    QElapsedTimer clock;
    clock.start();
    int error = 0;
    const QByteArray packet = m_controller->read(KERNEL_PATIENCE_MS, IN, &error);
    puller.join();
    QCOMPARE(packet, QByteArray());
    QVERIFY2(error == USB_NO_DEVICE || error == USB_ERROR_OTHER,
             qPrintable(QString::number(error)));
    QVERIFY(waitUntilClosed());
    QVERIFY2(clock.elapsed() < KERNEL_PATIENCE_MS, qPrintable(QString::number(clock.elapsed())));
}

void ControllerOnKernelTest::aWriteUnderWayEndsWhenTheCameraLeaves() {
    // At one packet a frame and more, so much takes far longer than until the cable is pulled.
    const QByteArray data(8 * MIB, '\0');
    std::thread puller([this] {
        QTest::qSleep(200);
        m_gadget.port.unplug();
    });
    const int written = m_controller->write(data, KERNEL_PATIENCE_MS, OUT);
    puller.join();
    QVERIFY2(written < data.size(), qPrintable(QString::number(written)));
    QVERIFY(waitUntilClosed());
}

// usbfs_memory_mb is 16. No byte moves, and that is what the controller tells; the camera goes on.
void ControllerOnKernelTest::aWriteBeyondTheMemoryOfTheKernelMovesNothing() {
    QCOMPARE(m_controller->write(QByteArray(16 * MIB, '\0'), KERNEL_PATIENCE_MS, OUT), 0);
    QVERIFY(m_controller->isOpened());
    QCOMPARE(askBattery().size(), 32);
}

const TestSubject registered = subjectWithoutScreen<ControllerOnKernelTest>();
#include "ControllerOnKernelTest.moc"
