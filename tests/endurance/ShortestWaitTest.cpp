// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"
#include "simulator/RootHub.h"
#include "simulator/VirtualCamera.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "usb/ClUsbManager.h"

#include <QTest>

#include <memory>

using namespace nubo::simulator;

/// A connect wait that is over on the worker thread while the main thread has just begun it: what a
/// loaded machine makes of any wait.
class ShortestWaitTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aCameraIsAnnouncedAllTheSame();
};

void ShortestWaitTest::aCameraIsAnnouncedAllTheSame() {
    VirtualUsbBus bus;
    plugRootHub(bus);
    bus.plug(std::make_shared<VirtualCamera>());
    registerCommandTypes();
    constexpr int ROUNDS = 50;
    for (int round = 0; round < ROUNDS; ++round) {
        bool isAnnounced = false;
        ClUsbManager manager(nullptr, {.search = std::chrono::milliseconds(1000),
                                       .connectWait = std::chrono::milliseconds(0)});
        connect(&manager, &ClUsbManager::sigSendCommand, this, [&](const VX_CMD& message) {
            isAnnounced = isAnnounced || getCommand(message) == USB_CMD_DEVICE_OPEN;
        });
        QCOMPARE(manager.initialize({{NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID}}), 0);
        TRY_VERIFY(isAnnounced);
    }
    bus.settle();
}

const TestSubject registered = subjectWithoutScreen<ShortestWaitTest>();

#include "ShortestWaitTest.moc"
