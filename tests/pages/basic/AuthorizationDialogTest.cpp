// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogAuthorization.h"
#include "tests/pages/DialogParameters.h"
#include "tests/support/BoxUser.h"
#include "tests/support/DialogControls.h"
#include "tests/support/TestSubject.h"

#include <QLineEdit>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QString EMPTY = u"There are not input value"_s;
const QString WRONG = u"Different now password"_s;
const QString UNEQUAL = u"Not same password new and check"_s;
const QString UNCHANGED = u"Not change password"_s;

}  // namespace

/// The dialog of the live stream's password.
class AuthorizationDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_dialog.reset(); }

    void loads_data();
    void loads();
    void hidesWhatIsTyped();
    void takesUpToSixteenPrintableCharacters();
    void refusesBlanksAndWhatIsNotAscii_data();
    void refusesBlanksAndWhatIsNotAscii();
    void passwordsAreAskedForWhenTheyAreUsed();
    void checksThePasswords_data();
    void checksThePasswords();
    void withoutAuthorizationNothingIsChecked_data();
    void withoutAuthorizationNothingIsChecked();
    void aMessageLeavesTheDialogOpenToGoOn();
    void tabGoesThroughThePasswords();

private:
    [[nodiscard]] DialogControls controls() const { return DialogControls(*m_dialog); }
    [[nodiscard]] QList<QLineEdit*> fields() const { return m_dialog->findChildren<QLineEdit*>(); }
    void fill(const QStringList& texts) const {
        for (int i = 0; i < texts.size(); ++i) {
            controls().fill(i, texts[i]);
        }
    }

    std::unique_ptr<ClDialogAuthorization> m_dialog;
};

void AuthorizationDialogTest::init() {
    m_dialog = std::make_unique<ClDialogAuthorization>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void AuthorizationDialogTest::loads_data() {
    QTest::addColumn<QVariantList>("params");
    QTest::addColumn<QString>("choice");
    const QString use = u"Use authorization"_s;
    const QString notUse = u"Not use authorization"_s;
    QTest::newRow("nothing") << QVariantList{} << use;
    QTest::newRow("on") << QVariantList{true} << use;
    QTest::newRow("off") << QVariantList{false} << notUse;
    QTest::newRow("on with a password") << QVariantList{true, u"secret"_s} << use;
    QTest::newRow("off with a password") << QVariantList{false, u"secret"_s} << notUse;
    QTest::newRow("wrong types") << QVariantList{QVariant(), QVariantList{}} << notUse;
}

void AuthorizationDialogTest::loads() {
    QFETCH(QVariantList, params);
    QFETCH(QString, choice);
    m_dialog->setParam(params);
    QCOMPARE(controls().values(), (QStringList{choice, {}, {}, {}}));
    const QString flag = choice.startsWith(u"Not") ? u"bool false"_s : u"bool true"_s;
    QCOMPARE(typedValues(m_dialog->getParam()), (QStringList{flag, u"QString "_s}));
}

void AuthorizationDialogTest::hidesWhatIsTyped() {
    fill({u"abc"_s, u"abc"_s, u"abc"_s});
    for (const QLineEdit* const field : fields()) {
        QCOMPARE(field->text(), u"abc"_s);
        QVERIFY(!field->displayText().contains(u'c'));
    }
}

void AuthorizationDialogTest::takesUpToSixteenPrintableCharacters() {
    const QString all = u"!\"#$%&'()*+,-./09:;<=>?@AZ[\\]^_`az{|}~"_s;
    for (int i = 0; i < 3; ++i) {
        controls().fill(i, u"!~09azAZ_-@#$%^&x"_s);
        QCOMPARE(fields()[i]->text(), u"!~09azAZ_-@#$%^&"_s);
        for (const QChar character : all) {
            controls().fill(i, QString(character));
            QCOMPARE(fields()[i]->text(), QString(character));
        }
    }
}

void AuthorizationDialogTest::refusesBlanksAndWhatIsNotAscii_data() {
    QTest::addColumn<QString>("typed");
    QTest::newRow("blank") << u" "_s;
    QTest::newRow("no-break space") << QString(QChar(0xA0));
    QTest::newRow("letter with an accent") << u"é"_s;
    QTest::newRow("Japanese letter") << u"あ"_s;
    QTest::newRow("wide letter") << u"ａ"_s;
}

void AuthorizationDialogTest::refusesBlanksAndWhatIsNotAscii() {
    QFETCH(QString, typed);
    for (QLineEdit* const field : fields()) {
        typeAtOnce(field, u"a"_s);
        typeAtOnce(field, typed);
        typeAtOnce(field, u"b"_s);
        QCOMPARE(field->text(), u"ab"_s);
    }
}

void AuthorizationDialogTest::passwordsAreAskedForWhenTheyAreUsed() {
    const auto enabled = [this] {
        QList<bool> states;
        for (const QLineEdit* const field : fields()) {
            states.append(field->isEnabled());
        }
        return states;
    };
    QCOMPARE(enabled(), QList<bool>(3, true));
    controls().click(u"Not use authorization"_s);
    QCOMPARE(enabled(), QList<bool>(3, false));
    controls().click(u"Use authorization"_s);
    QCOMPARE(enabled(), QList<bool>(3, true));
    m_dialog->setParam({false});
    QCOMPARE(enabled(), QList<bool>(3, false));
}

void AuthorizationDialogTest::checksThePasswords_data() {
    QTest::addColumn<QString>("current");
    QTest::addColumn<QStringList>("typed");  // now, new, check
    QTest::addColumn<QString>("message");    // empty: the dialog is accepted
    const QString old = u"secret"_s;
    QTest::newRow("nothing") << old << QStringList{{}, {}, {}} << EMPTY;
    QTest::newRow("no current one") << old << QStringList{{}, u"new"_s, u"new"_s} << EMPTY;
    QTest::newRow("no new one") << old << QStringList{old, {}, u"new"_s} << EMPTY;
    QTest::newRow("no repetition") << old << QStringList{old, u"new"_s, {}} << EMPTY;
    QTest::newRow("wrong, and one empty") << old << QStringList{u"x"_s, u"new"_s, {}} << EMPTY;
    QTest::newRow("wrong") << old << QStringList{u"x"_s, u"new"_s, u"new"_s} << WRONG;
    QTest::newRow("wrong case") << old << QStringList{u"Secret"_s, u"new"_s, u"new"_s} << WRONG;
    QTest::newRow("wrong and unequal") << old << QStringList{u"x"_s, u"n"_s, u"m"_s} << WRONG;
    QTest::newRow("wrong and unchanged") << old << QStringList{u"x"_s, u"x"_s, u"x"_s} << WRONG;
    QTest::newRow("unequal") << old << QStringList{old, u"new"_s, u"New"_s} << UNEQUAL;
    QTest::newRow("unequal, the new one unchanged")
        << old << QStringList{old, old, u"n"_s} << UNEQUAL;
    QTest::newRow("unchanged") << old << QStringList{old, old, old} << UNCHANGED;
    QTest::newRow("the camera has none")
        << QString() << QStringList{{}, u"new"_s, u"new"_s} << EMPTY;
    QTest::newRow("the camera has none, one is typed")
        << QString() << QStringList{old, u"new"_s, u"new"_s} << WRONG;
    QTest::newRow("right") << old << QStringList{old, u"new"_s, u"new"_s} << QString();
    QTest::newRow("right, only the case is new")
        << old << QStringList{old, u"SECRET"_s, u"SECRET"_s} << QString();
    QTest::newRow("sixteen characters")
        << u"0123456789abcdef"_s
        << QStringList{u"0123456789abcdef"_s, u"fedcba9876543210"_s, u"fedcba9876543210"_s}
        << QString();
}

void AuthorizationDialogTest::checksThePasswords() {
    QFETCH(QString, current);
    QFETCH(QStringList, typed);
    QFETCH(QString, message);
    m_dialog->setParam({true, current});
    fill(typed);
    const BoxUser user;
    controls().click(u"OK"_s);
    QCOMPARE(user.texts(), message.isEmpty() ? QStringList() : QStringList{message});
    QCOMPARE(m_dialog->isVisible(), !message.isEmpty());
    QCOMPARE(typedValues(m_dialog->getParam()),
             (QStringList{u"bool true"_s, u"QString "_s + typed[1]}));
}

void AuthorizationDialogTest::withoutAuthorizationNothingIsChecked_data() {
    QTest::addColumn<QStringList>("typed");
    QTest::newRow("nothing") << QStringList{{}, {}, {}};
    QTest::newRow("unequal") << QStringList{u"x"_s, u"new"_s, u"other"_s};
    QTest::newRow("unchanged") << QStringList{u"secret"_s, u"secret"_s, u"secret"_s};
}

void AuthorizationDialogTest::withoutAuthorizationNothingIsChecked() {
    QFETCH(QStringList, typed);
    m_dialog->setParam({true, u"secret"_s});
    fill(typed);
    controls().click(u"Not use authorization"_s);
    const BoxUser user;
    controls().click(u"OK"_s);
    QCOMPARE(user.texts(), QStringList());
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(typedValues(m_dialog->getParam()),
             (QStringList{u"bool false"_s, u"QString "_s + typed[1]}));
}

void AuthorizationDialogTest::aMessageLeavesTheDialogOpenToGoOn() {
    m_dialog->setParam({true, u"secret"_s});
    fill({u"secret"_s, u"new"_s, u"old"_s});
    const BoxUser user;
    QTest::keyClick(fields()[2], Qt::Key_Return);
    QCOMPARE(
        user.boxes(),
        (QList<stModalBox>{{u"Test program"_s, UNEQUAL, QStringList{u"OK"_s}, m_dialog.get()}}));
    controls().fill(2, u"new"_s);
    QTest::keyClick(fields()[2], Qt::Key_Return);
    QCOMPARE(user.boxes().size(), 1);
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->getParam(), (QVariantList{true, u"new"_s}));
}

void AuthorizationDialogTest::tabGoesThroughThePasswords() {
    m_dialog->setParam({true, u"secret"_s});
    for (QLineEdit* const field : fields()) {
        QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Tab);
        QCOMPARE(m_dialog->focusWidget(), field);
    }
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Escape);
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
}

const TestSubject registered = subjectWithWidgets<AuthorizationDialogTest>();
#include "AuthorizationDialogTest.moc"
