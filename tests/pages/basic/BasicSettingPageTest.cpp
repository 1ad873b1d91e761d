// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogCameraName.h"
#include "pages/basic/ClWidgetBasicSetting.h"
#include "tests/pages/PageBench.h"
#include "tests/pages/Refusals.h"
#include "tests/pages/basic/BasicSettingMessages.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"

#include <QPushButton>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The page, counting the starts of its polling.
class PollingNotes : public ClWidgetBasicSetting {
public:
    using ClWidgetBasicSetting::ClWidgetBasicSetting;

    void startPolling() override { ++pollingStarts; }

    int pollingStarts = 0;
};

VX_CMD nameAnswer(const QString& name) {
    return valuesMessage(USB_RES_NUBO_CMD_GET_CAMERANAME, {name});
}

/// Every command of the page: those of its rows, each once.
QList<QUuid> ownCommands() {
    QList<QUuid> commands;
    for (const stBasicSettingCase& row : basicSettingCases()) {
        for (const VX_CMD& message : row.reads + row.writes) {
            const QUuid command = message.value(u"CMD"_s).toUuid();
            if (!commands.contains(command)) {
                commands.append(command);
            }
        }
    }
    return commands;
}

}  // namespace

/// The camera's name on the basic settings page, and what the page makes of results. The page
/// stands alone; the camera's answers are fed in by hand.
class BasicSettingPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init() { m_bench = std::make_unique<PageBench<PollingNotes>>(QSize(600, 505)); }
    void cleanup() { m_bench.reset(); }

    void showingThePageAsksForTheName_data();
    void showingThePageAsksForTheName();
    void theNameIsUnknownUntilTheCameraAnswers();
    void aNameWithoutAClickOpensNoDialog();
    void aClickedNameOpensTheDialogOnce();
    void anAmpersandInTheNameIsShown();
    void theNewNameIsShownWhenTheCameraConfirmsIt();
    void aRefusedNameKeepsTheOldOne();
    void anErrorForgetsTheClickOnTheName_data();
    void anErrorForgetsTheClickOnTheName();
    void leavingThePageForgetsTheClickOnTheName();
    void aFailureIsShownForThePagesOwnCommands_data();
    void aFailureIsShownForThePagesOwnCommands();
    void othersFailuresAreIgnored_data();
    void othersFailuresAreIgnored();
    void aSuccessIsSilent();
    void otherMessagesAreIgnored_data();
    void otherMessagesAreIgnored();
    void thePageNeverPolls();

private:
    [[nodiscard]] QPushButton* nameButton() const {
        return m_bench->page.findChild<QPushButton*>();
    }
    void clickName() const { QTest::mouseClick(nameButton(), Qt::LeftButton); }
    [[nodiscard]] QList<QUuid> sent() const { return m_bench->sentCommands(); }

    std::unique_ptr<PageBench<PollingNotes>> m_bench;
};

void BasicSettingPageTest::showingThePageAsksForTheName_data() {
    QTest::addColumn<bool>("isPolling");
    QTest::newRow("shown") << false;
    QTest::newRow("polled") << true;
}

void BasicSettingPageTest::showingThePageAsksForTheName() {
    QFETCH(bool, isPolling);
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    m_bench->page.showInit(isPolling);
    QCOMPARE(nameButton()->text(), u"--"_s);
    QCOMPARE(m_bench->sent.size(), 1);
    const QVariantMap expected{{u"CMD"_s, USB_REQ_NUBO_CMD_GET_CAMERANAME},
                               {u"Sender"_s, QVariant::fromValue<QObject*>(&m_bench->page)}};
    QCOMPARE(m_bench->sent.first().first().toMap(), expected);
}

void BasicSettingPageTest::theNameIsUnknownUntilTheCameraAnswers() {
    QCOMPARE(nameButton()->text(), u"--"_s);
    m_bench->page.showInit(false);
    QCOMPARE(nameButton()->text(), u"--"_s);
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    QCOMPARE(nameButton()->text(), u"Gull"_s);
}

void BasicSettingPageTest::aNameWithoutAClickOpensNoDialog() {
    m_bench->page.showInit(false);
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    m_bench->page.slotReceiveCommand(nameAnswer(u"Tern"_s));
    QCOMPARE(nameButton()->text(), u"Tern"_s);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void BasicSettingPageTest::aClickedNameOpensTheDialogOnce() {
    m_bench->boxes.setAction(rejectBox);
    clickName();
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
    QCOMPARE(nameButton()->text(), u"Gull"_s);
    m_bench->page.slotReceiveCommand(nameAnswer(u"Tern"_s));
    QCOMPARE(m_bench->boxes.boxes().size(), 1);
}

void BasicSettingPageTest::anAmpersandInTheNameIsShown() {
    m_bench->page.slotReceiveCommand(nameAnswer(u"A&B"_s));
    QCOMPARE(nameButton()->text(), u"A&&B"_s);  // as a button shows one ampersand
    QVERIFY(nameButton()->shortcut().isEmpty());
    QCOMPARE(nameButton()->accessibleDescription(), u"A&B"_s);
}

void BasicSettingPageTest::theNewNameIsShownWhenTheCameraConfirmsIt() {
    m_bench->boxes.setAction([](QWidget& box) {
        DialogControls(box).fill(0, u"Tern42"_s);
        acceptBox(box);
    });
    clickName();
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    QCOMPARE(sent().last(), USB_NUBO_CMD_SET_CAMERANAME);
    QCOMPARE(nameButton()->text(), u"Gull"_s);

    m_bench->page.slotReceiveCommand(
        plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_SET_CAMERANAME, 0));
    QCOMPARE(nameButton()->text(), u"Tern42"_s);
}

void BasicSettingPageTest::aRefusedNameKeepsTheOldOne() {
    m_bench->boxes.setAction([](QWidget& box) {
        if (qobject_cast<ClDialogCameraName*>(&box) != nullptr) {
            DialogControls(box).fill(0, u"Tern42"_s);
        }
        acceptBox(box);
    });
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    clickName();
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    m_bench->page.slotReceiveCommand(
        plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_SET_CAMERANAME, 0xFFFB));
    QCOMPARE(nameButton()->text(), u"Gull"_s);
    QCOMPARE(m_bench->boxes.texts().last(), u"Parameter setting failed"_s);
    QCOMPARE(m_bench->boxes.boxes().size(), 2);
}

void BasicSettingPageTest::anErrorForgetsTheClickOnTheName_data() {
    QTest::addColumn<VX_CMD>("error");
    QTest::newRow("refused") << plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_CAMERANAME,
                                            0xFFFA);
    QTest::newRow("link failed") << plainResult(USB_CMD_ERROR, USB_REQ_NUBO_CMD_GET_CAMERANAME,
                                                0xEF03);
    QTest::newRow("another command refused")
        << plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_POWEROFF, 0xFFFA);
}

void BasicSettingPageTest::anErrorForgetsTheClickOnTheName() {
    QFETCH(VX_CMD, error);
    clickName();
    m_bench->page.slotReceiveCommand(error);
    const qsizetype boxes = m_bench->boxes.boxes().size();
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    QCOMPARE(m_bench->boxes.boxes().size(), boxes);
    QCOMPARE(nameButton()->text(), u"Gull"_s);
}

void BasicSettingPageTest::leavingThePageForgetsTheClickOnTheName() {
    clickName();
    m_bench->page.hide();
    m_bench->page.show();
    m_bench->page.showInit(false);
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    QVERIFY(m_bench->boxes.boxes().isEmpty());
}

void BasicSettingPageTest::aFailureIsShownForThePagesOwnCommands_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QString>("text");
    const auto add = [](const QUuid& kind, unsigned short code, const QString& text) {
        QTest::addRow("0x%04X", code) << kind << code << text;
    };
    for (const auto& [code, text] : REFUSALS) {
        add(USB_NUBO_CMD_RESPONSE, code, text);
    }
    add(USB_CMD_ERROR, 0xEF00, UNKNOWN_ERROR);
    add(USB_CMD_ERROR, 0xEF03, UNKNOWN_ERROR);
    add(USB_CMD_ERROR, 0xEF05, UNKNOWN_ERROR);
}

void BasicSettingPageTest::aFailureIsShownForThePagesOwnCommands() {
    QFETCH(QUuid, kind);
    QFETCH(unsigned short, code);
    QFETCH(QString, text);
    const QList<QUuid> commands = ownCommands();
    QCOMPARE(commands.size(), 25);  // 13 requests; 12 of them have a command that sets
    for (const QUuid& command : commands) {
        m_bench->page.slotReceiveCommand(plainResult(kind, command, code));
    }
    QCOMPARE(m_bench->boxes.texts(), QStringList(commands.size(), text));
    const stModalBox& box = m_bench->boxes.boxes().first();
    QCOMPARE(box.title, u"Test program"_s);
    QCOMPARE(box.buttons, QStringList{u"OK"_s});
    QCOMPARE(box.parent, &m_bench->page);
    QVERIFY(m_bench->sent.isEmpty());
}

void BasicSettingPageTest::othersFailuresAreIgnored_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<QUuid>("command");
    for (const QUuid& kind : {USB_NUBO_CMD_RESPONSE, USB_CMD_ERROR}) {
        const char* name = kind == USB_CMD_ERROR ? "link" : "camera";
        QTest::addRow("%s, Wi-Fi mode set", name) << kind << USB_NUBO_CMD_SET_WIFI_MODE;
        QTest::addRow("%s, battery", name) << kind << USB_REQ_NUBO_CMD_GET_BATTERY;
        QTest::addRow("%s, an answer", name) << kind << USB_RES_NUBO_CMD_GET_TIME;
        QTest::addRow("%s, nothing", name) << kind << QUuid();
    }
}

void BasicSettingPageTest::othersFailuresAreIgnored() {
    QFETCH(QUuid, kind);
    QFETCH(QUuid, command);
    m_bench->page.slotReceiveCommand(plainResult(kind, command, 0xEF03));
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_bench->sent.isEmpty());
}

void BasicSettingPageTest::aSuccessIsSilent() {
    for (const QUuid& command : ownCommands()) {
        m_bench->page.slotReceiveCommand(plainResult(USB_NUBO_CMD_RESPONSE, command, 0));
    }
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_bench->sent.isEmpty());
}

void BasicSettingPageTest::otherMessagesAreIgnored_data() {
    QTest::addColumn<VX_CMD>("message");
    QTest::newRow("none") << VX_CMD();
    QTest::newRow("no identifier") << valuesMessage(QUuid(), {1U});
    QTest::newRow("unknown") << valuesMessage(QUuid::createUuid(), {1U});
    QTest::newRow("another page's answer") << valuesMessage(USB_RES_NUBO_CMD_GET_BATTERY, {1U, 2U});
    QTest::newRow("a request") << valuesMessage(USB_REQ_NUBO_CMD_GET_TIME, {});
    QTest::newRow("a command") << valuesMessage(USB_NUBO_CMD_SET_LED_START, {true});
}

void BasicSettingPageTest::otherMessagesAreIgnored() {
    QFETCH(VX_CMD, message);
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    m_bench->page.slotReceiveCommand(message);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_bench->sent.isEmpty());
    QCOMPARE(nameButton()->text(), u"Gull"_s);
}

void BasicSettingPageTest::thePageNeverPolls() {
    m_bench->page.showInit(false);
    clickName();
    m_bench->page.slotReceiveCommand(nameAnswer(u"Gull"_s));
    QCOMPARE(m_bench->page.pollingStarts, 0);
}

const TestSubject registered = subjectWithWidgets<BasicSettingPageTest>();
#include "BasicSettingPageTest.moc"
