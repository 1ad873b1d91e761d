// SPDX-License-Identifier: MIT
#include "pages/stream/ClWidgetStreamSetting.h"
#include "tests/app/SettledBench.h"
#include "tests/support/DialogControls.h"

#include <QPushButton>
#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

using Commands = QList<stReceivedCommand>;

/// Five parameters: the first one and four of 0.
stReceivedCommand command(int code, const QByteArray& parameter = "00000000") {
    return {code, QByteArray::fromHex(parameter + "00000000000000000000000000000000")};
}

const Commands READ_REC{command(0x5012), command(0x5013)};
const Commands READ_LIVE{command(0x5014), command(0x5015)};

const QString REC_DIALOG = u"Set the image quality at the time of Rec"_s;
const QString LIVE_DIALOG = u"Set the image quality at the time of LiveView"_s;

}  // namespace

/// The stream setting page in the program's window, with the USB side, libusb and a simulated
/// camera behind it: what the camera is asked and told, to the byte.
class StreamSettingOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit StreamSettingOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_bench.reset(); }
    void init() { QVERIFY(m_bench->startRow(STREAM_MODE)); }

    void aRecordingSizeIsChosen_data();
    void aRecordingSizeIsChosen();
    void liveViewIsChosen_data();
    void liveViewIsChosen();
    void aCancelledDialogLeavesTheCameraAlone();
    void aSlowCameraIsAskedOnce();
    void leavingThePageForgetsWhatItAsked();
    void aDialogClosesWithItsCamera();
    void aDialogIsNoneOfTheNextCamera();
    void aCameraThatLeavesDuringAReadOpensNothing();

private:
    void click(int index) const {
        const auto* page = m_bench->window.findChild<ClWidgetStreamSetting*>();
        QTest::mouseClick(page->findChildren<QPushButton*>().at(index), Qt::LeftButton);
    }
    void setCamera(const std::function<void(CameraSettings&)>& change) const;
    void chooseAndAccept(const QStringList& choices);
    void comeBack() const;

    VirtualUsbBus& m_bus;
    std::optional<SettledBench> m_bench;
};

void StreamSettingOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void StreamSettingOnBusTest::setCamera(const std::function<void(CameraSettings&)>& change) const {
    CameraState state = m_bench->camera->state();
    change(state.settings);
    m_bench->camera->setState(state);
}

void StreamSettingOnBusTest::chooseAndAccept(const QStringList& choices) {
    m_bench->user.setAction([choices](QWidget& box) {
        for (const QString& text : choices) {
            DialogControls(box).click(text);
        }
        acceptBox(box);
    });
}

void StreamSettingOnBusTest::comeBack() const {
    QVERIFY(m_bench->replug());
    QVERIFY(m_bench->waitForMode(STREAM_MODE));
}

void StreamSettingOnBusTest::aRecordingSizeIsChosen_data() {
    QTest::addColumn<unsigned>("before");
    QTest::addColumn<QStringList>("choices");
    QTest::addColumn<unsigned>("after");
    QTest::addColumn<Commands>("written");
    QTest::newRow("unchanged, full HD") << 1U << QStringList() << 1U << Commands();
    QTest::newRow("unchanged, HD") << 2U << QStringList() << 2U << Commands();
    QTest::newRow("unchanged, economy") << 3U << QStringList() << 3U << Commands();
    QTest::newRow("full HD") << 2U << QStringList{u"Full HD(1920x1080)"_s} << 1U
                             << Commands{command(0x5812, "01000000")};
    QTest::newRow("HD") << 1U << QStringList{u"HD(1280x720)"_s} << 2U
                        << Commands{command(0x5812, "02000000")};
    QTest::newRow("economy") << 1U << QStringList{u"Economy(640x480)"_s} << 3U
                             << Commands{command(0x5812, "03000000")};
    QTest::newRow("unknown, accepted")
        << 4U << QStringList() << 1U << Commands{command(0x5812, "01000000")};
    QTest::newRow("none, accepted")
        << 0U << QStringList() << 1U << Commands{command(0x5812, "01000000")};
}

void StreamSettingOnBusTest::aRecordingSizeIsChosen() {
    QFETCH(const unsigned, before);
    QFETCH(const QStringList, choices);
    QFETCH(const unsigned, after);
    QFETCH(const Commands, written);
    setCamera([before](CameraSettings& settings) {
        settings.recordingSize = before;
        settings.recordingRate = 5;
    });
    chooseAndAccept(choices);
    click(0);
    TRY_COMPARE(m_bench->texts(), QStringList{REC_DIALOG});
    QCOMPARE(m_bench->finishRow(), READ_REC + written);
    QCOMPARE(m_bench->camera->state().settings.recordingSize, after);
    QCOMPARE(m_bench->camera->state().settings.recordingRate, 5U);
    QCOMPARE(m_bench->texts(), QStringList{REC_DIALOG});
}

void StreamSettingOnBusTest::liveViewIsChosen_data() {
    QTest::addColumn<unsigned>("size");
    QTest::addColumn<unsigned>("rate");
    QTest::addColumn<QStringList>("choices");
    QTest::addColumn<Commands>("written");
    const auto row = [](const char* name, unsigned size, unsigned rate, const QStringList& choices,
                        const Commands& written) {
        QTest::newRow(name) << size << rate << choices << written;
    };
    row("unchanged, fine, 30", 1, 30, {}, {});
    row("unchanged, standard, 15", 2, 15, {}, {});
    row("unchanged, fine, 10", 1, 10, {}, {});
    row("unchanged, fine, 6", 1, 6, {}, {});
    row("unchanged, fine, 1", 1, 1, {}, {});
    row("fine", 2, 30, {u"Fine(800x480)"_s}, {command(0x5814, "01000000")});
    row("standard", 1, 30, {u"Standard(320x240)"_s}, {command(0x5814, "02000000")});
    row("30", 1, 1, {u"30 sheets(30fps)"_s}, {command(0x5815, "1e000000")});
    row("15", 1, 1, {u"15 sheets(15fps)"_s}, {command(0x5815, "0f000000")});
    row("10", 1, 1, {u"10 sheets(10fps)"_s}, {command(0x5815, "0a000000")});
    row("6", 1, 1, {u"6 sheets(6fps)"_s}, {command(0x5815, "06000000")});
    row("1", 1, 30, {u"1 sheets(1fps)"_s}, {command(0x5815, "01000000")});
    row("size and rate", 1, 30, {u"6 sheets(6fps)"_s, u"Standard(320x240)"_s},
        {command(0x5814, "02000000"), command(0x5815, "06000000")});
    row("rate not offered, accepted", 1, 5, {}, {command(0x5815, "1e000000")});
    row("highest rate, accepted", 1, 0xFFFFFFFF, {}, {command(0x5815, "1e000000")});
    row("unknown size, accepted", 3, 15, {}, {command(0x5814, "02000000")});
    row("nothing known, accepted", 0, 0, {},
        {command(0x5814, "02000000"), command(0x5815, "1e000000")});
}

void StreamSettingOnBusTest::liveViewIsChosen() {
    QFETCH(const unsigned, size);
    QFETCH(const unsigned, rate);
    QFETCH(const QStringList, choices);
    QFETCH(const Commands, written);
    setCamera([size, rate](CameraSettings& settings) {
        settings.liveSize = size;
        settings.liveRate = rate;
    });
    chooseAndAccept(choices);
    click(1);
    TRY_COMPARE(m_bench->texts(), QStringList{LIVE_DIALOG});
    QCOMPARE(m_bench->finishRow(), READ_LIVE + written);
    QCOMPARE(m_bench->texts(), QStringList{LIVE_DIALOG});
}

void StreamSettingOnBusTest::aCancelledDialogLeavesTheCameraAlone() {
    m_bench->user.setAction([](QWidget& box) {
        DialogControls(box).click(u"Economy(640x480)"_s);
        rejectBox(box);
    });
    click(0);
    TRY_COMPARE(m_bench->texts(), QStringList{REC_DIALOG});
    QCOMPARE(m_bench->finishRow(), READ_REC);
}

void StreamSettingOnBusTest::aSlowCameraIsAskedOnce() {
    m_bus.addFault(m_bench->id,
                   {.kind = FaultKind::Delay, .argument = 300, .unit = FaultUnit::Command});
    m_bench->user.setAction(rejectBox);
    for (int times = 0; times < 5; ++times) {
        click(1);
    }
    TRY_COMPARE(m_bench->texts(), QStringList{LIVE_DIALOG});
    QCOMPARE(m_bench->finishRow(), READ_LIVE);
    QCOMPARE(m_bench->texts(), QStringList{LIVE_DIALOG});
}

void StreamSettingOnBusTest::leavingThePageForgetsWhatItAsked() {
    m_bus.addFault(m_bench->id,
                   {.kind = FaultKind::Delay, .argument = 300, .unit = FaultUnit::Command});
    click(0);
    m_bench->clickMode(HELP_MODE);
    m_bench->clickMode(STREAM_MODE);
    const Commands received = m_bench->finishRow();
    QCOMPARE(received.first(), command(0x5012));
    QVERIFY(!received.contains(command(0x5013)));
    QVERIFY(m_bench->texts().isEmpty());

    QVERIFY(m_bench->startRow(STREAM_MODE));
    m_bench->user.setAction(rejectBox);
    click(0);
    TRY_COMPARE(m_bench->texts(), QStringList{REC_DIALOG});
    QCOMPARE(m_bench->finishRow(), READ_REC);
}

void StreamSettingOnBusTest::aDialogClosesWithItsCamera() {
    bool isStillOpen = true;
    m_bench->user.setAction([&](QWidget& box) {
        DialogControls(box).click(u"1 sheets(1fps)"_s);
        m_bus.unplug(m_bench->id);
        QVERIFY(m_bench->waitForMode(0));
        isStillOpen = box.isVisible();
    });
    click(1);
    TRY_COMPARE(m_bench->texts(), QStringList{LIVE_DIALOG});
    QVERIFY(!isStillOpen);
    TRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(m_bench->modeOnShow(), 0);
    comeBack();
    QCOMPARE(m_bench->finishRow(), READ_LIVE);
    QCOMPARE(m_bench->texts(), QStringList{LIVE_DIALOG});
}

void StreamSettingOnBusTest::aDialogIsNoneOfTheNextCamera() {
    m_bench->user.setAction([&](QWidget& box) {
        DialogControls(box).click(u"Economy(640x480)"_s);
        m_bus.unplug(m_bench->id);
        QVERIFY(m_bench->waitForMode(0));
        comeBack();
    });
    click(0);
    TRY_COMPARE(m_bench->texts(), QStringList{REC_DIALOG});
    TRY_VERIFY(QApplication::activeModalWidget() == nullptr);
    QCOMPARE(m_bench->finishRow(), READ_REC);
    QCOMPARE(m_bench->texts(), QStringList{REC_DIALOG});
}

void StreamSettingOnBusTest::aCameraThatLeavesDuringAReadOpensNothing() {
    m_bus.addFault(m_bench->id,
                   {.kind = FaultKind::UnplugBefore, .unit = FaultUnit::Command, .nth = 2});
    click(0);
    QVERIFY(m_bench->waitForMode(0));
    comeBack();
    QCOMPARE(m_bench->finishRow().first(), command(0x5012));
    QVERIFY(m_bench->texts().isEmpty());
}

const TestSubject registered = subjectOnBus<StreamSettingOnBusTest>();

#include "StreamSettingOnBusTest.moc"
