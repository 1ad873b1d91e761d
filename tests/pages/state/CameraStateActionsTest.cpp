// SPDX-License-Identifier: MIT
#include "pages/state/ClWidgetCameraState.h"
#include "tests/pages/CameraMessages.h"
#include "tests/pages/Refusals.h"
#include "tests/support/BoxUser.h"
#include "tests/support/CameraStateReader.h"
#include "tests/support/TestSubject.h"

#include <QtTest/qtestspontaneevent.h>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The page, noting when its polling is started and stopped.
class PollingNotes : public ClWidgetCameraState {
public:
    using ClWidgetCameraState::ClWidgetCameraState;

    void startPolling() override {
        notes.append(u"start"_s);
        ClWidgetCameraState::startPolling();
    }

    void stopPolling() override {
        notes.append(u"stop"_s);
        ClWidgetCameraState::stopPolling();
    }

    QStringList notes;
};

struct stCommand {
    const char* name;
    QUuid command;
};

/// What the page asks the camera for or orders it to do.
const QList<stCommand> OWN_COMMANDS{
    {"battery", USB_REQ_NUBO_CMD_GET_BATTERY}, {"Wi-Fi", USB_REQ_NUBO_CMD_GET_WIFI_INFO},
    {"SD card", USB_REQ_NUBO_CMD_GET_SDINFO},  {"restart", USB_NUBO_CMD_RESTART},
    {"format", USB_NUBO_CMD_FORMAT_SD},        {"initialize", USB_NUBO_CMD_INIT_SETTING},
};

}  // namespace

/// The three actions of the camera state page behind their boxes, and the results of all its
/// commands.
class CameraStateActionsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup();

    void anActionAsksFirst_data();
    void anActionAsksFirst();
    void aDeclinedActionSendsNothing_data();
    void aDeclinedActionSendsNothing();
    void theReturnKeyDeclinesAnAction_data();
    void theReturnKeyDeclinesAnAction();
    void aConfirmedActionSendsItsCommand_data();
    void aConfirmedActionSendsItsCommand();
    void aQuestionIsClosedUnansweredWhenThePageIsLeft_data();
    void aQuestionIsClosedUnansweredWhenThePageIsLeft();
    void aMinimisedWindowIsNoPageThatWasLeft();
    void onlyTheFormatReportsItsCompletion_data();
    void onlyTheFormatReportsItsCompletion();
    void aCameraErrorIsShownAndPollingGoesOn_data();
    void aCameraErrorIsShownAndPollingGoesOn();
    void aTransportErrorStopsThePollingAndIsShown_data();
    void aTransportErrorStopsThePollingAndIsShown();
    void aCameraThatHasGoneNeedsNoBox_data();
    void aCameraThatHasGoneNeedsNoBox();
    void thePollingStopsBeforeTheBoxOpens();
    void thePollingStartsAgainWhenThePageIsShown();
    void aFailedReadEndsTheChainAndLeavesTheValues();

private:
    void click(const QString& text) const { CameraStateReader(*m_page).click(text); }

    std::unique_ptr<PollingNotes> m_page;
    std::unique_ptr<QSignalSpy> m_sent;
    std::unique_ptr<BoxUser> m_user;
};

void CameraStateActionsTest::init() {
    m_page = std::make_unique<PollingNotes>(nullptr);
    m_sent = std::make_unique<QSignalSpy>(m_page.get(), &ClWidgetBase::sigSendCommand);
    m_user = std::make_unique<BoxUser>();
    m_page->resize(600, 505);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void CameraStateActionsTest::cleanup() {
    m_user.reset();
    m_sent.reset();
    m_page.reset();
}

void CameraStateActionsTest::anActionAsksFirst_data() {
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("question");
    QTest::addColumn<QUuid>("command");
    QTest::newRow("format") << u"SD card format"_s << u"All data delete on SD card"_s
                            << USB_NUBO_CMD_FORMAT_SD;
    QTest::newRow("initialize") << u"Initialize settings"_s << u"Initialize all settings"_s
                                << USB_NUBO_CMD_INIT_SETTING;
    QTest::newRow("restart") << u"Reset NuBo"_s << u"Reset NuBo and restart"_s
                             << USB_NUBO_CMD_RESTART;
}

void CameraStateActionsTest::anActionAsksFirst() {
    QFETCH(QString, button);
    QFETCH(QString, question);
    bool isNothingSent = false;
    m_user->setAction([&](QWidget& box) {
        isNothingSent = m_sent->isEmpty();
        acceptBox(box);
    });
    click(button);
    QCOMPARE(m_user->boxes().size(), 1);
    const stModalBox& box = m_user->boxes().first();
    QCOMPARE(box.title, u"Test program"_s);
    QCOMPARE(box.text, question);
    QCOMPARE(QSet<QString>(box.buttons.begin(), box.buttons.end()),
             (QSet<QString>{u"OK"_s, u"Cancel"_s}));
    QCOMPARE(box.parent, m_page.get());
    QVERIFY(isNothingSent);
}

void CameraStateActionsTest::aDeclinedActionSendsNothing_data() {
    anActionAsksFirst_data();
}

void CameraStateActionsTest::aDeclinedActionSendsNothing() {
    QFETCH(QString, button);
    const auto close = [](QWidget& box) { box.close(); };
    for (const BoxUser::Action& decline :
         {BoxUser::Action(rejectBox), BoxUser::Action(escapeBox), BoxUser::Action(close)}) {
        m_user->setAction(decline);
        click(button);
    }
    QCOMPARE(m_user->boxes().size(), 3);
    QVERIFY(m_sent->isEmpty());
}

void CameraStateActionsTest::theReturnKeyDeclinesAnAction_data() {
    anActionAsksFirst_data();
}

void CameraStateActionsTest::theReturnKeyDeclinesAnAction() {
    QFETCH(QString, button);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        m_user->setAction([key](QWidget& box) { QTest::keyClick(box.focusWidget(), key); });
        click(button);
    }
    QCOMPARE(m_user->boxes().size(), 3);
    QVERIFY(m_sent->isEmpty());
}

void CameraStateActionsTest::aConfirmedActionSendsItsCommand_data() {
    anActionAsksFirst_data();
}

void CameraStateActionsTest::aConfirmedActionSendsItsCommand() {
    QFETCH(QString, button);
    QFETCH(QUuid, command);
    click(button);
    QCOMPARE(m_sent->size(), 1);
    const QVariantMap expected{{u"CMD"_s, command},
                               {u"Sender"_s, QVariant::fromValue<QObject*>(m_page.get())}};
    QCOMPARE(m_sent->first().first().toMap(), expected);
    QVERIFY(m_page->notes.isEmpty());
}

void CameraStateActionsTest::aQuestionIsClosedUnansweredWhenThePageIsLeft_data() {
    anActionAsksFirst_data();
}

void CameraStateActionsTest::aQuestionIsClosedUnansweredWhenThePageIsLeft() {
    QFETCH(QString, button);
    QFETCH(QString, question);
    // The camera is unplugged.
    m_user->setAction([this](QWidget& box) {
        m_page->hide();
        QVERIFY(!box.isVisible());
    });
    click(button);
    // One camera is unplugged, another one plugged in.
    m_page->show();
    m_user->setAction([this](QWidget& box) {
        m_page->hide();
        m_page->show();
        QVERIFY(!box.isVisible());
    });
    click(button);
    QCOMPARE(m_user->texts(), (QStringList{question, question}));
    QVERIFY(m_sent->isEmpty());

    m_user->setAction(acceptBox);
    click(button);
    QCOMPARE(m_sent->size(), 1);
}

void CameraStateActionsTest::aMinimisedWindowIsNoPageThatWasLeft() {
    m_user->setAction([this](QWidget& box) {
        QHideEvent minimised;
        QSpontaneKeyEvent::setSpontaneous(&minimised);
        qApp->notify(m_page.get(), &minimised);
        acceptBox(box);
    });
    click(u"Reset NuBo"_s);
    QCOMPARE(m_sent->size(), 1);
}

void CameraStateActionsTest::onlyTheFormatReportsItsCompletion_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<QStringList>("texts");
    for (const auto& [name, command] : OWN_COMMANDS) {
        QTest::newRow(name) << command
                            << (command == USB_NUBO_CMD_FORMAT_SD
                                    ? QStringList{u"Completed SD card format"_s}
                                    : QStringList());
    }
    QTest::newRow("another page's") << USB_NUBO_CMD_POWEROFF << QStringList();
    QTest::newRow("none") << QUuid() << QStringList();
}

void CameraStateActionsTest::onlyTheFormatReportsItsCompletion() {
    QFETCH(QUuid, command);
    QFETCH(QStringList, texts);
    m_page->slotReceiveCommand(plainResult(USB_NUBO_CMD_RESPONSE, command, 0));
    QCOMPARE(m_user->texts(), texts);
    for (const stModalBox& box : m_user->boxes()) {
        QCOMPARE(box.title, u"Test program"_s);
        QCOMPARE(box.buttons, QStringList{u"OK"_s});
        QCOMPARE(box.parent, m_page.get());
    }
    QVERIFY(m_sent->isEmpty());
    QVERIFY(m_page->notes.isEmpty());
}

void CameraStateActionsTest::aCameraErrorIsShownAndPollingGoesOn_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QStringList>("texts");
    for (const auto& [code, text] : REFUSALS) {
        for (const auto& [name, command] : OWN_COMMANDS) {
            QTest::addRow("%s, 0x%04X", name, code) << command << code << QStringList{text};
        }
        QTest::addRow("another page's, 0x%04X", code)
            << USB_NUBO_CMD_POWEROFF << code << QStringList();
    }
}

void CameraStateActionsTest::aCameraErrorIsShownAndPollingGoesOn() {
    QFETCH(QUuid, command);
    QFETCH(unsigned short, code);
    m_page->slotReceiveCommand(plainResult(USB_NUBO_CMD_RESPONSE, command, code));
    QTEST(m_user->texts(), "texts");
    for (const stModalBox& box : m_user->boxes()) {
        QCOMPARE(box.title, u"Test program"_s);
        QCOMPARE(box.buttons, QStringList{u"OK"_s});
    }
    QVERIFY(m_page->notes.isEmpty());
    QVERIFY(m_sent->isEmpty());
}

void CameraStateActionsTest::aTransportErrorStopsThePollingAndIsShown_data() {
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QStringList>("texts");
    for (unsigned short code = 0xEF01; code <= 0xEF05; ++code) {
        for (const auto& [name, command] : OWN_COMMANDS) {
            QTest::addRow("%s, 0x%04X", name, code)
                << command << code << QStringList{UNKNOWN_ERROR};
        }
        QTest::addRow("another page's, 0x%04X", code)
            << USB_NUBO_CMD_POWEROFF << code << QStringList();
    }
}

void CameraStateActionsTest::aTransportErrorStopsThePollingAndIsShown() {
    QFETCH(QUuid, command);
    QFETCH(unsigned short, code);
    m_page->slotReceiveCommand(plainResult(USB_CMD_ERROR, command, code));
    QTEST(m_user->texts(), "texts");
    QCOMPARE(m_page->notes, QStringList{u"stop"_s});
    QVERIFY(m_sent->isEmpty());
}

void CameraStateActionsTest::aCameraThatHasGoneNeedsNoBox_data() {
    QTest::addColumn<QUuid>("command");
    for (const auto& [name, command] : OWN_COMMANDS) {
        QTest::newRow(name) << command;
    }
}

void CameraStateActionsTest::aCameraThatHasGoneNeedsNoBox() {
    QFETCH(QUuid, command);
    m_page->slotReceiveCommand(plainResult(USB_CMD_ERROR, command, 0xEF00));
    QVERIFY(m_user->boxes().isEmpty());
    QVERIFY(m_page->notes.isEmpty());
}

void CameraStateActionsTest::thePollingStopsBeforeTheBoxOpens() {
    m_page->showInit(false);
    QStringList notes;
    m_user->setAction([&](QWidget& box) {
        notes = m_page->notes;
        acceptBox(box);
    });
    m_page->slotReceiveCommand(plainResult(USB_CMD_ERROR, USB_REQ_NUBO_CMD_GET_BATTERY, 0xEF03));
    QCOMPARE(notes, (QStringList{u"start"_s, u"stop"_s}));
    QCOMPARE(m_page->notes, notes);
}

void CameraStateActionsTest::thePollingStartsAgainWhenThePageIsShown() {
    m_page->slotReceiveCommand(plainResult(USB_CMD_ERROR, USB_REQ_NUBO_CMD_GET_BATTERY, 0xEF03));
    m_page->showInit(true);
    QCOMPARE(m_page->notes, QStringList{u"stop"_s});
    m_page->showInit(false);
    QCOMPARE(m_page->notes, (QStringList{u"stop"_s, u"start"_s}));
}

void CameraStateActionsTest::aFailedReadEndsTheChainAndLeavesTheValues() {
    m_page->slotReceiveCommand(wifiAnswer(2, 72, 6));
    m_page->slotReceiveCommand(sdAnswer(4, 1, 2));
    const QImage before = m_page->grab().toImage();
    m_page->showInit(true);
    m_sent->clear();
    m_page->slotReceiveCommand(
        plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_BATTERY, 0xFFFF));
    QCOMPARE(m_user->texts(), QStringList{UNKNOWN_ERROR});
    QVERIFY(m_sent->isEmpty());
    QCOMPARE(m_page->grab().toImage(), before);
}

const TestSubject registered = subjectWithWidgets<CameraStateActionsTest>();
#include "CameraStateActionsTest.moc"
