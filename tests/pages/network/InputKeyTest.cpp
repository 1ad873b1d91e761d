// SPDX-License-Identifier: MIT
#include "pages/network/ClDialogInputKey.h"
#include "tests/support/BoxUser.h"
#include "tests/support/PageUser.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/TaggingTranslator.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

/// The dialog that asks for an encryption key.
class InputKeyTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init() { open(true); }
    void cleanup();

    void showsItsPartsInOrder();
    void itsTextsAreTheNetworkPages();
    void takesTheKeyAtOnce();
    void refusesOtherCharacters();
    void takesLettersAndDigitsOfAnyLength();
    void hidesTheKeyUntilItIsToBeShown();
    void holdsTheKeyInItsParameters();

    void enterAccepts();
    void okAccepts();
    void cancelAndEscapeReject();
    void anEmptyKeyIsRefused();
    void anEmptyKeyMayBeAllowed();

private:
    void open(bool mustInput);
    [[nodiscard]] QLineEdit* edit() const { return m_dialog->findChild<QLineEdit*>(); }
    void click(const QString& text) const { PageUser(*m_dialog).click(text); }

    std::unique_ptr<QWidget> m_page;
    std::unique_ptr<ClDialogInputKey> m_dialog;
    std::unique_ptr<QSignalSpy> m_finished;
};

void InputKeyTest::open(bool mustInput) {
    cleanup();
    m_page = std::make_unique<QWidget>();
    m_page->show();
    m_dialog = std::make_unique<ClDialogInputKey>(m_page.get(), mustInput);
    m_finished = std::make_unique<QSignalSpy>(m_dialog.get(), &QDialog::finished);
    m_dialog->show();
    m_dialog->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void InputKeyTest::cleanup() {
    m_finished.reset();
    m_dialog.reset();
    m_page.reset();
}

void InputKeyTest::showsItsPartsInOrder() {
    const auto* column = qobject_cast<QVBoxLayout*>(m_dialog->layout());
    QVERIFY(column != nullptr);
    QCOMPARE(column->count(), 4);
    const auto* prompt = qobject_cast<QLabel*>(column->itemAt(0)->widget());
    QVERIFY(prompt != nullptr);
    QCOMPARE(prompt->text(), u"Input the encryption key of AP"_s);
    QCOMPARE(column->itemAt(1)->widget(), edit());
    const auto* show = qobject_cast<QCheckBox*>(column->itemAt(2)->widget());
    QVERIFY(show != nullptr);
    QCOMPARE(show->text(), u"Show input"_s);
    QVERIFY(!show->isChecked());
    QVERIFY(qobject_cast<QDialogButtonBox*>(column->itemAt(3)->widget()) != nullptr);
    QCOMPARE(m_dialog->windowTitle(), u"Test program"_s);
}

void InputKeyTest::itsTextsAreTheNetworkPages() {
    const TaggingTranslator translator;
    ClDialogInputKey dialog(nullptr, true);
    QCOMPARE(dialog.findChild<QLabel*>()->text(),
             u"ClWidgetNetworkSetting|Input the encryption key of AP"_s);
    QCOMPARE(dialog.findChild<QCheckBox*>()->text(), u"ClWidgetNetworkSetting|Show input"_s);
    BoxUser user;
    dialog.accept();
    QCOMPARE(user.texts(), QStringList{u"ClWidgetNetworkSetting|Not input key"_s});
}

void InputKeyTest::takesTheKeyAtOnce() {
    QVERIFY(edit()->hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), u"aZ09"_s);
    QCOMPARE(m_dialog->getParam(), QVariantList{u"aZ09"_s});
}

void InputKeyTest::refusesOtherCharacters() {
    QTest::keyClicks(edit(), u"key1"_s);
    for (char16_t character = u' '; character <= u'~'; ++character) {
        if (!QChar(character).isLetterOrNumber()) {
            QTest::keyClicks(edit(), QString(QChar(character)));
        }
    }
    for (const QChar character : u"\u00e9\u00fc\u0661\uff11"_s) {
        QKeyEvent press(QEvent::KeyPress, Qt::Key_unknown, {}, character);
        QApplication::sendEvent(edit(), &press);
    }
    QCOMPARE(edit()->text(), u"key1"_s);
    QCOMPARE(edit()->cursorPosition(), 4);
}

void InputKeyTest::takesLettersAndDigitsOfAnyLength() {
    const QString all =
        u"0123456789abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ"_s.repeated(3);
    QTest::keyClicks(edit(), all);
    QCOMPARE(m_dialog->getParam(), QVariantList{all});
}

void InputKeyTest::hidesTheKeyUntilItIsToBeShown() {
    QCOMPARE(edit()->echoMode(), QLineEdit::Password);
    auto* const show = m_dialog->findChild<QCheckBox*>();
    QTest::mouseClick(show, Qt::LeftButton, {}, {8, show->height() / 2});
    QCOMPARE(edit()->echoMode(), QLineEdit::Normal);
    QTest::keyClick(show, Qt::Key_Space);
    QCOMPARE(edit()->echoMode(), QLineEdit::Password);
}

void InputKeyTest::holdsTheKeyInItsParameters() {
    m_dialog->setParam({u"first"_s, u"second"_s});
    QCOMPARE(edit()->text(), u"first"_s);
    m_dialog->setParam({});
    QCOMPARE(m_dialog->getParam(), QVariantList{u"first"_s});
}

void InputKeyTest::enterAccepts() {
    QTest::keyClicks(edit(), u"key1"_s);
    QTest::keyClick(edit(), Qt::Key_Return);
    QCOMPARE(*m_finished, (QList<QVariantList>{{QDialog::Accepted}}));
}

void InputKeyTest::okAccepts() {
    QTest::keyClicks(edit(), u"key1"_s);
    click(u"OK"_s);
    QCOMPARE(*m_finished, (QList<QVariantList>{{QDialog::Accepted}}));
    QVERIFY(m_dialog->isHidden());
}

void InputKeyTest::cancelAndEscapeReject() {
    QTest::keyClicks(edit(), u"key1"_s);
    click(u"Cancel"_s);
    QCOMPARE(*m_finished, (QList<QVariantList>{{QDialog::Rejected}}));
    open(true);
    QTest::keyClick(edit(), Qt::Key_Escape);
    QCOMPARE(*m_finished, (QList<QVariantList>{{QDialog::Rejected}}));
}

void InputKeyTest::anEmptyKeyIsRefused() {
    BoxUser user;
    click(u"OK"_s);
    QTest::keyClick(edit(), Qt::Key_Return);
    const stModalBox refusal{u"Test program"_s, u"Not input key"_s, {u"OK"_s}, m_dialog.get()};
    QCOMPARE(user.boxes(), (QList{refusal, refusal}));
    QVERIFY(m_finished->isEmpty());
    QVERIFY(m_dialog->isVisible());

    QTest::keyClicks(edit(), u"1"_s);
    click(u"OK"_s);
    QCOMPARE(*m_finished, (QList<QVariantList>{{QDialog::Accepted}}));
}

void InputKeyTest::anEmptyKeyMayBeAllowed() {
    open(false);
    const BoxUser user;
    click(u"OK"_s);
    QCOMPARE(*m_finished, (QList<QVariantList>{{QDialog::Accepted}}));
    QCOMPARE(m_dialog->getParam(), QVariantList{QString()});
    QVERIFY(user.boxes().isEmpty());
}

const TestSubject registered = subjectWithWidgets<InputKeyTest>();
#include "InputKeyTest.moc"
