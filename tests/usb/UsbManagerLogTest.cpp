// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WithoutFileOverride.h"
#include "tests/usb/ManagerBench.h"

#include <QMutex>
#include <QTest>

using namespace nubo::simulator;

namespace {

/// Keeps the messages of category "nubo.usb", from whatever thread, instead of printing them.
class UsbMessages {
public:
    UsbMessages() {
        s_here = this;
        m_before = qInstallMessageHandler(&UsbMessages::keep);
    }
    ~UsbMessages() { qInstallMessageHandler(m_before); }
    UsbMessages(const UsbMessages&) = delete;
    UsbMessages& operator=(const UsbMessages&) = delete;

    /// The messages since the last call; those above the level of information begin with "!".
    QStringList take() {
        const QMutexLocker lock(&m_mutex);
        return std::exchange(m_messages, {});
    }

    /// They come again with the next ones.
    void putBack(const QStringList& messages) {
        const QMutexLocker lock(&m_mutex);
        m_messages = messages + m_messages;
    }

private:
    static void keep(QtMsgType type, const QMessageLogContext& context, const QString& text) {
        if (qstrcmp(context.category, "nubo.usb") != 0) {
            s_here->m_before(type, context, text);
            return;
        }
        const QMutexLocker lock(&s_here->m_mutex);
        s_here->m_messages.append(type == QtInfoMsg ? text : u'!' + text);
    }

    static inline UsbMessages* s_here = nullptr;
    QtMessageHandler m_before;
    QMutex m_mutex;
    QStringList m_messages;
};

/// No message comes in between that a camera is ready.
constexpr stUsbTimes ENDLESS_WAIT{.search = std::chrono::milliseconds(1000),
                                  .connectWait = std::chrono::hours(1)};

const QString BUSY = QStringLiteral("Resource busy");

QString opened(int device) {
    return QStringLiteral("Camera opened on bus 1, device %1").arg(device);
}

QString failed(int device, const QString& reason) {
    return QStringLiteral(
               "!Camera on bus 1, device %1 cannot be opened, trying again every second: ")
               .arg(device) +
           reason;
}

}  // namespace

Q_DECLARE_METATYPE(nubo::simulator::FaultKind)

/// What a user who starts the tool in a terminal learns about the camera's link: every change once,
/// however often the search meets it.
class UsbManagerLogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_messages = std::make_unique<UsbMessages>(); }
    void cleanup() { m_messages.reset(); }

    void theStartNamesTheIdentity();
    void aFailedRequestIsReportedOnce_data();
    void aFailedRequestIsReportedOnce();
    void aRequestThatSucceedsIsNotReported();
    void aCameraIsReportedWhenItComesAndGoes();
    void aFailureIsReportedWhenItChanges();
    void aDeniedCameraComesWithAHint();
    void aCameraWithoutNodeCountsAsUnplugged();
    void aFailureIsReportedAgainAfterAReplug();
    void everyCameraFailsForItself();
    void aCameraWithNothingToClaimIsNotCalledBusy();

private:
    /// Starts the search, and forgets what that says.
    [[nodiscard]] int start(const ManagerBench& bench) {
        const int result = bench.start();
        QStringList messages = m_messages->take();
        messages.removeFirst();
        m_messages->putBack(messages);
        return result;
    }
    /// The messages of three search passes.
    QStringList messagesOfPasses(const ManagerBench& bench) {
        for (int pass = 0; pass < 3; ++pass) {
            bench.search();
        }
        return m_messages->take();
    }

    std::unique_ptr<UsbMessages> m_messages;
};

void UsbManagerLogTest::theStartNamesTheIdentity() {
    ManagerBench bench;
    QCOMPARE(bench.manager->initialize({{0x1234, 0x00AB}, {0xFEDC, 0x0001}}), 0);
    const QString text = QStringLiteral("Looking for a camera with the USB identity ");
    QCOMPARE(m_messages->take(),
             (QStringList{text + QStringLiteral("1234:00ab"), text + QStringLiteral("fedc:0001")}));
    // A second start is none.
    QCOMPARE(bench.start(), 0);
    QCOMPARE(messagesOfPasses(bench), QStringList());
}

void UsbManagerLogTest::aFailedRequestIsReportedOnce_data() {
    QTest::addColumn<FaultKind>("kind");
    QTest::addColumn<std::uint32_t>("code");
    QTest::addColumn<QString>("result");
    QTest::newRow("link") << FaultKind::Stall << 0U << QStringLiteral("USB_ERROR_OTHER (0xef05)");
    QTest::newRow("camera") << FaultKind::CameraError << 0xFFF9U
                            << QStringLiteral("NUBO_CMD_ERROR_BUSY (0xfff9)");
    QTest::newRow("unheard of") << FaultKind::CameraError << 0x0001U
                                << QStringLiteral("Unknown:1 (0x0001)");
}

void UsbManagerLogTest::aFailedRequestIsReportedOnce() {
    QFETCH(const FaultKind, kind);
    QFETCH(const std::uint32_t, code);
    QFETCH(const QString, result);
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));
    m_messages->take();
    bench.bus.addFault(camera, {.kind = kind, .argument = code, .nth = 2, .count = 3});
    QVERIFY(!bench.ui.ask(USB_REQ_NUBO_CMD_GET_BATTERY, bench.ui.opened().first()).isEmpty());
    QCOMPARE(m_messages->take(),
             QStringList{QStringLiteral("!USB_REQ_NUBO_CMD_GET_BATTERY failed: ") + result});
}

void UsbManagerLogTest::aRequestThatSucceedsIsNotReported() {
    ManagerBench bench;
    bench.plugCamera();
    QCOMPARE(bench.start(), 0);
    QVERIFY(bench.ui.waitForOpened(1));
    m_messages->take();
    for (const QUuid& request : {USB_REQ_NUBO_CMD_GET_BATTERY, USB_NUBO_CMD_FORMAT_SD}) {
        QVERIFY(!bench.ui.ask(request, bench.ui.opened().first()).isEmpty());
    }
    QCOMPARE(m_messages->take(), QStringList());
}

void UsbManagerLogTest::aCameraIsReportedWhenItComesAndGoes() {
    ManagerBench bench;
    QCOMPARE(start(bench), 0);
    QCOMPARE(messagesOfPasses(bench), QStringList());
    const DeviceId camera = bench.plugCamera();
    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE(messagesOfPasses(bench), (QStringList{opened(2), QStringLiteral("Camera ready")}));
    QVERIFY(bench.bus.unplug(camera));
    QCOMPARE(messagesOfPasses(bench), QStringList{QStringLiteral("Camera gone")});
}

void UsbManagerLogTest::aFailureIsReportedWhenItChanges() {
    const WithoutFileOverride unprivileged;
    ManagerBench bench(ENDLESS_WAIT);
    const DeviceId camera = bench.plugCamera();
    bench.bus.setBusyInterfaces(camera, {0});
    QCOMPARE(start(bench), 0);
    const QStringList busy{failed(2, BUSY)};
    QCOMPARE(messagesOfPasses(bench), busy);
    bench.bus.setNodeAccess(camera, NodeAccess::Denied);
    QCOMPARE(messagesOfPasses(bench).size(), 2);
    bench.bus.setNodeAccess(camera, NodeAccess::Allowed);
    QCOMPARE(messagesOfPasses(bench), busy);
    bench.bus.setBusyInterfaces(camera, {});
    QCOMPARE(messagesOfPasses(bench), QStringList{opened(2)});
}

void UsbManagerLogTest::aDeniedCameraComesWithAHint() {
    const WithoutFileOverride unprivileged;
    ManagerBench bench;
    bench.plugCamera({.access = NodeAccess::Denied});
    QCOMPARE(start(bench), 0);
    const QStringList messages = messagesOfPasses(bench);
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages.first(),
             failed(2, QStringLiteral("Access denied (insufficient permissions)")));
    const QString rule = QStringLiteral(
        "SUBSYSTEM==\"usb\", ATTR{idVendor}==\"%1\", ATTR{idProduct}==\"%2\", TAG+=\"uaccess\"");
    QVERIFY2(messages.last().endsWith(rule.arg(CAMERA.usVendorId, 4, 16, QLatin1Char('0'))
                                          .arg(CAMERA.usProductId, 4, 16, QLatin1Char('0'))),
             qPrintable(messages.last()));
}

void UsbManagerLogTest::aCameraWithoutNodeCountsAsUnplugged() {
    ManagerBench bench(ENDLESS_WAIT);
    const DeviceId camera = bench.plugCamera({.access = NodeAccess::Missing});
    QCOMPARE(start(bench), 0);
    QCOMPARE(
        messagesOfPasses(bench),
        QStringList{failed(2, QStringLiteral("No such device (it may have been disconnected)"))});
    bench.bus.setNodeAccess(camera, NodeAccess::Allowed);
    QVERIFY(bench.bus.unplug(camera));
    QVERIFY(bench.bus.replug(camera));
    QCOMPARE(messagesOfPasses(bench), QStringList{opened(3)});
}

void UsbManagerLogTest::aFailureIsReportedAgainAfterAReplug() {
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    bench.bus.setBusyInterfaces(camera, {0});
    QCOMPARE(start(bench), 0);
    const QStringList failure{failed(2, BUSY)};
    QCOMPARE(messagesOfPasses(bench), failure);
    QVERIFY(bench.bus.unplug(camera));
    QCOMPARE(messagesOfPasses(bench), QStringList());
    // Even at the place on the bus that it had before.
    QVERIFY(bench.bus.replug(camera));
    while (bench.bus.deviceNumber(camera) != 2) {
        QVERIFY(bench.bus.unplug(camera));
        // Reads the events of the bus: the emulation does not survive it when they pile up.
        QCOMPARE(bench.search(), 1);
        QVERIFY(bench.bus.replug(camera));
    }
    QCOMPARE(messagesOfPasses(bench), failure);
}

void UsbManagerLogTest::everyCameraFailsForItself() {
    ManagerBench bench(ENDLESS_WAIT);
    const DeviceId first = bench.plugCamera();
    const DeviceId second = bench.plugCamera();
    bench.bus.setBusyInterfaces(first, {0});
    bench.bus.setBusyInterfaces(second, {0});
    QCOMPARE(start(bench), 0);
    QCOMPARE(messagesOfPasses(bench).size(), 2);
    bench.bus.setBusyInterfaces(second, {});
    QCOMPARE(messagesOfPasses(bench), QStringList{opened(3)});
}

void UsbManagerLogTest::aCameraWithNothingToClaimIsNotCalledBusy() {
    ManagerBench bench;
    DeviceOptions options;
    options.description.interfaces = {};
    bench.plugCamera(options);
    QCOMPARE(start(bench), 0);
    QCOMPARE(messagesOfPasses(bench), QStringList{failed(2, QStringLiteral("Entity not found"))});
}

const TestSubject registered = subjectWithoutScreen<UsbManagerLogTest>();
#include "UsbManagerLogTest.moc"
