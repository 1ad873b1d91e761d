// SPDX-License-Identifier: MIT
#include "pages/basic/ClWidgetBasicSetting.h"
#include "tests/app/BasicSettingCases.h"
#include "tests/app/BusBench.h"
#include "ui/ClDialogBase.h"

#include <QComboBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

constexpr int MODE = 3;
constexpr int GET_NAME = 0x5030;
const QString UNKNOWN_COMMAND = u"Command error, version up"_s;
const QString UNKNOWN_ERROR = u"Exec failed, unknown error"_s;

stBasicSettingUse useNamed(const char* name) {
    const QList<stBasicSettingUse> uses = basicSettingUses();
    const auto found = std::ranges::find_if(
        uses, [name](const stBasicSettingUse& use) { return qstrcmp(use.name, name) == 0; });
    return found == uses.end() ? stBasicSettingUse() : *found;
}

void addUses() {
    QTest::addColumn<int>("index");
    const QList<stBasicSettingUse> uses = basicSettingUses();
    for (int i = 0; i < uses.size(); ++i) {
        QTest::newRow(uses[i].name) << i;
    }
}

/// A row for each command of that kind: this one fails.
void addFailures(const QList<stReceivedCommand> stBasicSettingUse::*kind) {
    QTest::addColumn<int>("index");
    QTest::addColumn<int>("failing");
    const QList<stBasicSettingUse> uses = basicSettingUses();
    for (int i = 0; i < uses.size(); ++i) {
        for (const stReceivedCommand& command : uses[i].*kind) {
            QTest::addRow("%s, 0x%04X", uses[i].name, command.code) << i << command.code;
        }
    }
}

}  // namespace

/// The basic settings page in the program's window, with the USB side, libusb and a simulated
/// camera behind it. One camera and one window serve all tests.
class BasicSettingOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit BasicSettingOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_bench.reset(); }
    void init();

    void everyRowHasItsUse();
    void aChangeIsWrittenAndReadBack_data() { addUses(); }
    void aChangeIsWrittenAndReadBack();
    void aDeclinedChangeIsNotWritten_data() { addUses(); }
    void aDeclinedChangeIsNotWritten();
    void aFailedReadOpensNoDialog_data() { addFailures(&stBasicSettingUse::reads); }
    void aFailedReadOpensNoDialog();
    void aRefusedWriteKeepsTheValue_data() { addFailures(&stBasicSettingUse::writes); }
    void aRefusedWriteKeepsTheValue();
    void aRefusedAuthorizationKeepsItsOtherHalf_data();
    void aRefusedAuthorizationKeepsItsOtherHalf();
    void anAdhocCameraIsOfferedNoAutomaticCountry();
    void aFailedLinkIsReported();
    void theButtonShowsTheNameThatTheCameraHas();
    void aDoubleClickOpensOneDialog();
    void aCameraThatLeavesBehindADialogIsNotWritten_data();
    void aCameraThatLeavesBehindADialogIsNotWritten();

private:
    [[nodiscard]] QList<QPushButton*> buttons() const {
        return m_bench->window.findChild<ClWidgetBasicSetting*>()->findChildren<QPushButton*>();
    }
    void click(const stBasicSettingUse& use) const {
        QTest::mouseClick(buttons().at(use.row), Qt::LeftButton);
    }
    /// Answers the dialogs by @p action, and accepts boxes.
    void useDialogs(const BoxUser::Action& action);
    /// Makes the change of @p use in the dialogs and accepts them.
    void changeInDialogs(const stBasicSettingUse& use);
    /// Notes what the dialogs show and closes them.
    void readDialogs();
    [[nodiscard]] bool waitForBoxes(qsizetype count) const {
        return QTest::qWaitFor([this, count] { return m_bench->user.boxes().size() >= count; },
                               PATIENCE_MS) &&
               QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; },
                               PATIENCE_MS);
    }

    VirtualUsbBus& m_bus;
    std::optional<BusBench> m_bench;
    CameraState m_atStart;
    QList<QStringList> m_shown;  ///< by the dialogs of this test
    QStringList m_messages;      ///< of the boxes of this test
};

void BasicSettingOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
    m_atStart = m_bench->camera->state();
}

void BasicSettingOnBusTest::init() {
    m_bench->camera->setState(m_atStart);
    m_bench->camera->setUnknownCodes({});
    m_bench->clickMode(MODE);
    TRY_COMPARE(buttons().first()->text(), u"Gull"_s);
    m_bench->camera->forgetCodes();
    m_bench->user.forgetBoxes();
    m_shown.clear();
    m_messages.clear();
}

void BasicSettingOnBusTest::useDialogs(const BoxUser::Action& action) {
    m_bench->user.setAction([this, action](QWidget& box) {
        if (qobject_cast<ClDialogBase*>(&box) == nullptr) {
            m_messages.append(m_bench->user.texts().last());
            acceptBox(box);
            return;
        }
        m_shown.append(DialogControls(box).values());
        action(box);
    });
}

void BasicSettingOnBusTest::changeInDialogs(const stBasicSettingUse& use) {
    useDialogs([use](QWidget& dialog) {
        use.change(DialogControls(dialog));
        acceptBox(dialog);
    });
}

void BasicSettingOnBusTest::readDialogs() {
    useDialogs(rejectBox);
}

void BasicSettingOnBusTest::everyRowHasItsUse() {
    const QList<stBasicSettingUse> uses = basicSettingUses();
    for (qsizetype row = 0; row < buttons().size(); ++row) {
        QVERIFY2(std::ranges::find(uses, row, &stBasicSettingUse::row) != uses.end(),
                 qPrintable(buttons().at(row)->text()));
    }
}

void BasicSettingOnBusTest::aChangeIsWrittenAndReadBack() {
    QFETCH(int, index);
    const stBasicSettingUse use = basicSettingUses().at(index);
    changeInDialogs(use);
    click(use);
    QVERIFY(waitForBoxes(1));
    QCOMPARE(m_shown.last().first(use.shown.size()), use.shown);
    TRY_COMPARE(m_bench->camera->commands(), use.reads + use.writes);

    readDialogs();
    click(use);
    QVERIFY(waitForBoxes(2));
    QCOMPARE(m_shown.last().first(use.shownAgain.size()), use.shownAgain);
    QCOMPARE(m_bench->camera->commands(), use.reads + use.writes + use.reads);
    QCOMPARE(m_messages, QStringList());
}

void BasicSettingOnBusTest::aDeclinedChangeIsNotWritten() {
    QFETCH(int, index);
    const stBasicSettingUse use = basicSettingUses().at(index);
    const auto close = [](QWidget& box) { box.close(); };
    QList<stReceivedCommand> expected;
    for (const BoxUser::Action& decline :
         {BoxUser::Action(rejectBox), BoxUser::Action(escapeBox), BoxUser::Action(close)}) {
        useDialogs([&](QWidget& dialog) {
            use.change(DialogControls(dialog));
            decline(dialog);
        });
        click(use);
        expected += use.reads;
        QVERIFY(waitForBoxes(m_shown.size() + 1));
        QCOMPARE(m_shown.last().first(use.shown.size()), use.shown);
    }
    // Whatever the last one had sent would come before this.
    m_bench->clickMode(MODE);
    expected += wireCommand(GET_NAME);
    TRY_COMPARE(m_bench->camera->commands(), expected);
    TRY_COMPARE(buttons().first()->text(), u"Gull"_s);
    QCOMPARE(m_shown.size(), 3);
}

void BasicSettingOnBusTest::aFailedReadOpensNoDialog() {
    QFETCH(int, index);
    QFETCH(int, failing);
    const stBasicSettingUse use = basicSettingUses().at(index);
    readDialogs();
    m_bench->camera->setUnknownCodes({failing});
    click(use);
    QVERIFY(waitForBoxes(1));
    QCOMPARE(m_messages, QStringList{UNKNOWN_COMMAND});
    QCOMPARE(m_shown.size(), 0);
    QCOMPARE(m_bench->camera->codes().last(), failing);

    m_bench->camera->setUnknownCodes({});
    m_bench->camera->forgetCodes();
    click(use);
    QVERIFY(waitForBoxes(2));
    QCOMPARE(m_shown.last().first(use.shown.size()), use.shown);
    QCOMPARE(m_bench->camera->commands(), use.reads);
}

void BasicSettingOnBusTest::aRefusedWriteKeepsTheValue() {
    QFETCH(int, index);
    QFETCH(int, failing);
    const stBasicSettingUse use = basicSettingUses().at(index);
    changeInDialogs(use);
    m_bench->camera->setUnknownCodes({failing});
    click(use);
    QVERIFY(waitForBoxes(2));
    QCOMPARE(m_messages, QStringList{UNKNOWN_COMMAND});
    TRY_COMPARE(m_bench->camera->commands(), use.reads + use.writes);
    QCOMPARE(buttons().first()->text(), u"Gull"_s);

    readDialogs();
    click(use);
    QVERIFY(waitForBoxes(3));
    // Of two writes the dialog shows what the first one sets.
    const QStringList& kept = failing == use.writes.first().code ? use.shown : use.shownAgain;
    QCOMPARE(m_shown.last().first(kept.size()), kept);
}

void BasicSettingOnBusTest::aRefusedAuthorizationKeepsItsOtherHalf_data() {
    QTest::addColumn<int>("failing");
    QTest::addColumn<unsigned int>("authorization");
    QTest::addColumn<QString>("password");
    QTest::newRow("use refused") << 0x5804 << unsigned{OFF} << u"beacon!"_s;
    QTest::newRow("password refused") << 0x5805 << unsigned{ON} << u"lantern"_s;
}

void BasicSettingOnBusTest::aRefusedAuthorizationKeepsItsOtherHalf() {
    QFETCH(int, failing);
    const stBasicSettingUse use = useNamed("authorization");
    changeInDialogs(use);
    m_bench->camera->setUnknownCodes({failing});
    click(use);
    QVERIFY(waitForBoxes(2));
    TRY_COMPARE(m_bench->camera->commands(), use.reads + use.writes);
    // Once the name has been read, both writes are through.
    m_bench->clickMode(MODE);
    TRY_COMPARE(buttons().first()->text(), u"Gull"_s);
    const CameraSettings settings = m_bench->camera->state().settings;
    QTEST(settings.streamAuthorization, "authorization");
    QTEST(QString::fromStdString(settings.streamPassword), "password");
    QCOMPARE(m_messages, QStringList{UNKNOWN_COMMAND});
}

void BasicSettingOnBusTest::anAdhocCameraIsOfferedNoAutomaticCountry() {
    CameraState state = m_bench->camera->state();
    state.settings.wifiMode = 2;
    m_bench->camera->setState(state);
    const stBasicSettingUse use = useNamed("Wi-Fi country");
    QStringList offered;
    useDialogs([&offered](QWidget& dialog) {
        const auto* countries = dialog.findChild<QComboBox*>();
        for (int i = 0; i < countries->count(); ++i) {
            offered.append(countries->itemText(i));
        }
        DialogControls(dialog).choose(Qt::Key_End);
        acceptBox(dialog);
    });
    click(use);
    QVERIFY(waitForBoxes(1));
    QCOMPARE(m_shown.last(), use.shown);
    QCOMPARE(offered, (QStringList{u"Japan"_s, u"United States,Canada,Taiwan"_s, u"EU"_s}));
    TRY_COMPARE(m_bench->camera->commands(), use.reads + QList{wireCommand(0x5841, "03000000")});
    TRY_COMPARE(m_bench->camera->state().settings.wifiCountry, 3U);
}

void BasicSettingOnBusTest::aFailedLinkIsReported() {
    const stBasicSettingUse use = basicSettingUses().first();
    useDialogs([&](QWidget& dialog) {
        use.change(DialogControls(dialog));
        // The command goes out; its answer does not come in.
        m_bus.addFault(m_bench->id, {.kind = FaultKind::Stall, .nth = 2, .count = Fault::FOREVER});
        acceptBox(dialog);
    });
    click(use);
    QVERIFY(waitForBoxes(2));
    m_bus.clearFaults(m_bench->id);
    QCOMPARE(m_messages, QStringList{UNKNOWN_ERROR});
    QCOMPARE(buttons().first()->text(), u"Gull"_s);
    QCOMPARE(m_bench->modeOnShow(), MODE);
}

void BasicSettingOnBusTest::theButtonShowsTheNameThatTheCameraHas() {
    const stBasicSettingUse use = basicSettingUses().first();
    changeInDialogs(use);
    click(use);
    TRY_COMPARE(buttons().first()->text(), u"Tern42"_s);
    QVERIFY(m_bench->camera->set("camera-name", "Skua"));
    m_bench->clickMode(MODE);
    QCOMPARE(buttons().first()->text(), u"--"_s);
    TRY_COMPARE(buttons().first()->text(), u"Skua"_s);
}

void BasicSettingOnBusTest::aDoubleClickOpensOneDialog() {
    const stBasicSettingUse use = basicSettingUses().at(1);
    const QSignalSpy answers(&m_bench->window, &ClMainWidget::sigReceiveCommand);
    useDialogs([&](QWidget& dialog) {
        // The first answer counts once the dialog that it has opened is closed.
        TRY_COMPARE(answers.size(), 1);
        rejectBox(dialog);
    });
    click(use);
    click(use);
    QVERIFY(waitForBoxes(1));
    m_bench->clickMode(MODE);
    TRY_COMPARE(buttons().first()->text(), u"Gull"_s);
    QCOMPARE(m_shown.size(), 1);
    QCOMPARE(m_bench->camera->commands(), use.reads + use.reads + QList{wireCommand(GET_NAME)});
}

void BasicSettingOnBusTest::aCameraThatLeavesBehindADialogIsNotWritten_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("comesBack");
    QTest::newRow("it stays away") << 0 << false;
    QTest::newRow("it comes back") << 9 << true;
}

void BasicSettingOnBusTest::aCameraThatLeavesBehindADialogIsNotWritten() {
    QFETCH(int, index);
    QFETCH(bool, comesBack);
    const stBasicSettingUse use = basicSettingUses().at(index);
    useDialogs([&](QWidget& dialog) {
        use.change(DialogControls(dialog));
        m_bus.unplug(m_bench->id);
        QVERIFY(m_bench->waitForMode(0));
        QVERIFY(!dialog.isVisible());
        if (comesBack) {
            QVERIFY(m_bench->replug());
            QVERIFY(m_bench->waitForMode(MODE));
        }
    });
    click(use);
    QVERIFY(waitForBoxes(1));
    QCOMPARE(m_bench->modeOnShow(), comesBack ? MODE : 0);
    if (!comesBack) {
        QVERIFY(m_bench->replug());
        QVERIFY(m_bench->waitForMode(MODE));
    }
    TRY_COMPARE(buttons().first()->text(), u"Gull"_s);
    QCOMPARE(m_bench->camera->commands(), use.reads + QList{wireCommand(GET_NAME)});
    QCOMPARE(m_messages, QStringList());
}

const TestSubject registered = subjectOnBus<BasicSettingOnBusTest>();

#include "BasicSettingOnBusTest.moc"
