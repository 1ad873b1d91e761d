// SPDX-License-Identifier: MIT
#include "tests/app/SettledBench.h"
#include "ui/ClButtonMode.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

constexpr int FORMAT = 0x6803;
constexpr int RESET_SETTINGS = 0x6804;
constexpr int RESTART = 0x6802;

}  // namespace

/// The camera state page in the program's window, with the USB side, libusb and a simulated camera
/// behind it.
class CameraStateOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit CameraStateOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_bench.reset(); }
    void init();

    void theCamerasValuesAreShown();
    void whatChangesInTheCameraIsShownByPolling();
    void aClickOnTheModeRefreshesAtOnce();
    void thePageFollowsTheCamerasComingAndGoing();
    void formattingEmptiesTheCard();
    void initializingResetsTheSettings();
    void restartingMakesTheCameraLeaveAndComeBack();
    void aCameraUnpluggedDuringAQuestionIsLeftAlone();
    void aCameraPluggedInDuringAQuestionIsLeftAlone();

private:
    VirtualUsbBus& m_bus;
    std::optional<SettledBench> m_bench;
};

void CameraStateOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
    QCOMPARE(m_bench->camera->codes(), REFRESH);
}

void CameraStateOnBusTest::init() {
    m_bench->camera->setState(CameraState());
    QVERIFY(m_bench->startRow());
}

void CameraStateOnBusTest::theCamerasValuesAreShown() {
    QCOMPARE(m_bench->shown().battery(), u"85%"_s);
    QCOMPARE(m_bench->shown().link(), u"Link"_s);
    QCOMPARE(m_bench->shown().linkDetails(), (QStringList{u"72dBm"_s, u"6ch"_s}));
    QCOMPARE(m_bench->shown().card(),
             (QStringList{u"7930380288 Byte"_s, u"6344304640 Byte (19% used)"_s, u"FAT32"_s}));
    QVERIFY(m_bench->texts().isEmpty());
}

void CameraStateOnBusTest::whatChangesInTheCameraIsShownByPolling() {
    CameraState state = m_bench->camera->state();
    state.battery.charge = 7;
    state.settings.wifi.rssi = -40;
    state.sdCard = {.total = 1ULL << 40, .used = 1ULL << 39, .fileSystem = 2};
    m_bench->camera->setState(state);

    const QStringList card{u"1125899906842624 Byte"_s, u"562949953421312 Byte (50% used)"_s,
                           u"FAT16"_s};
    TRY_COMPARE(m_bench->shown().card(), card);
    QCOMPARE(m_bench->shown().battery(), u"7%"_s);
    QCOMPARE(m_bench->shown().link(), u"Link"_s);
    QCOMPARE(m_bench->shown().linkDetails(), QStringList());
    QCOMPARE(m_bench->camera->codes(), REFRESH);
}

void CameraStateOnBusTest::aClickOnTheModeRefreshesAtOnce() {
    m_bench->clickMode(1);
    QCOMPARE(m_bench->shown().freeSpace(), u"-- Byte"_s);
    TRY_COMPARE(m_bench->camera->codes(), REFRESH);
    TRY_COMPARE(m_bench->shown().freeSpace(), CARD_AT_START);
}

void CameraStateOnBusTest::thePageFollowsTheCamerasComingAndGoing() {
    m_bus.unplug(m_bench->id);
    QVERIFY(m_bench->waitForMode(0));
    for (const ClButtonMode* const button : m_bench->window.findChildren<ClButtonMode*>()) {
        QVERIFY(!button->isEnabled());
    }

    m_bench->camera->forgetCodes();
    QVERIFY(m_bench->replug());
    QVERIFY(m_bench->waitForMode(1));
    TRY_COMPARE(m_bench->camera->codes(), REFRESH);
    TRY_COMPARE(m_bench->shown().freeSpace(), CARD_AT_START);
    QVERIFY(m_bench->texts().isEmpty());
}

void CameraStateOnBusTest::formattingEmptiesTheCard() {
    QCOMPARE(m_bench->camera->state().sdCard.used, 1548902U);
    m_bench->shown().click(u"SD card format"_s);
    TRY_COMPARE(m_bench->texts(),
                (QStringList{u"All data delete on SD card"_s, u"Completed SD card format"_s}));
    QCOMPARE(m_bench->camera->state().sdCard.used, 0U);
    QCOMPARE(m_bench->camera->codes().count(FORMAT), 1);
    TRY_COMPARE(m_bench->shown().freeSpace(), u"7930380288 Byte (0% used)"_s);
}

void CameraStateOnBusTest::initializingResetsTheSettings() {
    CameraState state = m_bench->camera->state();
    state.settings.wifi.channel = 13;
    m_bench->camera->setState(state);
    m_bench->shown().click(u"Initialize settings"_s);
    TRY_COMPARE(m_bench->camera->codes().count(RESET_SETTINGS), 1);
    TRY_COMPARE(m_bench->camera->state().settings.wifi.channel, 6U);
    QCOMPARE(m_bench->texts(), QStringList{u"Initialize all settings"_s});
}

void CameraStateOnBusTest::restartingMakesTheCameraLeaveAndComeBack() {
    const auto before = m_bus.log(m_bench->id).timesPlugged;
    m_bench->shown().click(u"Reset NuBo"_s);
    QVERIFY(m_bench->waitForMode(0));
    QVERIFY(m_bench->camera->codes().contains(RESTART));
    m_bench->camera->forgetCodes();
    QVERIFY(m_bench->waitForMode(1));
    TRY_COMPARE(m_bench->camera->codes(), REFRESH);
    TRY_COMPARE(m_bench->shown().freeSpace(), CARD_AT_START);
    QCOMPARE(m_bench->texts(), QStringList{u"Reset NuBo and restart"_s});
    QCOMPARE(m_bus.log(m_bench->id).timesPlugged, before + 1);
}

void CameraStateOnBusTest::aCameraUnpluggedDuringAQuestionIsLeftAlone() {
    m_bench->user.setAction([this](QWidget& box) {
        m_bus.unplug(m_bench->id);
        QVERIFY(m_bench->waitForMode(0));
        QVERIFY(!box.isVisible());
    });
    m_bench->shown().click(u"SD card format"_s);
    QCOMPARE(m_bench->texts(), QStringList{u"All data delete on SD card"_s});
    QCOMPARE(m_bench->modeOnShow(), 0);
    QVERIFY(m_bench->replug());
    QVERIFY(m_bench->waitForMode(1));
    TRY_COMPARE(m_bench->shown().freeSpace(), CARD_AT_START);
    QVERIFY(!m_bench->camera->codes().contains(FORMAT));
}

void CameraStateOnBusTest::aCameraPluggedInDuringAQuestionIsLeftAlone() {
    m_bench->user.setAction([this](QWidget& box) {
        m_bus.unplug(m_bench->id);
        QVERIFY(m_bench->waitForMode(0));
        m_bench->camera->forgetCodes();
        QVERIFY(m_bench->replug());
        QVERIFY(m_bench->waitForMode(1));
        QVERIFY(!box.isVisible());
    });
    m_bench->shown().click(u"SD card format"_s);
    TRY_COMPARE(m_bench->shown().freeSpace(), CARD_AT_START);
    QCOMPARE(m_bench->camera->codes(), REFRESH);
    QCOMPARE(m_bench->texts(), QStringList{u"All data delete on SD card"_s});
}

const TestSubject registered = subjectOnBus<CameraStateOnBusTest>();

#include "CameraStateOnBusTest.moc"
