// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"
#include "tests/catalogue/RouteMessages.h"
#include "tests/catalogue/RouteRows.h"
#include "tests/kernel/KernelBench.h"
#include "tests/support/TestSubject.h"

#include <QTest>

#include <algorithm>

using namespace nubo::simulator;

/// The USB manager as the window has it, through the kernel: cameras that come and go, and every
/// request of a page.
class ManagerOnKernelTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void aCameraIsAnnouncedOnce();
    void aCameraThatLeavesIsReportedAndAnnouncedAgain();
    void aRequestUnderWayEndsWhenTheCameraLeaves();
    void aLostAnswerIsATimeOut();
    void anInterfaceThatAnotherProgramHoldsIsWaitedFor();
    void everyRequestIsAnswered();

private:
    [[nodiscard]] bool waitFor(qsizetype opened, qsizetype closed) const;
    void start();

    GadgetBench m_gadget;
    std::unique_ptr<ClUsbManager> m_manager;
    std::unique_ptr<UserInterface> m_ui;
};

void ManagerOnKernelTest::initTestCase() {
    QCOMPARE(m_gadget.open(), std::string());
}

void ManagerOnKernelTest::init() {
    QCOMPARE(m_gadget.port.plug(), std::string());
    KernelHost host;
    QVERIFY(host.find());
}

void ManagerOnKernelTest::cleanup() {
    m_ui.reset();
    m_manager.reset();
    m_gadget.port.clearFaults();
    m_gadget.port.unplug();
}

void ManagerOnKernelTest::start() {
    m_manager = std::make_unique<ClUsbManager>(nullptr, SHORT_USB_TIMES);
    m_ui = std::make_unique<UserInterface>(*m_manager);
    QCOMPARE(m_manager->initialize({CAMERA}), 0);
}

bool ManagerOnKernelTest::waitFor(qsizetype opened, qsizetype closed) const {
    return QTest::qWaitFor(
        [&] { return m_ui->opened().size() == opened && m_ui->closed().size() == closed; },
        KERNEL_PATIENCE_MS);
}

void ManagerOnKernelTest::aCameraIsAnnouncedOnce() {
    start();
    QVERIFY(waitFor(1, 0));
    QTest::qWait(5 * static_cast<int>(SHORT_USB_TIMES.search.count()));
    QVERIFY(waitFor(1, 0));
}

void ManagerOnKernelTest::aCameraThatLeavesIsReportedAndAnnouncedAgain() {
    constexpr qsizetype TIMES = 10;
    start();
    for (qsizetype time = 1; time <= TIMES; ++time) {
        QVERIFY(waitFor(time, time - 1));
        QCOMPARE(m_gadget.port.unplug(), std::string());
        QVERIFY(waitFor(time, time));
        QCOMPARE(m_gadget.port.plug(), std::string());
    }
    QVERIFY(waitFor(TIMES + 1, TIMES));
    QCOMPARE(outcomeOf(m_ui->ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_ui->opened().last())),
             QByteArray("USB_RES_NUBO_CMD_GET_BATTERY"));
}

void ManagerOnKernelTest::aRequestUnderWayEndsWhenTheCameraLeaves() {
    start();
    QVERIFY(waitFor(1, 0));
    m_gadget.port.addFault({.kind = FaultKind::DeviceGone, .unit = FaultUnit::Command});
    const VX_CMD answer = m_ui->ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_ui->opened().first());
    QCOMPARE(outcomeOf(answer), QByteArray("USB_CMD_ERROR 0xef00"));
    QVERIFY(waitFor(1, 1));
}

void ManagerOnKernelTest::aLostAnswerIsATimeOut() {
    constexpr qint64 THREE_READS_MS = 3000;
    start();
    QVERIFY(waitFor(1, 0));
    m_gadget.port.addFault({.kind = FaultKind::Timeout, .unit = FaultUnit::Command});
    const qint64 before = m_ui->now();
    const VX_CMD answer = m_ui->ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_ui->opened().first());
    QCOMPARE(outcomeOf(answer), QByteArray("USB_CMD_ERROR 0xef03"));
    QVERIFY(m_ui->now() - before >= THREE_READS_MS);
    QCOMPARE(outcomeOf(m_ui->ask(USB_REQ_NUBO_CMD_GET_BATTERY, m_ui->opened().first())),
             QByteArray("USB_RES_NUBO_CMD_GET_BATTERY"));
}

void ManagerOnKernelTest::anInterfaceThatAnotherProgramHoldsIsWaitedFor() {
    KernelHost host;
    const auto open = [&host] {
        return host.find() && ClUsbController(host.device).open() == LIBUSB_SUCCESS;
    };
    QVERIFY(QTest::qWaitFor(open, KERNEL_PATIENCE_MS));
    ClUsbController other(host.device);
    QCOMPARE(other.open(), LIBUSB_SUCCESS);
    start();
    QTest::qWait(5 * static_cast<int>(SHORT_USB_TIMES.search.count()));
    QCOMPARE(m_ui->opened().size(), 0);
    other.close();
    QVERIFY(waitFor(1, 0));
}

// One camera for all: plugging in takes far longer than an answer.
void ManagerOnKernelTest::everyRequestIsAnswered() {
    start();
    QVERIFY(waitFor(1, 0));
    ClUsbController* const camera = m_ui->opened().first();
    QObject page;
    for (const stRouteRow& row : routeRows()) {
        CameraState state;
        const auto bytes = std::make_shared<const ByteVector>(ByteVector{'R', 'I', 'F', 'F'});
        state.data = {bytes, bytes, bytes};
        m_gadget.camera->setState(state);
        const VX_CMD answer = m_ui->ask(requestMessage(row.request, row.arguments, &page, camera));
        const QString name = getUsbCommand(row.request);
        if (row.answer.isNull()) {
            QVERIFY2(typedText(answer) == typedText(resultMessage(row.request, camera, 0)),
                     qPrintable(name + typedText(answer).join(u'\n')));
        } else {
            QVERIFY2(getCommand(answer) == row.answer, qPrintable(name));
        }
    }
}

const TestSubject registered = subjectWithoutScreen<ManagerOnKernelTest>();
#include "ManagerOnKernelTest.moc"
