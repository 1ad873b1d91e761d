// SPDX-License-Identifier: MIT
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

/// What a user who starts the tool in a terminal learns about the camera's link: every change once,
/// however often the search meets it.
class UsbManagerLogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_messages = std::make_unique<UsbMessages>(); }
    void cleanup() { m_messages.reset(); }

    void aCameraIsReportedWhenItComesAndGoes();
    void aFailureIsReportedWhenItChanges();
    void aDeniedCameraComesWithAHint();
    void aCameraWithoutNodeCountsAsUnplugged();
    void aFailureIsReportedAgainAfterAReplug();
    void everyCameraFailsForItself();
    void aCameraWithNothingToClaimIsNotCalledBusy();

private:
    /// The messages of three search passes.
    QStringList messagesOfPasses(const ManagerBench& bench) {
        for (int pass = 0; pass < 3; ++pass) {
            bench.search();
        }
        return m_messages->take();
    }

    std::unique_ptr<UsbMessages> m_messages;
};

void UsbManagerLogTest::aCameraIsReportedWhenItComesAndGoes() {
    ManagerBench bench;
    QCOMPARE(bench.start(), 0);
    QCOMPARE(messagesOfPasses(bench), QStringList());
    const DeviceId camera = bench.plugCamera();
    QCOMPARE(messagesOfPasses(bench), QStringList{opened(2)});
    QVERIFY(bench.ui.waitForOpened(1));
    QCOMPARE(messagesOfPasses(bench), QStringList{QStringLiteral("Camera ready")});
    QVERIFY(bench.bus.unplug(camera));
    QCOMPARE(messagesOfPasses(bench), QStringList{QStringLiteral("Camera gone")});
}

void UsbManagerLogTest::aFailureIsReportedWhenItChanges() {
    const WithoutFileOverride unprivileged;
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera();
    bench.bus.setBusyInterfaces(camera, {0});
    QCOMPARE(bench.start(), 0);
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
    QCOMPARE(bench.start(), 0);
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
    ManagerBench bench;
    const DeviceId camera = bench.plugCamera({.access = NodeAccess::Missing});
    QCOMPARE(bench.start(), 0);
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
    QCOMPARE(bench.start(), 0);
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
    ManagerBench bench;
    const DeviceId first = bench.plugCamera();
    const DeviceId second = bench.plugCamera();
    bench.bus.setBusyInterfaces(first, {0});
    bench.bus.setBusyInterfaces(second, {0});
    QCOMPARE(bench.start(), 0);
    QCOMPARE(messagesOfPasses(bench).size(), 2);
    bench.bus.setBusyInterfaces(second, {});
    QCOMPARE(messagesOfPasses(bench), QStringList{opened(3)});
}

void UsbManagerLogTest::aCameraWithNothingToClaimIsNotCalledBusy() {
    ManagerBench bench;
    DeviceOptions options;
    options.description.interfaces = {};
    bench.plugCamera(options);
    QCOMPARE(bench.start(), 0);
    QCOMPARE(messagesOfPasses(bench), QStringList{failed(2, QStringLiteral("Entity not found"))});
}

const TestSubject registered = subjectWithoutScreen<UsbManagerLogTest>();
#include "UsbManagerLogTest.moc"
