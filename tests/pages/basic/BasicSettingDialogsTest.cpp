// SPDX-License-Identifier: MIT
#include "pages/basic/BasicSettingRows.h"
#include "pages/basic/ClWidgetBasicSetting.h"
#include "tests/pages/basic/BasicSettingMessages.h"
#include "tests/support/BoxUser.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"
#include "ui/ClDialogBase.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// The values of a message with their types, which an equal variant may lack.
QStringList typedValues(const VX_CMD& message) {
    QStringList values;
    for (auto it = message.begin(); it != message.end(); ++it) {
        if (it.key() != u"Sender"_s) {
            values.append(
                u"%1: %2 %3"_s.arg(it.key(), QString::fromLatin1(it->typeName()), it->toString()));
        }
    }
    return values;
}

QList<QStringList> typedValues(const QList<VX_CMD>& messages) {
    QList<QStringList> values;
    for (const VX_CMD& message : messages) {
        values.append(typedValues(message));
    }
    return values;
}

}  // namespace

/// The rows of the basic settings page, from the click to what is sent. The page stands alone; the
/// camera's answers are fed in by hand.
class BasicSettingDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup();

    void everyRowHasItsCase();
    void aClickReadsAndTheAnswerOpensTheDialog_data();
    void aClickReadsAndTheAnswerOpensTheDialog();
    void anAcceptedDialogSendsItsValues_data();
    void anAcceptedDialogSendsItsValues();
    void aDeclinedDialogSendsNothing_data();
    void aDeclinedDialogSendsNothing();
    void anImpossibleTimeIsSentAsItIs();
    void valuesThatAreMissingCountAsNothing_data();
    void valuesThatAreMissingCountAsNothing();
    void twoClicksOpenOneDialog_data();
    void twoClicksOpenOneDialog();
    void anotherRowsDialogWaitsUntilTheFirstIsClosed();
    void anErrorWaitsUntilTheDialogIsClosed();
    void interleavedReadsKeepTheirValuesApart();
    void anAnswerToAnotherPageOpensNothing();
    void aPageThatIsLeftSendsNothingAndOpensNothingMore();
    void thePageIsWholeAfterItWasLeftBehindADialog();

private:
    void click(const QString& button) const;
    void click(const stBasicSettingCase& row) const { click(row.button); }
    void answer(const stBasicSettingCase& row) const;
    [[nodiscard]] QList<VX_CMD> sent() const;

    std::unique_ptr<ClWidgetBasicSetting> m_page;
    std::unique_ptr<QSignalSpy> m_sent;
    std::unique_ptr<BoxUser> m_user;
    QStringList m_classes;  ///< of the dialogs that opened
};

void BasicSettingDialogsTest::init() {
    m_page = std::make_unique<ClWidgetBasicSetting>(nullptr);
    m_sent = std::make_unique<QSignalSpy>(m_page.get(), &ClWidgetBase::sigSendCommand);
    m_classes.clear();
    m_user = std::make_unique<BoxUser>([this](QWidget& box) {
        m_classes.append(QString::fromLatin1(box.metaObject()->className()));
        acceptBox(box);
    });
    m_page->resize(600, 505);
    m_page->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_page.get()));
}

void BasicSettingDialogsTest::cleanup() {
    m_user.reset();
    m_sent.reset();
    m_page.reset();
}

void BasicSettingDialogsTest::click(const QString& text) const {
    const QList<QPushButton*> buttons = m_page->findChildren<QPushButton*>();
    for (QPushButton* const button : buttons) {
        if (button->text() == text || (text.isEmpty() && button == buttons.first())) {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL("The page has no such button.");
}

void BasicSettingDialogsTest::answer(const stBasicSettingCase& row) const {
    for (const VX_CMD& message : row.answers) {
        m_page->slotReceiveCommand(message);
    }
}

QList<VX_CMD> BasicSettingDialogsTest::sent() const {
    QList<VX_CMD> messages;
    for (const QVariantList& arguments : std::as_const(*m_sent)) {
        messages.append(arguments.first().toMap());
    }
    return messages;
}

namespace {

void addCases() {
    QTest::addColumn<int>("index");
    const QList<stBasicSettingCase> rows = basicSettingCases();
    for (int i = 0; i < rows.size(); ++i) {
        QTest::newRow(rows[i].name) << i;
    }
}

}  // namespace

void BasicSettingDialogsTest::everyRowHasItsCase() {
    const QList<stBasicSettingCase> cases = basicSettingCases();
    for (const stBasicSettingRow& row : basicSettingRows()) {
        const QString text = QString::fromLatin1(row.text);
        QVERIFY2(std::ranges::find(cases, text, &stBasicSettingCase::button) != cases.end(),
                 qPrintable(text));
    }
}

void BasicSettingDialogsTest::aClickReadsAndTheAnswerOpensTheDialog_data() {
    addCases();
}

void BasicSettingDialogsTest::aClickReadsAndTheAnswerOpensTheDialog() {
    QFETCH(int, index);
    const stBasicSettingCase row = basicSettingCases().at(index);
    QStringList shown;
    QWidget* parent = nullptr;
    m_user->setAction([&](QWidget& dialog) {
        QVERIFY(qobject_cast<ClDialogBase*>(&dialog) != nullptr);
        QCOMPARE(dialog.metaObject()->className(), row.dialog);
        QCOMPARE(dialog.windowTitle(), u"Test program"_s);
        parent = dialog.parentWidget();
        shown = DialogControls(dialog).values();
        rejectBox(dialog);
    });
    click(row);
    for (qsizetype i = 0; i < row.reads.size(); ++i) {
        QVERIFY(m_user->boxes().isEmpty());
        QCOMPARE(typedValues(sent()), typedValues(row.reads.first(i + 1)));
        m_page->slotReceiveCommand(row.answers[i]);
    }
    QCOMPARE(m_user->boxes().size(), 1);
    QCOMPARE(parent, m_page.get());
    QCOMPARE(shown, row.shown);
    QCOMPARE(m_sent->size(), row.reads.size());
    for (const VX_CMD& message : sent()) {
        QCOMPARE(message.value(u"Sender"_s).value<QObject*>(), m_page.get());
    }
}

void BasicSettingDialogsTest::anAcceptedDialogSendsItsValues_data() {
    addCases();
}

void BasicSettingDialogsTest::anAcceptedDialogSendsItsValues() {
    QFETCH(int, index);
    const stBasicSettingCase row = basicSettingCases().at(index);
    click(row);
    answer(row);
    QCOMPARE(m_classes, QStringList{QString::fromLatin1(row.dialog)});
    QCOMPARE(typedValues(sent()), typedValues(row.reads + row.writes));
}

void BasicSettingDialogsTest::aDeclinedDialogSendsNothing_data() {
    addCases();
}

void BasicSettingDialogsTest::aDeclinedDialogSendsNothing() {
    QFETCH(int, index);
    const stBasicSettingCase row = basicSettingCases().at(index);
    const auto close = [](QWidget& box) { box.close(); };
    for (const BoxUser::Action& decline :
         {BoxUser::Action(rejectBox), BoxUser::Action(escapeBox), BoxUser::Action(close)}) {
        m_user->setAction(decline);
        click(row);
        answer(row);
    }
    QCOMPARE(m_user->boxes().size(), 3);
    QCOMPARE(typedValues(sent()), typedValues(row.reads + row.reads + row.reads));
}

void BasicSettingDialogsTest::anImpossibleTimeIsSentAsItIs() {
    m_user->setAction([](QWidget& dialog) {
        DialogControls(dialog).fill(1, u"2"_s);
        DialogControls(dialog).fill(2, u"31"_s);
        acceptBox(dialog);
    });
    m_page->slotReceiveCommand(
        valuesMessage(USB_RES_NUBO_CMD_GET_TIME, {QDateTime({2014, 3, 9}, {7, 5, 1})}));
    QCOMPARE(m_sent->size(), 1);
    const QVariant time = sent().first().value(u"PARAM2"_s);
    QCOMPARE(time.typeId(), QMetaType::QDateTime);
    QVERIFY(!time.toDateTime().isValid());
}

void BasicSettingDialogsTest::valuesThatAreMissingCountAsNothing_data() {
    addCases();
}

void BasicSettingDialogsTest::valuesThatAreMissingCountAsNothing() {
    QFETCH(int, index);
    const stBasicSettingCase row = basicSettingCases().at(index);
    m_user->setAction(rejectBox);
    click(row);
    for (const VX_CMD& message : row.answers) {
        m_page->slotReceiveCommand({{u"CMD"_s, message.value(u"CMD"_s)}});
    }
    QCOMPARE(m_user->boxes().size(), 1);
}

void BasicSettingDialogsTest::twoClicksOpenOneDialog_data() {
    addCases();
}

void BasicSettingDialogsTest::twoClicksOpenOneDialog() {
    QFETCH(int, index);
    const stBasicSettingCase row = basicSettingCases().at(index);
    m_user->setAction([&](QWidget& box) {
        answer(row);
        acceptBox(box);
    });
    click(row);
    click(row);
    m_sent->clear();
    answer(row);
    QCOMPARE(m_user->boxes().size(), 1);
    QCOMPARE(typedValues(sent().last(row.writes.size())), typedValues(row.writes));

    // The page is ready for the next click.
    click(row);
    answer(row);
    QCOMPARE(m_user->boxes().size(), 2);
}

void BasicSettingDialogsTest::anotherRowsDialogWaitsUntilTheFirstIsClosed() {
    m_user->setAction([this](QWidget& box) {
        m_classes.append(QString::fromLatin1(box.metaObject()->className()));
        if (m_classes.size() == 1) {
            m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_IMAGE_QUARITY, {3U}));
            m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_WIFIMODE, {1U}));
            QVERIFY(box.isVisible());
            QVERIFY(m_sent->isEmpty());
        }
        acceptBox(box);
    });
    m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_LED_START, {true}));
    QCOMPARE(m_classes, (QStringList{u"ClDialogLed"_s, u"ClDialogImageQuarity"_s}));
    QCOMPARE(typedValues(sent()),
             typedValues({valuesMessage(USB_NUBO_CMD_SET_LED_START, {true}),
                          valuesMessage(USB_NUBO_CMD_SET_IMAGE_QUARITY, {3U}),
                          valuesMessage(USB_REQ_NUBO_CMD_GET_WIFI_COUNTRY, {})}));
}

void BasicSettingDialogsTest::anErrorWaitsUntilTheDialogIsClosed() {
    m_user->setAction([this](QWidget& box) {
        m_classes.append(QString::fromLatin1(box.metaObject()->className()));
        if (m_classes.size() == 1) {
            VX_CMD error = valuesMessage(USB_CMD_ERROR, {USB_REQ_NUBO_CMD_GET_GPSSETTING});
            error.insert(u"PARAM3"_s, QVariant::fromValue<unsigned short>(0xEF03));
            m_page->slotReceiveCommand(error);
        }
        acceptBox(box);
    });
    m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_LED_START, {true}));
    QCOMPARE(m_classes, (QStringList{u"ClDialogLed"_s, u"ClMessageBox"_s}));
    QCOMPARE(m_user->texts().last(), u"Exec failed, unknown error"_s);
}

void BasicSettingDialogsTest::interleavedReadsKeepTheirValuesApart() {
    QList<QStringList> shown;
    m_user->setAction([&](QWidget& box) {
        shown.append(DialogControls(box).values());
        rejectBox(box);
    });
    m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_WIFIMODE, {1U}));
    m_page->slotReceiveCommand(
        valuesMessage(USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_USE, {true}));
    m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_WIFI_COUNTRY, {4}));
    m_page->slotReceiveCommand(
        valuesMessage(USB_RES_NUBO_CMD_GET_STREAM_AUTHORIZATION_PASSWORD, {u"lantern"_s}));
    QCOMPARE(shown,
             (QList<QStringList>{{u"Auto"_s}, {u"Use authorization"_s, u""_s, u""_s, u""_s}}));
}

void BasicSettingDialogsTest::anAnswerToAnotherPageOpensNothing() {
    QObject otherPage;
    VX_CMD answer = valuesMessage(USB_RES_NUBO_CMD_GET_WIFIMODE, {1U});
    answer.insert(u"Sender"_s, QVariant::fromValue(&otherPage));
    m_page->slotReceiveCommand(answer);
    QVERIFY(m_sent->isEmpty());
    answer.insert(u"Sender"_s, QVariant::fromValue<QObject*>(m_page.get()));
    m_page->slotReceiveCommand(answer);
    QCOMPARE(m_sent->size(), 1);
}

void BasicSettingDialogsTest::aPageThatIsLeftSendsNothingAndOpensNothingMore() {
    m_user->setAction([this](QWidget& box) {
        m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_IMAGE_QUARITY, {3U}));
        m_page->hide();
        QVERIFY(!box.isVisible());
    });
    m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_LED_START, {true}));
    QCOMPARE(m_user->boxes().size(), 1);
    QVERIFY(m_sent->isEmpty());
}

void BasicSettingDialogsTest::thePageIsWholeAfterItWasLeftBehindADialog() {
    m_user->setAction([this](QWidget& box) {
        m_page->hide();
        m_page->show();
        m_page->showInit(false);
        m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_CAMERANAME, {u"Tern"_s}));
        QVERIFY(!box.isVisible());
    });
    click(QString());
    m_page->slotReceiveCommand(valuesMessage(USB_RES_NUBO_CMD_GET_CAMERANAME, {u"Gull"_s}));
    // The name of the camera that came belongs on the button; that of the one that left is not set.
    QCOMPARE(m_user->boxes().size(), 1);
    QCOMPARE(m_page->findChild<QPushButton*>()->text(), u"Tern"_s);
    QCOMPARE(typedValues(sent()),
             typedValues({valuesMessage(USB_REQ_NUBO_CMD_GET_CAMERANAME, {}),
                          valuesMessage(USB_REQ_NUBO_CMD_GET_CAMERANAME, {})}));
}

const TestSubject registered = subjectWithWidgets<BasicSettingDialogsTest>();
#include "BasicSettingDialogsTest.moc"
