// SPDX-License-Identifier: MIT
#include "app/ClMainWidget.h"
#include "pages/ClWidgetNotConnect.h"
#include "pages/state/ClWidgetCameraState.h"
#include "tests/app/BusBench.h"
#include "tests/support/Patience.h"
#include "tests/support/WithoutFileOverride.h"

#include <QRegularExpression>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

template <class Page>
bool shows(const ClMainWidget& window) {
    return window.findChild<Page*>()->isVisible();
}

}  // namespace

/// The program's window, when the camera is there before it.
class CameraAtStartTest : public QObject {
    Q_OBJECT

public:
    explicit CameraAtStartTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void cleanup();

    void isOpenOnceTheWindowIsMade();
    void thatMayNotBeOpenedLeavesTheNotConnectedPage();

private:
    VirtualUsbBus& m_bus;
    DeviceId m_camera{};
};

void CameraAtStartTest::cleanup() {
    m_bus.settle();
    m_bus.unplug(m_camera);
}

void CameraAtStartTest::isOpenOnceTheWindowIsMade() {
    m_camera = m_bus.plug(std::make_shared<VirtualCamera>());
    ClMainWidget window;
    QCOMPARE(m_bus.log(m_camera).openHandles, 1);
    QCOMPARE(m_bus.log(m_camera).claims, std::vector<int>{0});
    window.show();
    QVERIFY(shows<ClWidgetNotConnect>(window));
    TRY_VERIFY(shows<ClWidgetCameraState>(window));
}

void CameraAtStartTest::thatMayNotBeOpenedLeavesTheNotConnectedPage() {
    const WithoutFileOverride unprivileged;
    m_camera = m_bus.plug(std::make_shared<VirtualCamera>(), {.access = NodeAccess::Denied});
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"cannot be opened.*Access denied"_s));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u"TAG\\+=\"uaccess\""_s));
    ClMainWidget window(SHORT_USB_TIMES);
    window.show();
    QVERIFY(shows<ClWidgetNotConnect>(window));

    // A user who comes to be allowed need not start the tool again.
    m_bus.setNodeAccess(m_camera, NodeAccess::Allowed);
    TRY_VERIFY(shows<ClWidgetCameraState>(window));
}

const TestSubject registered = subjectOnBus<CameraAtStartTest>();

#include "CameraAtStartTest.moc"
