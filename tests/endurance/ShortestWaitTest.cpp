// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"
#include "simulator/RootHub.h"
#include "simulator/VirtualCamera.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "usb/ClUsbManager.h"

#include <QSet>
#include <QTest>

#include <memory>

using namespace nubo::simulator;

/// Connect waits that end on the worker thread as soon as the main thread has begun them: what a
/// loaded machine makes of any wait.
class ShortestWaitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachCameraIsAnnouncedOnce();
};

void ShortestWaitTest::eachCameraIsAnnouncedOnce() {
    VirtualUsbBus bus;
    plugRootHub(bus);
    constexpr int CAMERAS = 4;
    for (int i = 0; i < CAMERAS; ++i) {
        bus.plug(std::make_shared<VirtualCamera>());
    }
    registerCommandTypes();
    constexpr int ROUNDS = 50;
    for (int round = 0; round < ROUNDS; ++round) {
        QList<void*> announced;
        ClUsbManager manager(nullptr, {.search = std::chrono::milliseconds(1000),
                                       .connectWait = std::chrono::milliseconds(0)});
        connect(&manager, &ClUsbManager::sigSendCommand, this, [&](const VX_CMD& message) {
            if (getCommand(message) == USB_CMD_DEVICE_OPEN) {
                announced.append(message.value(Key::PARAM1).value<void*>());
            }
        });
        QCOMPARE(manager.initialize({{NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID}}), 0);
        TRY_COMPARE(announced.size(), CAMERAS);
        QCOMPARE(QSet<void*>(announced.begin(), announced.end()).size(), CAMERAS);
    }
    bus.settle();
}

const TestSubject registered = subjectWithoutScreen<ShortestWaitTest>();

#include "ShortestWaitTest.moc"
