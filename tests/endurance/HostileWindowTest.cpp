// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "simulator/RootHub.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/endurance/Heartbeat.h"
#include "tests/endurance/HostileCamera.h"
#include "tests/endurance/HostileLimits.h"
#include "tests/endurance/WalkingUser.h"
#include "tests/support/Patience.h"
#include "tests/support/ShortUsbTimes.h"
#include "tests/support/TestSubject.h"
#include "ui/ClWidgetApInfo.h"

#include <QElapsedTimer>
#include <QStackedLayout>

#include <memory>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;
using namespace std::chrono_literals;

namespace {

/// Every page, the dialogs behind it, a scan, and back.
const auto EVERYWHERE =
    u"w300 b0 o0 w50 x0 m1 w200 b1 w300 b0 w400 x0 b2 w50 x0 c1 w200 o0 w50 x0 c0 w50 "
    "m2 w200 b0 w200 o0 b1 w200 o0 b2 w200 o0 b3 w100 x0 b4 w100 o0 b5 w100 o0 b6 w100 o0 b7 w100 "
    "o0 "
    "b8 w100 o0 b9 w100 o0 b10 w100 o0 m3 w100 b0 w300 o0 b1 w300 o0 w100 x0 m4 w300 m0 w300"_s;

/// A beat of the main thread is never later. The sanitizers take their share of the time.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr auto LATEST_BEAT = 1000ms;
#elif defined(__has_feature)
constexpr auto LATEST_BEAT =
    __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) ? 1000ms : 250ms;
#else
constexpr auto LATEST_BEAT = 250ms;
#endif
constexpr int MOST_ATTEMPTS = 3;

}  // namespace

/// The program's window with a camera that does what no camera should.
class HostileWindowTest : public QObject {
    Q_OBJECT

public:
    explicit HostileWindowTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void staysResponsiveAndCloses_data();
    void staysResponsiveAndCloses();

private:
    /// Uses a window with such a camera everywhere, and closes it. @p latest is how late the latest
    /// beat was.
    void useWindow(eHostility hostility, bool isBabbling, std::chrono::milliseconds& latest);

    VirtualUsbBus& m_bus;
};

void HostileWindowTest::staysResponsiveAndCloses_data() {
    QTest::addColumn<eHostility>("hostility");
    QTest::addColumn<bool>("isBabbling");
    QTest::newRow("random bytes") << eHostility::RandomBytes << false;
    QTest::newRow("random lengths") << eHostility::RandomLengths << false;
    QTest::newRow("foreign ids") << eHostility::ForeignIds << false;
    QTest::newRow("error packets") << eHostility::ErrorPackets << false;
    QTest::newRow("access points without end") << eHostility::EndlessAccesspoints << false;
    QTest::newRow("long texts") << eHostility::LongTexts << false;
    QTest::newRow("just in time") << eHostility::JustInTime << false;
    QTest::newRow("just too late") << eHostility::JustTooLate << false;
    QTest::newRow("babble") << eHostility::RandomBytes << true;
}

void HostileWindowTest::staysResponsiveAndCloses() {
    QFETCH(const eHostility, hostility);
    QFETCH(const bool, isBabbling);
    // What else the machine does delays a beat at times; what the window does delays one each time.
    std::chrono::milliseconds latest{};
    for (int attempt = 0; attempt < MOST_ATTEMPTS; ++attempt) {
        useWindow(hostility, isBabbling, latest);
        if (QTest::currentTestFailed() || latest <= LATEST_BEAT) {
            return;
        }
    }
    QFAIL(qPrintable(u"%1 ms late"_s.arg(latest.count())));
}

void HostileWindowTest::useWindow(eHostility hostility, bool isBabbling,
                                  std::chrono::milliseconds& latest) {
    const auto camera = std::make_shared<HostileCamera>(hostility);
    const DeviceId id = m_bus.plug(camera);
    if (isBabbling) {
        m_bus.addFault(id, {.kind = FaultKind::Babble, .count = Fault::FOREVER});
    }
    const std::size_t memoryBefore = memoryInUse();

    auto window = std::make_unique<ClMainWidget>(SHORT_USB_TIMES);
    const auto* const pages = window->findChild<QStackedLayout*>();
    window->show();
    {
        WalkingUser user(*window, m_bus, id);
        QVERIFY(user.closeAllUntil([&] { return pages->currentIndex() == 1; }));
        const Heartbeat heartbeat;
        user.take(walkFromText(EVERYWHERE));
        if (hostility == eHostility::EndlessAccesspoints) {
            user.take(walkFromText(u"m1 w300 b1"_s));
            QVERIFY(user.closeAllUntil(
                [&] { return window->findChildren<ClWidgetApInfo*>().size() >= 1000; }));
        }
        latest = heartbeat.latest();
    }
    QVERIFY(pages->currentIndex() != 0);
    const std::size_t memoryAfter = memoryInUse();
    QVERIFY2(memoryAfter < memoryBefore + MOST_MEMORY, qPrintable(QString::number(memoryAfter)));

    QElapsedTimer closing;
    closing.start();
    window.reset();
    QVERIFY2(closing.elapsed() <= LONGEST_TRANSACTION_MS,
             qPrintable(u"closed after %1 ms"_s.arg(closing.elapsed())));
    TRY_COMPARE(m_bus.log(id).openHandles, 0);
    m_bus.unplug(id);
    qInfo() << "latest beat" << latest.count() << "ms, closed in" << closing.elapsed() << "ms,"
            << (memoryAfter - memoryBefore) / 1024 << "KiB," << camera->sentCount() << "packets";
}

namespace {

const TestSubject registered("HostileWindowTest", [](int argc, char** argv) {
    VirtualUsbBus bus;
    plugRootHub(bus);
    const QApplication application(argc, argv);
    installAccessibility();
    QCoreApplication::setApplicationName(QStringLiteral("Test program"));
    QApplication::setQuitOnLastWindowClosed(false);
    HostileWindowTest test(bus);
    return QTest::qExec(&test, argc, argv);
});

}  // namespace

#include "HostileWindowTest.moc"
