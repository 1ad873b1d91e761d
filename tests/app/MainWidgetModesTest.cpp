// SPDX-License-Identifier: MIT
#include "pages/ClWidgetSelectMode.h"
#include "tests/app/CameraNotices.h"
#include "tests/app/WindowBench.h"
#include "tests/support/TestSubject.h"

#include <optional>

using namespace Qt::StringLiterals;

/// Which page the main window shows, as the user chooses modes and the camera comes and goes.
class MainWidgetModesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void withoutACameraModesCannotBeClicked();
    void anAnnouncedCameraBringsUpTheFirstPage();
    void aModeShowsAndRefreshesItsPage_data();
    void aModeShowsAndRefreshesItsPage();
    void leavingAPageStopsItsPolling();
    void theModeOnShowIsRefreshedByAnotherClick();
    void anUnknownModeChangesNothing_data();
    void anUnknownModeChangesNothing();
    void withoutACameraEveryModeIsTheNotConnectedPage_data();
    void withoutACameraEveryModeIsTheNotConnectedPage();
    void thePageComesBackWithTheCamera();
    void anAnnouncementWithoutAPointerOpensNothing();

private:
    std::optional<WindowBench> m_bench;
};

void MainWidgetModesTest::withoutACameraModesCannotBeClicked() {
    QSignalSpy modes(m_bench->window.findChild<ClWidgetSelectMode*>(),
                     &ClWidgetSelectMode::sigChangeMode);
    QCOMPARE(m_bench->buttons().size(), 5);
    for (int mode = 1; mode <= 5; ++mode) {
        QVERIFY(!m_bench->buttons().at(mode - 1)->isEnabled());
        m_bench->click(mode);
        QCOMPARE(m_bench->modeOnShow(), 0);
    }
    QVERIFY(modes.isEmpty());
}

void MainWidgetModesTest::anAnnouncedCameraBringsUpTheFirstPage() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    QCOMPARE(m_bench->modeOnShow(), 1);
    QCOMPARE(m_bench->page(1).inits, QList<bool>{false});
    QVERIFY(m_bench->page(1).isVisible());
    QVERIFY(m_bench->buttons().at(0)->isChecked());
    for (const ClButtonMode* button : m_bench->buttons()) {
        QVERIFY(button->isEnabled());
    }
}

void MainWidgetModesTest::aModeShowsAndRefreshesItsPage_data() {
    QTest::addColumn<int>("mode");
    for (int mode = 1; mode <= 5; ++mode) {
        QTest::addRow("%d", mode) << mode;
    }
}

void MainWidgetModesTest::aModeShowsAndRefreshesItsPage() {
    QFETCH(int, mode);
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->click(mode == 5 ? 4 : 5);
    m_bench->page(mode).inits.clear();
    m_bench->click(mode);
    QCOMPARE(m_bench->modeOnShow(), mode);
    QVERIFY(m_bench->page(mode).isVisible());
    QCOMPARE(m_bench->page(mode).inits, QList<bool>{false});
}

void MainWidgetModesTest::leavingAPageStopsItsPolling() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->click(2);
    QCOMPARE(m_bench->page(1).stops, 1);
    QCOMPARE(m_bench->page(2).stops, 0);
    m_bench->window.slotReceiveCommand(closed(FIRST));
    QCOMPARE(m_bench->page(1).stops, 1);
    QCOMPARE(m_bench->page(2).stops, 1);
}

void MainWidgetModesTest::theModeOnShowIsRefreshedByAnotherClick() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->click(3);
    m_bench->click(3);
    QCOMPARE(m_bench->modeOnShow(), 3);
    QCOMPARE(m_bench->page(3).inits, (QList<bool>{false, false}));
    // The polling is stopped first, so that the refresh starts it with a whole interval.
    QCOMPARE(m_bench->page(3).stopsBeforeInit, 1);

    m_bench->page(3).sendUsbCommand(USB_NUBO_CMD_RESTART);
    QCOMPARE(m_bench->sent.size(), 1);
    m_bench->window.slotReceiveCommand(answer(FIRST, 1));
    QCOMPARE(m_bench->page(3).received.size(), 1);
}

void MainWidgetModesTest::anUnknownModeChangesNothing_data() {
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 6, -1, 0x7FFFFFFF, -0x7FFFFFFF - 1}) {
        QTest::addRow("%d", mode) << mode;
    }
}

void MainWidgetModesTest::anUnknownModeChangesNothing() {
    QFETCH(int, mode);
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->click(4);
    m_bench->window.slotChangeMode(mode);
    QCOMPARE(m_bench->modeOnShow(), 4);
    QCOMPARE(m_bench->page(4).stops, 0);
    QCOMPARE(m_bench->page(4).inits, QList<bool>{false});
    m_bench->window.slotReceiveCommand(answer(FIRST, 1));
    QCOMPARE(m_bench->page(4).received.size(), 1);

    m_bench->window.slotReceiveCommand(closed(FIRST));
    m_bench->window.slotReceiveCommand(opened(FIRST));
    QCOMPARE(m_bench->modeOnShow(), 4);
}

void MainWidgetModesTest::withoutACameraEveryModeIsTheNotConnectedPage_data() {
    QTest::addColumn<int>("mode");
    for (const int mode : {0, 1, 5, 6, -1}) {
        QTest::addRow("%d", mode) << mode;
    }
}

void MainWidgetModesTest::withoutACameraEveryModeIsTheNotConnectedPage() {
    QFETCH(int, mode);
    m_bench->window.slotChangeMode(mode);
    QCOMPARE(m_bench->modeOnShow(), 0);
    m_bench->window.slotReceiveCommand(opened(FIRST));
    QCOMPARE(m_bench->modeOnShow(), 1);
}

void MainWidgetModesTest::thePageComesBackWithTheCamera() {
    m_bench->window.slotReceiveCommand(opened(FIRST));
    m_bench->click(4);
    m_bench->window.slotReceiveCommand(closed(FIRST));
    QCOMPARE(m_bench->modeOnShow(), 0);
    for (const ClButtonMode* button : m_bench->buttons()) {
        QVERIFY(!button->isEnabled());
    }
    m_bench->window.slotReceiveCommand(opened(FIRST));
    QCOMPARE(m_bench->modeOnShow(), 4);
    QVERIFY(m_bench->buttons().at(3)->isChecked());
    QCOMPARE(m_bench->page(4).inits, (QList<bool>{false, false}));
    QCOMPARE(m_bench->page(1).inits, QList<bool>{false});
}

void MainWidgetModesTest::anAnnouncementWithoutAPointerOpensNothing() {
    for (const VX_CMD& notice : {VX_CMD{{u"CMD"_s, USB_CMD_DEVICE_OPEN}}, opened(nullptr)}) {
        m_bench->window.slotReceiveCommand(notice);
        QCOMPARE(m_bench->modeOnShow(), 0);
        for (const ClButtonMode* button : m_bench->buttons()) {
            QVERIFY(!button->isEnabled());
        }
    }
    m_bench->window.slotSendCommand(message(USB_NUBO_CMD_RESTART, FIRST));
    QVERIFY(m_bench->sent.isEmpty());

    m_bench->window.slotReceiveCommand(opened(FIRST));
    QCOMPARE(m_bench->modeOnShow(), 1);
    m_bench->page(1).sendUsbCommand(USB_NUBO_CMD_RESTART);
    QCOMPARE(m_bench->sent.size(), 1);
}

const TestSubject registered = subjectWithWidgets<MainWidgetModesTest>();
#include "MainWidgetModesTest.moc"
