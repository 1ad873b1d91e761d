// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/ui/Modal.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ClDialogBase.h"
#include "ui/ClDialogColumn.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class NameDialog : public ClDialogBase {
public:
    NameDialog() : m_edit(new QLineEdit(this)) {
        (new ClDialogColumn(this))->addWidget(m_edit);
        addButtons();
    }
    void setParam(const QVariantList& params) override { m_edit->setText(params[0].toString()); }
    QVariantList getParam() override { return {m_edit->text()}; }

    QLineEdit* const m_edit;
};

QPushButton* button(const QWidget& dialog, QDialogButtonBox::ButtonRole role) {
    const auto* const box = dialog.findChild<QDialogButtonBox*>();
    for (QAbstractButton* const candidate : box->buttons()) {
        if (box->buttonRole(candidate) == role) {
            return qobject_cast<QPushButton*>(candidate);
        }
    }
    return nullptr;
}

}  // namespace

/// The base of the settings dialogs.
class DialogBaseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"NuBo Setting Tool"_s); }

    void bearsTheNameOfTheApplication();
    void showsNothingButACloseButtonInItsTitleBar();
    void hasAFixedSizeAndALeastWidth();
    void holdsNoParametersByDefault();
    void addsNoButtonsWithoutALayout();
    void addsItsButtonsOnce();
    void putsItsButtonsIntoTheMiddleOfTheLastRow();
    void looksTheButtonTextsUpInItsContext();
    void isAnswered_data();
    void isAnswered();
    void carriesParametersInAndOut();
};

void DialogBaseTest::bearsTheNameOfTheApplication() {
    QCOMPARE(ClDialogBase().windowTitle(), u"NuBo Setting Tool"_s);
}

void DialogBaseTest::showsNothingButACloseButtonInItsTitleBar() {
    QCOMPARE(ClDialogBase::WINDOW_FLAGS.toInt(), 0x0A000103);
    QWidget parent;
    const ClDialogBase dialog(&parent);
    QCOMPARE(dialog.windowFlags() & ClDialogBase::WINDOW_FLAGS, ClDialogBase::WINDOW_FLAGS);
    QVERIFY(!dialog.windowFlags().testAnyFlags(Qt::WindowMinMaxButtonsHint |
                                               Qt::WindowContextHelpButtonHint));
    QVERIFY(dialog.isWindow());
    QCOMPARE(dialog.parentWidget(), &parent);
}

void DialogBaseTest::hasAFixedSizeAndALeastWidth() {
    const ClDialogBase dialog;
    QCOMPARE(dialog.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(dialog.minimumWidth(), 170);
}

void DialogBaseTest::holdsNoParametersByDefault() {
    ClDialogBase dialog;
    dialog.setParam({1, 2});
    QCOMPARE(dialog.getParam(), QVariantList());
}

void DialogBaseTest::addsNoButtonsWithoutALayout() {
    ClDialogBase dialog;
    dialog.addButtons();
    QCOMPARE(dialog.findChild<QDialogButtonBox*>(), nullptr);
    // Once there is a layout, the same call works.
    const QVBoxLayout column(&dialog);
    dialog.addButtons();
    QVERIFY(dialog.findChild<QDialogButtonBox*>() != nullptr);
}

void DialogBaseTest::addsItsButtonsOnce() {
    NameDialog dialog;
    dialog.addButtons();
    QCOMPARE(dialog.findChildren<QDialogButtonBox*>().size(), 1);
    QCOMPARE(dialog.findChildren<QPushButton*>().size(), 2);
    QCOMPARE(dialog.layout()->count(), 2);
}

void DialogBaseTest::putsItsButtonsIntoTheMiddleOfTheLastRow() {
    NameDialog dialog;
    dialog.m_edit->setMinimumWidth(400);
    dialog.show();
    const auto* const box = dialog.findChild<QDialogButtonBox*>();
    QCOMPARE(dialog.layout()->itemAt(1)->widget(), box);
    QVERIFY(box->y() > dialog.m_edit->geometry().bottom());
    QVERIFY(box->width() < 300);
    QVERIFY(qAbs(box->geometry().center().x() - dialog.rect().center().x()) <= 1);
}

void DialogBaseTest::looksTheButtonTextsUpInItsContext() {
    const TaggingTranslator translator;
    const NameDialog dialog;
    QCOMPARE(button(dialog, QDialogButtonBox::AcceptRole)->text(), u"ClDialogBase|OK"_s);
    QCOMPARE(button(dialog, QDialogButtonBox::RejectRole)->text(), u"ClDialogBase|Cancel"_s);
}

void DialogBaseTest::isAnswered_data() {
    using Answer = std::function<void(QDialog&)>;
    QTest::addColumn<Answer>("how");
    QTest::addColumn<int>("result");
    QTest::newRow("OK") << Answer([](QDialog& dialog) {
        QTest::mouseClick(button(dialog, QDialogButtonBox::AcceptRole), Qt::LeftButton);
    }) << int(QDialog::Accepted);
    QTest::newRow("Cancel") << Answer([](QDialog& dialog) {
        QTest::mouseClick(button(dialog, QDialogButtonBox::RejectRole), Qt::LeftButton);
    }) << int(QDialog::Rejected);
    QTest::newRow("Enter in a field") << Answer([](QDialog& dialog) {
        QTest::keyClick(dialog.findChild<QLineEdit*>(), Qt::Key_Return);
    }) << int(QDialog::Accepted);
    QTest::newRow("Escape") << Answer([](QDialog& dialog) {
        QTest::keyClick(&dialog, Qt::Key_Escape);
    }) << int(QDialog::Rejected);
    QTest::newRow("close button of the title bar")
        << Answer([](QDialog& dialog) { dialog.close(); }) << int(QDialog::Rejected);
}

void DialogBaseTest::isAnswered() {
    QFETCH(std::function<void(QDialog&)>, how);
    QFETCH(int, result);
    NameDialog dialog;
    const ModalAnswer answer(how);
    QCOMPARE(dialog.exec(), result);
    QVERIFY(answer.closed());
}

void DialogBaseTest::carriesParametersInAndOut() {
    NameDialog dialog;
    dialog.setParam({u"nubo"_s});
    const ModalAnswer answer([&](QDialog&) {
        QTest::keyClick(dialog.m_edit, Qt::Key_End);
        QTest::keyClicks(dialog.m_edit, u"2"_s);
        QTest::keyClick(dialog.m_edit, Qt::Key_Return);
    });
    QCOMPARE(dialog.exec(), int(QDialog::Accepted));
    QCOMPARE(dialog.getParam(), QVariantList{u"nubo2"_s});
    QVERIFY(answer.closed());
}

const TestSubject registered = subjectWithWidgets<DialogBaseTest>();
#include "DialogBaseTest.moc"
