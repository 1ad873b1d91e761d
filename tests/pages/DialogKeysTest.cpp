// SPDX-License-Identifier: MIT
#include "tests/pages/Dialogs.h"
#include "tests/support/TestSubject.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

/// What holds for the keyboard in every dialog.
class DialogKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theFirstControlHasTheFocus_data() { addDialogs(); }
    void theFirstControlHasTheFocus();
    void enterAccepts_data() { addDialogs(); }
    void enterAccepts();
    void enterAcceptsInEveryField_data() { addSettingDialogs(); }
    void enterAcceptsInEveryField();
    void enterPressesTheButtonThatHasTheFocus_data() { addDialogs(); }
    void enterPressesTheButtonThatHasTheFocus();
    void escapeDeclinesFromEveryControl_data() { addDialogs(); }
    void escapeDeclinesFromEveryControl();
    void tabFollowsTheEye_data() { addDialogs(); }
    void tabFollowsTheEye();
    void keysWorkAlikeOnEveryDesktop_data() { addDialogs(); }
    void keysWorkAlikeOnEveryDesktop();
    void showsWhereTheFocusIs_data() { addDialogs(); }
    void showsWhereTheFocusIs();

private:
    /// Opens the dialog, if it is closed, with the keyboard in @p control.
    void enter(QWidget* control);

    stDialog m_row{};
    std::unique_ptr<QDialog> m_dialog;
};

void DialogKeysTest::initTestCase() {
    // Else a picture would show the mark of a field at times.
    QApplication::setCursorFlashTime(0);
}

void DialogKeysTest::init() {
    QFETCH(int, index);
    m_row = dialogs()[index];
    m_dialog = openDialog(m_row);
}

void DialogKeysTest::cleanup() {
    m_dialog.reset();
    qApp->setStyleSheet({});
}

void DialogKeysTest::enter(QWidget* control) {
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    control->setFocus(Qt::TabFocusReason);
    QCOMPARE(m_dialog->focusWidget(), control);
}

void DialogKeysTest::theFirstControlHasTheFocus() {
    QCOMPARE(nameOf(m_dialog->focusWidget()), QString::fromLatin1(m_row.focus));
}

void DialogKeysTest::enterAccepts() {
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_Return);
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

void DialogKeysTest::enterAcceptsInEveryField() {
    for (QWidget* const stop : tabStops(*m_dialog)) {
        if (qobject_cast<QPushButton*>(stop) != nullptr) {
            continue;  // the next test's matter
        }
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
            enter(stop);
            m_dialog->setResult(QDialog::Rejected);
            QTest::keyClick(stop, key);
            QVERIFY2(m_dialog->isHidden(), qPrintable(nameOf(stop)));
            QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
        }
    }
}

void DialogKeysTest::enterPressesTheButtonThatHasTheFocus() {
    const QList<QWidget*> stops = tabStops(*m_dialog);
    for (QWidget* const stop : stops.last(m_row.buttons.size())) {
        const bool isAccepting = nameOf(stop) == m_row.buttons.first();
        const int result = isAccepting ? QDialog::Accepted : QDialog::Rejected;
        enter(stop);
        m_dialog->setResult(-1);
        QTest::keyClick(stop, Qt::Key_Return);
        QVERIFY(m_dialog->isHidden());
        QCOMPARE(m_dialog->result(), result);
    }
}

void DialogKeysTest::escapeDeclinesFromEveryControl() {
    for (QWidget* const stop : tabStops(*m_dialog)) {
        enter(stop);
        m_dialog->setResult(QDialog::Accepted);
        QTest::keyClick(stop, Qt::Key_Escape);
        QVERIFY2(m_dialog->isHidden(), qPrintable(nameOf(stop)));
        QCOMPARE(m_dialog->result(), int(QDialog::Rejected));
    }
}

void DialogKeysTest::tabFollowsTheEye() {
    const QList<QWidget*> stops = tabStops(*m_dialog);
    const auto placeOf = [this](const QWidget* stop) {
        return QRect(stop->mapTo(m_dialog.get(), QPoint()), stop->size());
    };
    QStringList stepsBack;
    QRect before = placeOf(stops.last());
    for (QWidget* const stop : stops) {
        const QRect place = placeOf(stop);
        const bool isBelow = place.top() > before.bottom();
        const bool isBeside = place.left() > before.right() && place.bottom() > before.top();
        if (!isBelow && !isBeside) {
            stepsBack.append(nameOf(stop));
        }
        before = place;
    }
    // From the last control to the first.
    QVERIFY2(stepsBack.size() == 1, qPrintable(stepsBack.join(u", "_s)));
}

void DialogKeysTest::keysWorkAlikeOnEveryDesktop() {
    // The desktops differ in the order of the buttons.
    for (const auto layout : {QDialogButtonBox::WinLayout, QDialogButtonBox::MacLayout,
                              QDialogButtonBox::KdeLayout, QDialogButtonBox::GnomeLayout}) {
        qApp->setStyleSheet(u"* { button-layout: %1 }"_s.arg(layout));
        m_dialog = openDialog(m_row);
        tabFollowsTheEye();
        m_dialog = openDialog(m_row);
        theFirstControlHasTheFocus();
        enterAccepts();
    }
}

void DialogKeysTest::showsWhereTheFocusIs() {
    QList<QImage> pictures;
    for (QWidget* const stop : tabStops(*m_dialog)) {
        enter(stop);
        const QImage picture = m_dialog->grab().toImage();
        QVERIFY2(!pictures.contains(picture), qPrintable(nameOf(stop)));
        pictures.append(picture);
    }
}

const TestSubject registered = subjectWithWidgets<DialogKeysTest>();
#include "DialogKeysTest.moc"
