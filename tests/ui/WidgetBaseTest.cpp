// SPDX-License-Identifier: MIT
#include "protocol/CommandIdentifiers.h"
#include "protocol/ResultCodes.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/Modal.h"
#include "tests/ui/Mouse.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ClMessageBox.h"
#include "ui/ClWidgetBase.h"

#include <QtTest/qtestspontaneevent.h>
#include <QHideEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QShowEvent>
#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

class MousePage : public ClWidgetBase {
public:
    QList<QEvent::Type> m_mouse;  // the mouse events that came to the page

protected:
    void mousePressEvent(QMouseEvent* event) override { m_mouse.append(event->type()); }
    void mouseReleaseEvent(QMouseEvent* event) override { m_mouse.append(event->type()); }
};

// Accepted by Return, rejected by Escape.
ClMessageBox createQuestion(QWidget* parent) {
    return {parent, u"Sure?"_s, u"Question"_s, QDialogButtonBox::Ok | QDialogButtonBox::Cancel};
}

}  // namespace

/// The base of the pages: commands out, error boxes, questions, the mouse of a child.
class WidgetBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"NuBo Setting Tool"_s); }

    void sendsACommandInItsOwnName();
    void replacesCommandAndSender();
    void leavesTheCallersMessageAlone();
    void ignoresResultsByDefault();

    void tellsTheError_data();
    void tellsTheError();
    void looksTheErrorTextsUpInItsContext();
    void closesTheErrorBoxByKey_data();
    void closesTheErrorBoxByKey();
    void tellsOneErrorAfterTheOther();
    void tellsNoMoreErrorsOfAPageThatWasLeft_data();
    void tellsNoMoreErrorsOfAPageThatWasLeft();
    void tellsTheErrorsSinceThePageIsBack();

    void asksTheUser_data();
    void asksTheUser();
    void leavingThePageClosesAQuestion();
    void anAnswerOfTheMomentThePageIsLeftDoesNotCount();
    void leavingThePageClosesWhatAQuestionHasOpened();
    void leavingThePageClosesAMenuOfAQuestion();
    void aMinimisedWindowLeavesAQuestionAlone();

    void enterPressesTheButtonThatHasTheFocus_data();
    void enterPressesTheButtonThatHasTheFocus();
    void enterElsewherePressesNothing();

    void takesTheMouseOfAChild();
    void leavesOtherEventsToTheChild();
    void filtersNothingUnasked();
    void passesANullEvent();
};

void WidgetBaseTest::sendsACommandInItsOwnName() {
    ClWidgetBase page;
    QSignalSpy sent(&page, &ClWidgetBase::sigSendCommand);
    page.sendUsbCommand(USB_REQ_NUBO_CMD_GET_BATTERY, {{Key::PARAM2, 42}});

    QCOMPARE(sent.size(), 1);
    const VX_CMD message = sent[0][0].value<VX_CMD>();
    QCOMPARE(message.size(), 3);
    QCOMPARE(message[u"CMD"_s].metaType(), QMetaType::fromType<QUuid>());
    QCOMPARE(message[u"CMD"_s].toUuid(), USB_REQ_NUBO_CMD_GET_BATTERY);
    QCOMPARE(message[u"Sender"_s].metaType(), QMetaType::fromType<QObject*>());
    QCOMPARE(message[u"Sender"_s].value<QObject*>(), &page);
    QCOMPARE(message[u"PARAM2"_s].toInt(), 42);
}

void WidgetBaseTest::replacesCommandAndSender() {
    ClWidgetBase page;
    ClWidgetBase other;
    QSignalSpy sent(&page, &ClWidgetBase::sigSendCommand);
    page.sendUsbCommand(USB_NUBO_CMD_RESTART,
                        {{Key::CMD, QVariant::fromValue(USB_NUBO_CMD_FORMAT_SD)},
                         {Key::SENDER, QVariant::fromValue<QObject*>(&other)}});

    const VX_CMD message = sent[0][0].value<VX_CMD>();
    QCOMPARE(message.size(), 2);
    QCOMPARE(message[Key::CMD].toUuid(), USB_NUBO_CMD_RESTART);
    QCOMPARE(message[Key::SENDER].value<QObject*>(), &page);
}

void WidgetBaseTest::leavesTheCallersMessageAlone() {
    ClWidgetBase page;
    const VX_CMD message{{Key::PARAM2, 1}};
    page.sendUsbCommand(USB_NUBO_CMD_RESTART, message);
    QCOMPARE(message, (VX_CMD{{Key::PARAM2, 1}}));
}

void WidgetBaseTest::ignoresResultsByDefault() {
    ClWidgetBase page;
    QSignalSpy sent(&page, &ClWidgetBase::sigSendCommand);
    page.showInit(false);
    page.slotReceiveCommand({{Key::CMD, QVariant::fromValue(USB_CMD_ERROR)}});
    QVERIFY(sent.isEmpty());
}

void WidgetBaseTest::tellsTheError_data() {
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QString>("text");
    const QString reset = u"Timeout error, please reset"_s;
    const QString other = u"Exec failed, unknown error"_s;
    const struct {
        unsigned short code;
        QString text;
    } rows[]{
        {0xFFFA, reset},
        {0xFFFB, u"Parameter setting failed"_s},
        {0xFFFC, u"Command error, version up"_s},
        {0xFFFE, reset},
        {0xFFFD, other},
        {0xFFFF, other},
        {0xFFF9, other},
        {0xFFF8, other},
        {0xFFF7, other},
        {0xFFF6, other},
        {0xFFF5, other},
        {0xEF00, other},
        {0xEF01, other},
        {0xEF02, other},
        {0xEF03, other},
        {0xEF04, other},
        {0xEF05, other},
        {0x0000, other},
    };
    for (const auto& row : rows) {
        QTest::addRow("0x%04X", row.code) << row.code << row.text;
    }
}

void WidgetBaseTest::tellsTheError() {
    QFETCH(unsigned short, code);
    QFETCH(QString, text);
    ClWidgetBase page;
    page.show();
    const ModalAnswer answer([&](QDialog& box) {
        QVERIFY(qobject_cast<ClMessageBox*>(&box) != nullptr);
        QCOMPARE(box.parentWidget(), &page);
        QCOMPARE(box.windowTitle(), u"NuBo Setting Tool"_s);
        QCOMPARE(box.findChild<QLabel*>()->text(), text);
        const auto buttons = box.findChildren<QPushButton*>();
        QCOMPARE(buttons.size(), 1);
        QCOMPARE(buttons[0]->text(), u"OK"_s);
        QTest::mouseClick(buttons[0], Qt::LeftButton);
    });
    page.showErrorMsgBox(code);
    QVERIFY(answer.closed());
}

void WidgetBaseTest::looksTheErrorTextsUpInItsContext() {
    const TaggingTranslator translator;
    ClWidgetBase page;
    for (const unsigned short code :
         {NUBO_CMD_ERROR_EXEC, NUBO_CMD_ERROR_PARAM, NUBO_CMD_ERROR_COMMAND, NUBO_CMD_ERROR_TIMEOUT,
          NUBO_CMD_ERROR_UNKNOWN}) {
        const ModalAnswer answer([&](QDialog& box) {
            const QString text = box.findChild<QLabel*>()->text();
            QVERIFY2(text.startsWith("ClWidgetBase|"_L1), qPrintable(text));
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        page.showErrorMsgBox(code);
        QVERIFY(answer.closed());
    }
}

void WidgetBaseTest::closesTheErrorBoxByKey_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Enter") << Qt::Key_Enter;
    QTest::newRow("Return") << Qt::Key_Return;
    QTest::newRow("Escape") << Qt::Key_Escape;
}

void WidgetBaseTest::closesTheErrorBoxByKey() {
    QFETCH(Qt::Key, key);
    ClWidgetBase page;
    const ModalAnswer answer([&](QDialog& box) { QTest::keyClick(&box, key); });
    page.showErrorMsgBox(NUBO_CMD_ERROR_BUSY);
    QVERIFY(answer.closed());
}

void WidgetBaseTest::tellsOneErrorAfterTheOther() {
    ClWidgetBase page;
    page.show();
    QStringList told;
    std::vector<std::unique_ptr<ModalAnswer>> next;
    const auto note = [&](QDialog& box) {
        told.append(box.findChild<QLabel*>()->text());
        QTest::keyClick(&box, Qt::Key_Return);
    };
    const ModalAnswer first([&](QDialog& box) {
        page.showErrorMsgBox(NUBO_CMD_ERROR_PARAM);
        page.showErrorMsgBox(NUBO_CMD_ERROR_COMMAND);
        QCOMPARE(QApplication::activeModalWidget(), &box);
        next.push_back(std::make_unique<ModalAnswer>([&](QDialog& second) {
            next.push_back(std::make_unique<ModalAnswer>(note));
            note(second);
        }));
        note(box);
    });
    page.showErrorMsgBox(NUBO_CMD_ERROR_TIMEOUT);
    QCOMPARE(told, (QStringList{u"Timeout error, please reset"_s, u"Parameter setting failed"_s,
                                u"Command error, version up"_s}));

    // The next error is one of its own.
    const ModalAnswer answer(note);
    page.showErrorMsgBox(NUBO_CMD_ERROR_BUSY);
    QCOMPARE(told.size(), 4);
}

void WidgetBaseTest::tellsNoMoreErrorsOfAPageThatWasLeft_data() {
    QTest::addColumn<bool>("isBack");
    QTest::newRow("while it is away") << false;
    QTest::newRow("when it is back") << true;
}

void WidgetBaseTest::tellsNoMoreErrorsOfAPageThatWasLeft() {
    QFETCH(bool, isBack);
    ClWidgetBase page;
    page.show();
    qsizetype unwanted = 0;
    std::unique_ptr<ModalAnswer> next;
    const ModalAnswer first([&](QDialog& box) {
        page.showErrorMsgBox(NUBO_CMD_ERROR_PARAM);
        page.hide();
        page.setVisible(isBack);
        next = std::make_unique<ModalAnswer>([&](QDialog&) { ++unwanted; });
        QTest::keyClick(&box, Qt::Key_Return);
    });
    page.showErrorMsgBox(NUBO_CMD_ERROR_TIMEOUT);
    QVERIFY(first.closed());
    QCOMPARE(unwanted, 0);
    next.reset();

    page.show();
    QString told;
    const ModalAnswer second([&](QDialog& box) {
        told = box.findChild<QLabel*>()->text();
        QTest::keyClick(&box, Qt::Key_Return);
    });
    page.showErrorMsgBox(NUBO_CMD_ERROR_COMMAND);
    QCOMPARE(told, u"Command error, version up"_s);
}

void WidgetBaseTest::enterPressesTheButtonThatHasTheFocus_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("Enter") << Qt::Key_Enter;
    QTest::newRow("Return") << Qt::Key_Return;
}

void WidgetBaseTest::enterPressesTheButtonThatHasTheFocus() {
    QFETCH(Qt::Key, key);
    ClWidgetBase page;
    QWidget bar(&page);
    QPushButton other(&bar);
    QPushButton button(&bar);
    const QSignalSpy otherClicked(&other, &QPushButton::clicked);
    const QSignalSpy clicked(&button, &QPushButton::clicked);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    button.setFocus();
    QTest::keyClick(QApplication::focusWidget(), key);
    QCOMPARE(clicked.size(), 1);
    // Whoever holds the key down wants the button once.
    QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, {}, true);
    QCoreApplication::sendEvent(&button, &repeated);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(otherClicked.isEmpty());
}

void WidgetBaseTest::enterElsewherePressesNothing() {
    ClWidgetBase page;
    QPushButton button(&page);
    QLineEdit edit(&page);
    const QSignalSpy clicked(&button, &QPushButton::clicked);
    page.show();
    QVERIFY(QTest::qWaitForWindowActive(&page));
    edit.setFocus();
    QTest::keyClick(&edit, Qt::Key_Return);
    page.setFocus();
    QTest::keyClick(&page, Qt::Key_Return);
    QVERIFY(clicked.isEmpty());
}

void WidgetBaseTest::tellsTheErrorsSinceThePageIsBack() {
    ClWidgetBase page;
    page.show();
    QString told;
    std::unique_ptr<ModalAnswer> next;
    const ModalAnswer first([&](QDialog& box) {
        page.showErrorMsgBox(NUBO_CMD_ERROR_PARAM);
        page.hide();
        page.show();
        page.showErrorMsgBox(NUBO_CMD_ERROR_COMMAND);
        next = std::make_unique<ModalAnswer>([&](QDialog& second) {
            told = second.findChild<QLabel*>()->text();
            QTest::keyClick(&second, Qt::Key_Return);
        });
        QTest::keyClick(&box, Qt::Key_Return);
    });
    page.showErrorMsgBox(NUBO_CMD_ERROR_TIMEOUT);
    QCOMPARE(told, u"Command error, version up"_s);
}

void WidgetBaseTest::asksTheUser_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("accepted") << Qt::Key_Return << true;
    QTest::newRow("rejected") << Qt::Key_Escape << false;
}

void WidgetBaseTest::asksTheUser() {
    QFETCH(Qt::Key, key);
    QFETCH(bool, isAccepted);
    ClWidgetBase page;
    page.show();
    ClMessageBox question = createQuestion(&page);
    const ModalAnswer answer([key](QDialog& box) { QTest::keyClick(&box, key); });
    QCOMPARE(page.ask(question), isAccepted);
    QVERIFY(answer.closed());
}

void WidgetBaseTest::leavingThePageClosesAQuestion() {
    ClWidgetBase page;
    page.show();
    ClMessageBox question = createQuestion(&page);
    const ModalAnswer answer([&page](QDialog& box) {
        page.hide();
        QVERIFY(!box.isVisible());
    });
    QVERIFY(!page.ask(question));
    QVERIFY(answer.closed());
    QCOMPARE(question.result(), int(QDialog::Rejected));
    // The next one is asked as if nothing had been.
    page.show();
    ClMessageBox second = createQuestion(&page);
    const ModalAnswer next([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
    QVERIFY(page.ask(second));
}

void WidgetBaseTest::anAnswerOfTheMomentThePageIsLeftDoesNotCount() {
    ClWidgetBase page;
    page.show();
    ClMessageBox question = createQuestion(&page);
    const ModalAnswer answer([&page](QDialog& box) {
        QTest::keyClick(&box, Qt::Key_Return);
        page.hide();
    });
    QVERIFY(!page.ask(question));
    QVERIFY(answer.closed());
}

void WidgetBaseTest::leavingThePageClosesWhatAQuestionHasOpened() {
    ClWidgetBase page;
    page.show();
    ClMessageBox question = createQuestion(&page);
    bool isInnerClosed = false;
    const ModalAnswer answer([&](QDialog& box) {
        ClMessageBox inner = createQuestion(&box);
        const ModalAnswer next([&](QDialog& opened) {
            QCOMPARE(&opened, &inner);
            page.hide();
            QVERIFY(!opened.isVisible());
            QVERIFY(!box.isVisible());
        });
        QCOMPARE(inner.exec(), int(QDialog::Rejected));
        isInnerClosed = next.closed();
    });
    QVERIFY(!page.ask(question));
    QVERIFY(isInnerClosed);
    QVERIFY(answer.closed());
}

void WidgetBaseTest::leavingThePageClosesAMenuOfAQuestion() {
    ClWidgetBase page;
    page.show();
    ClMessageBox question = createQuestion(&page);
    bool wasDown = false;
    bool isDown = true;
    const ModalAnswer answer([&](QDialog& box) {
        QMenu menu(&box);
        menu.addAction(u"Copy"_s);
        QTimer::singleShot(0, &menu, [&] {
            wasDown = menu.isVisible();
            page.hide();
            isDown = menu.isVisible();
            menu.close();
        });
        menu.exec();
    });
    QVERIFY(!page.ask(question));
    QVERIFY(answer.closed());
    QVERIFY(wasDown);
    QVERIFY(!isDown);
}

void WidgetBaseTest::aMinimisedWindowLeavesAQuestionAlone() {
    ClWidgetBase page;
    page.show();
    ClMessageBox question = createQuestion(&page);
    const ModalAnswer answer([&page](QDialog& box) {
        // What the page gets of it.
        QHideEvent minimised;
        QShowEvent restored;
        for (QEvent* event : std::initializer_list<QEvent*>{&minimised, &restored}) {
            QSpontaneKeyEvent::setSpontaneous(event);
            QApplication::instance()->notify(&page, event);
        }
        QVERIFY(box.isVisible());
        QTest::keyClick(&box, Qt::Key_Return);
    });
    QVERIFY(page.ask(question));
    QVERIFY(answer.closed());
}

void WidgetBaseTest::takesTheMouseOfAChild() {
    MousePage page;
    QPushButton button(&page);
    button.installEventFilter(&page);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    clickMouse(button);
    QCOMPARE(page.m_mouse,
             (QList<QEvent::Type>{QEvent::MouseButtonPress, QEvent::MouseButtonRelease}));
    QVERIFY(clicked.isEmpty());
}

void WidgetBaseTest::leavesOtherEventsToTheChild() {
    MousePage page;
    QLineEdit edit(&page);
    edit.installEventFilter(&page);
    page.show();
    QTest::keyClicks(&edit, u"nubo"_s);
    QCOMPARE(edit.text(), u"nubo"_s);
    QVERIFY(page.m_mouse.isEmpty());
}

void WidgetBaseTest::filtersNothingUnasked() {
    MousePage page;
    QPushButton button(&page);
    QSignalSpy clicked(&button, &QPushButton::clicked);
    page.show();
    QVERIFY(QTest::qWaitForWindowExposed(&page));
    clickMouse(button);
    QCOMPARE(clicked.size(), 1);
    QVERIFY(page.m_mouse.isEmpty());
}

void WidgetBaseTest::passesANullEvent() {
    MousePage page;
    QVERIFY(!page.eventFilter(&page, nullptr));
}

const TestSubject registered = subjectWithWidgets<WidgetBaseTest>();
#include "WidgetBaseTest.moc"
