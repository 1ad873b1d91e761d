// SPDX-License-Identifier: MIT
#include "pages/stream/ClWidgetStreamSetting.h"
#include "tests/pages/CameraMessages.h"
#include "tests/pages/stream/StreamMessages.h"
#include "tests/support/BoxUser.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"
#include "ui/ClLabelSepalator.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString REC_DIALOG = u"Set the image quality at the time of Rec"_s;
const QString LIVE_DIALOG = u"Set the image quality at the time of LiveView"_s;

using Sent = QList<std::pair<QUuid, QVariant>>;

}  // namespace

/// The stream setting page alone: its buttons, the requests they send, and when a dialog opens. The
/// camera's answers are fed in by hand.
class StreamSettingPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup();

    void theControlsStandAtTheirPlaces();
    void theKeyboardReachesBothButtons();
    void showingThePageAsksForNothing();
    void aClickReadsSizeAndRateAndOpensTheDialog_data();
    void aClickReadsSizeAndRateAndOpensTheDialog();
    void whatIsChosenIsSent_data();
    void whatIsChosenIsSent();
    void aCancelledDialogSendsNothing_data();
    void aCancelledDialogSendsNothing();
    void nothingIsKeptAfterADialog_data();
    void nothingIsKeptAfterADialog();
    void aSecondClickOnTheSameButtonIsIgnoredMeanwhile();
    void aClickOnTheOtherButtonTakesItsPlace();
    void anAnswerThatWasNotAskedForOpensNothing_data();
    void anAnswerThatWasNotAskedForOpensNothing();
    void showingThePageAgainAbandonsAChain();
    void leavingThePageCancelsAnOpenDialog();

private:
    [[nodiscard]] QPushButton* button(const stStreamUse& use) const;
    void click(const stStreamUse& use) const { QTest::mouseClick(button(use), Qt::LeftButton); }
    void receive(const QUuid& identifier, const QVariant& value) const {
        m_page->slotReceiveCommand(valueAnswer(identifier, value));
    }
    void read(const stStreamUse& use, const QVariant& size, const QVariant& rate) const;
    [[nodiscard]] Sent sent() const;

    std::unique_ptr<ClWidgetStreamSetting> m_page;
    std::unique_ptr<QSignalSpy> m_sent;
    std::unique_ptr<BoxUser> m_user;
};

void StreamSettingPageTest::init() {
    m_page = std::make_unique<ClWidgetStreamSetting>(nullptr);
    m_sent = std::make_unique<QSignalSpy>(m_page.get(), &ClWidgetBase::sigSendCommand);
    m_user = std::make_unique<BoxUser>();
    m_page->resize(600, 505);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void StreamSettingPageTest::cleanup() {
    m_user.reset();
    m_sent.reset();
    m_page.reset();
}

QPushButton* StreamSettingPageTest::button(const stStreamUse& use) const {
    return m_page->findChildren<QPushButton*>().at(&use == &REC ? 0 : 1);
}

void StreamSettingPageTest::read(const stStreamUse& use, const QVariant& size,
                                 const QVariant& rate) const {
    click(use);
    receive(use.sizeAnswer, size);
    receive(use.rateAnswer, rate);
}

Sent StreamSettingPageTest::sent() const {
    Sent sent;
    for (const QVariantList& arguments : std::as_const(*m_sent)) {
        const QVariantMap message = arguments.first().toMap();
        sent.append({message.value(u"CMD"_s).toUuid(), message.value(u"PARAM2"_s)});
    }
    return sent;
}

void StreamSettingPageTest::theControlsStandAtTheirPlaces() {
    QCOMPARE(m_page->findChildren<QPushButton*>().size(), 2);
    QCOMPARE(button(REC)->text(), u"Rec setting"_s);
    QCOMPARE(button(REC)->geometry(), QRect(143, 49, 309, 30));
    QCOMPARE(button(REC)->minimumSize(), QSize(309, 30));
    QCOMPARE(button(LIVE)->text(), u"LiveView setting"_s);
    QCOMPARE(button(LIVE)->geometry(), QRect(143, 164, 309, 30));
    QCOMPARE(button(LIVE)->minimumSize(), QSize(309, 30));
    QCOMPARE(m_page->findChild<ClLabelSepalator*>()->pos(), QPoint(0, 110));
}

void StreamSettingPageTest::theKeyboardReachesBothButtons() {
    m_page->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_page.get()));
    button(REC)->setFocus();
    for (const stStreamUse* use : {&LIVE, &REC}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), button(*use));
    }
    QTest::keyClick(button(REC), Qt::Key_Space);
    QCOMPARE(sent(), (Sent{{REC.getSize, QVariant()}}));
}

void StreamSettingPageTest::showingThePageAsksForNothing() {
    m_page->showInit(false);
    m_page->showInit(true);
    QVERIFY(m_sent->isEmpty());
}

void StreamSettingPageTest::aClickReadsSizeAndRateAndOpensTheDialog_data() {
    QTest::addColumn<const stStreamUse*>("use");
    QTest::addColumn<QString>("dialog");
    QTest::newRow(REC.name) << &REC << REC_DIALOG;
    QTest::newRow(LIVE.name) << &LIVE << LIVE_DIALOG;
}

void StreamSettingPageTest::aClickReadsSizeAndRateAndOpensTheDialog() {
    QFETCH(const stStreamUse*, use);
    QFETCH(QString, dialog);
    click(*use);
    Sent expected{{use->getSize, QVariant()}};
    QCOMPARE(sent(), expected);
    receive(use->sizeAnswer, QSize(640, 480));
    expected.append({use->getRate, QVariant()});
    QCOMPARE(sent(), expected);
    QVERIFY(m_user->boxes().isEmpty());
    for (const QVariantList& arguments : std::as_const(*m_sent)) {
        const QVariantMap message = arguments.first().toMap();
        QCOMPARE(message.keys(), (QStringList{u"CMD"_s, u"Sender"_s}));
        QCOMPARE(message.value(u"Sender"_s).value<QObject*>(), m_page.get());
    }

    m_user->setAction(rejectBox);
    receive(use->rateAnswer, 15U);
    QCOMPARE(m_user->boxes().size(), 1);
    const stModalBox& box = m_user->boxes().first();
    QCOMPARE(box.title, u"Test program"_s);
    QCOMPARE(box.text, dialog);
    QCOMPARE(box.parent, m_page.get());
    QCOMPARE(QSet<QString>(box.buttons.begin(), box.buttons.end()),
             (QSet<QString>{u"OK"_s, u"Cancel"_s}));
    QCOMPARE(sent(), expected);
}

void StreamSettingPageTest::whatIsChosenIsSent_data() {
    QTest::addColumn<const stStreamUse*>("use");
    QTest::addColumn<QVariant>("size");
    QTest::addColumn<QVariant>("rate");
    QTest::addColumn<QStringList>("clicks");
    QTest::addColumn<Sent>("expected");
    const auto row = [](const char* name, const stStreamUse& use, const QVariant& size,
                        const QVariant& rate, const QStringList& clicks, const Sent& expected) {
        QTest::newRow(name) << &use << size << rate << clicks << expected;
    };
    const QSize fullHd(1920, 1080);
    const QSize fine(800, 480);
    const QSize standard(320, 240);
    row("recording, unchanged", REC, fullHd, 30U, {}, {});
    row("recording, unchanged, rate not offered", REC, QSize(640, 480), 5U, {}, {});
    row("recording, another size", REC, fullHd, 30U, {u"HD(1280x720)"_s},
        {{REC.setSize, QSize(1280, 720)}});
    row("recording, there and back", REC, fullHd, 30U, {u"HD(1280x720)"_s, u"Full HD(1920x1080)"_s},
        {});
    row("recording, unknown size", REC, QSize(), 30U, {}, {{REC.setSize, fullHd}});
    row("recording, empty size", REC, QSize(0, 0), 30U, {}, {{REC.setSize, fullHd}});
    row("recording, live view's size", REC, fine, 30U, {}, {{REC.setSize, fullHd}});
    row("recording, no values at all", REC, QVariant(), QVariant(), {}, {{REC.setSize, fullHd}});
    row("live view, unchanged", LIVE, fine, 15U, {}, {});
    row("live view, another size", LIVE, fine, 15U, {u"Standard(320x240)"_s},
        {{LIVE.setSize, standard}});
    row("live view, another rate", LIVE, standard, 15U, {u"6 sheets(6fps)"_s},
        {{LIVE.setRate, 6U}});
    row("live view, both", LIVE, standard, 30U, {u"1 sheets(1fps)"_s, u"Fine(800x480)"_s},
        {{LIVE.setSize, fine}, {LIVE.setRate, 1U}});
    row("live view, rate not offered", LIVE, fine, 5U, {}, {{LIVE.setRate, 30U}});
    row("live view, rate 0", LIVE, fine, 0U, {}, {{LIVE.setRate, 30U}});
    row("live view, highest number", LIVE, fine, 0xFFFFFFFFU, {}, {{LIVE.setRate, 30U}});
    row("live view, unknown size", LIVE, QSize(), 10U, {}, {{LIVE.setSize, standard}});
    row("live view, no values at all", LIVE, QVariant(), QVariant(), {},
        {{LIVE.setSize, standard}, {LIVE.setRate, 30U}});
}

void StreamSettingPageTest::whatIsChosenIsSent() {
    QFETCH(const stStreamUse*, use);
    QFETCH(QVariant, size);
    QFETCH(QVariant, rate);
    QFETCH(QStringList, clicks);
    m_user->setAction([&](QWidget& box) {
        for (const QString& text : clicks) {
            DialogControls(box).click(text);
        }
        m_sent->clear();
        acceptBox(box);
    });
    read(*use, size, rate);
    QCOMPARE(m_user->boxes().size(), 1);
    QTEST(sent(), "expected");
    // The camera's side takes a number without sign.
    for (const auto& [command, value] : sent()) {
        const bool isRate = command == LIVE.setRate;
        QCOMPARE(value.typeId(), isRate ? QMetaType::UInt : QMetaType::QSize);
    }
}

void StreamSettingPageTest::aCancelledDialogSendsNothing_data() {
    QTest::addColumn<const stStreamUse*>("use");
    QTest::addColumn<QString>("choice");
    QTest::newRow(REC.name) << &REC << u"Economy(640x480)"_s;
    QTest::newRow(LIVE.name) << &LIVE << u"Standard(320x240)"_s;
}

void StreamSettingPageTest::aCancelledDialogSendsNothing() {
    QFETCH(const stStreamUse*, use);
    QFETCH(QString, choice);
    const auto close = [](QWidget& box) { box.close(); };
    for (const BoxUser::Action& leave :
         {BoxUser::Action(rejectBox), BoxUser::Action(escapeBox), BoxUser::Action(close)}) {
        m_user->setAction([&](QWidget& box) {
            DialogControls(box).click(choice);
            m_sent->clear();
            leave(box);
        });
        read(*use, QSize(800, 480), 5U);
        QVERIFY(m_sent->isEmpty());
    }
    QCOMPARE(m_user->boxes().size(), 3);
}

void StreamSettingPageTest::nothingIsKeptAfterADialog_data() {
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("accepted") << true;
    QTest::newRow("cancelled") << false;
}

void StreamSettingPageTest::nothingIsKeptAfterADialog() {
    QFETCH(bool, isAccepted);
    m_user->setAction(isAccepted ? acceptBox : rejectBox);
    read(LIVE, QSize(320, 240), 30U);
    m_sent->clear();
    // Against no values, even the defaults are a change.
    m_user->setAction(acceptBox);
    m_page->showDialog(ClWidgetStreamSetting::eDialogType::Stream);
    QCOMPARE(sent(), (Sent{{LIVE.setSize, QSize(320, 240)}, {LIVE.setRate, 30U}}));
    m_sent->clear();
    m_page->showDialog(ClWidgetStreamSetting::eDialogType::Rec);
    QCOMPARE(sent(), (Sent{{REC.setSize, QSize(1920, 1080)}}));
}

void StreamSettingPageTest::aSecondClickOnTheSameButtonIsIgnoredMeanwhile() {
    QTest::mouseDClick(button(REC), Qt::LeftButton);
    click(REC);
    QCOMPARE(sent(), (Sent{{REC.getSize, QVariant()}}));
    receive(REC.sizeAnswer, QSize(640, 480));
    click(REC);
    QCOMPARE(sent(), (Sent{{REC.getSize, QVariant()}, {REC.getRate, QVariant()}}));
    receive(REC.rateAnswer, 30U);
    receive(REC.rateAnswer, 30U);
    QCOMPARE(m_user->texts(), QStringList{REC_DIALOG});
    click(REC);
    QCOMPARE(sent().last().first, REC.getSize);
}

void StreamSettingPageTest::aClickOnTheOtherButtonTakesItsPlace() {
    click(REC);
    receive(REC.sizeAnswer, QSize(1280, 720));
    click(LIVE);
    receive(REC.rateAnswer, 30U);
    receive(LIVE.sizeAnswer, QSize(800, 480));
    receive(LIVE.rateAnswer, 10U);
    QCOMPARE(m_user->texts(), QStringList{LIVE_DIALOG});
    QCOMPARE(sent(), (Sent{{REC.getSize, QVariant()},
                           {REC.getRate, QVariant()},
                           {LIVE.getSize, QVariant()},
                           {LIVE.getRate, QVariant()}}));
}

void StreamSettingPageTest::anAnswerThatWasNotAskedForOpensNothing_data() {
    QTest::addColumn<QList<QUuid>>("answers");
    QTest::newRow("size") << QList<QUuid>{REC.sizeAnswer};
    QTest::newRow("rate") << QList<QUuid>{REC.rateAnswer};
    QTest::newRow("size and rate") << QList<QUuid>{REC.sizeAnswer, REC.rateAnswer};
    QTest::newRow("live rate") << QList<QUuid>{LIVE.rateAnswer};
    QTest::newRow("live size and rate") << QList<QUuid>{LIVE.sizeAnswer, LIVE.rateAnswer};
    QTest::newRow("another page's") << QList<QUuid>{USB_RES_NUBO_CMD_GET_FWVERSION};
    QTest::newRow("none") << QList<QUuid>{QUuid()};
}

void StreamSettingPageTest::anAnswerThatWasNotAskedForOpensNothing() {
    QFETCH(QList<QUuid>, answers);
    for (const QUuid& answer : answers) {
        receive(answer, 15U);
    }
    QVERIFY(m_user->boxes().isEmpty());
    QVERIFY(m_sent->isEmpty());
    // Neither while the page waits for another one.
    click(LIVE);
    for (const QUuid& answer : answers) {
        if (answer != LIVE.sizeAnswer) {
            receive(answer, 15U);
        }
    }
    QCOMPARE(sent(), (Sent{{LIVE.getSize, QVariant()}}));
    receive(LIVE.sizeAnswer, QSize(800, 480));
    m_user->setAction([&](QWidget& box) {
        QCOMPARE(DialogControls(box).values(),
                 (QStringList{u"Fine(800x480)"_s, u"10 sheets(10fps)"_s}));
        rejectBox(box);
    });
    receive(LIVE.rateAnswer, 10U);
    QCOMPARE(m_user->texts(), QStringList{LIVE_DIALOG});
}

void StreamSettingPageTest::showingThePageAgainAbandonsAChain() {
    click(REC);
    receive(REC.sizeAnswer, QSize(1280, 720));
    m_page->showInit(false);
    receive(REC.rateAnswer, 30U);
    QVERIFY(m_user->boxes().isEmpty());
    m_sent->clear();
    click(REC);
    QCOMPARE(sent(), (Sent{{REC.getSize, QVariant()}}));
}

void StreamSettingPageTest::leavingThePageCancelsAnOpenDialog() {
    bool isClosed = false;
    m_user->setAction([&](QWidget& box) {
        DialogControls(box).click(u"Economy(640x480)"_s);
        m_page->hide();
        isClosed = !box.isVisible();
        m_page->show();
    });
    read(REC, QSize(1280, 720), 30U);
    QVERIFY(isClosed);
    QCOMPARE(m_sent->size(), 2);
}

const TestSubject registered = subjectWithWidgets<StreamSettingPageTest>();
#include "StreamSettingPageTest.moc"
