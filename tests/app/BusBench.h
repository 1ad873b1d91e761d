// SPDX-License-Identifier: MIT
#pragma once

#include "app/ClMainWidget.h"
#include "pages/state/ClWidgetCameraState.h"
#include "simulator/RootHub.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/app/RecordingCamera.h"
#include "tests/support/BoxUser.h"
#include "tests/support/CameraStateReader.h"
#include "tests/support/Patience.h"
#include "tests/support/ShortUsbTimes.h"
#include "tests/support/TestSubject.h"

#include <QList>
#include <QTest>

#include <memory>

/// The commands of one refresh of the camera state page: battery, Wi-Fi, SD card.
inline const QList<int> REFRESH{0x5037, 0x5001, 0x5039};
inline constexpr auto CARD_AT_START = u"6344304640 Byte (19% used)";

/// The program's window with a simulated camera behind the real libusb, and a user before it.
class BusBench {
public:
    explicit BusBench(nubo::simulator::VirtualUsbBus& bus);
    ~BusBench();
    BusBench(const BusBench&) = delete;
    BusBench& operator=(const BusBench&) = delete;

    /// Shows the window and waits until the camera's values are in it.
    [[nodiscard]] bool start();

    /// Plugs the camera in again, once it has left the bus for good: what it asked for itself takes
    /// a while.
    [[nodiscard]] bool replug() const;

    [[nodiscard]] int modeOnShow() const;
    [[nodiscard]] bool waitForMode(int mode) const;
    /// Goes to the camera state page, and waits until nothing that was asked for before is still
    /// under way: the camera serves one command after another, and to a page that has been left no
    /// answer comes that would have it ask for more.
    [[nodiscard]] bool settle() const;
    void clickMode(int mode) const;
    [[nodiscard]] CameraStateReader shown() const {
        return CameraStateReader(*window.findChild<ClWidgetCameraState*>());
    }

    nubo::simulator::VirtualUsbBus& bus;
    std::shared_ptr<RecordingCamera> camera = std::make_shared<RecordingCamera>();
    nubo::simulator::DeviceId id;
    BoxUser user;
    ClMainWidget window;
};

/// Runs a test on the bus: @p Test is made with the bus.
template <class Test>
[[nodiscard]] TestSubject subjectOnBus() {
    return {Test::staticMetaObject.className(), [](int argc, char** argv) {
                using namespace nubo::simulator;
                if (!VirtualUsbBus::isAvailable()) {
                    qFatal("The library that emulates the bus is not preloaded.");
                }
                // Before any thread, and gone after the last handle.
                VirtualUsbBus bus;
                plugRootHub(bus);
                const QApplication application(argc, argv);
                installAccessibility();
                QCoreApplication::setApplicationName(QStringLiteral("Test program"));
                Test test(bus);
                return QTest::qExec(&test, argc, argv);
            }};
}
