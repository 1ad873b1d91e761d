// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "ui/ClDialogBase.h"
#include "ui/ClDialogColumn.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

/// A dialog that says @p text.
std::unique_ptr<ClDialogBase> createDialog(const QString& text) {
    auto dialog = std::make_unique<ClDialogBase>();
    (new ClDialogColumn(dialog.get()))->addWidget(new QLabel(text, dialog.get()));
    dialog->addButtons();
    return dialog;
}

}  // namespace

/// The column that a dialog's controls stand in.
class DialogColumnTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void bearsTheMarginsAndTheSpacingOfAllDialogs();
    void aShortTextLeavesTheLeastWidth();
    void aLongTextIsWhollySeenOnASmallScreen();
    void theDialogFollowsItsControls();
    void theUserCannotResizeTheDialog();
};

void DialogColumnTest::bearsTheMarginsAndTheSpacingOfAllDialogs() {
    const auto dialog = createDialog(u"text"_s);
    QCOMPARE(dialog->layout()->contentsMargins(), QMargins(16, 16, 16, 16));
    QCOMPARE(dialog->layout()->spacing(), 14);
}

void DialogColumnTest::aShortTextLeavesTheLeastWidth() {
    const auto dialog = createDialog(u"i"_s);
    dialog->findChild<QDialogButtonBox*>()->hide();
    dialog->show();
    QCOMPARE(dialog->width(), 170);
    QVERIFY(dialog->rect().contains(dialog->findChild<QLabel*>()->geometry()));
}

void DialogColumnTest::aLongTextIsWhollySeenOnASmallScreen() {
    QString text;
    const QFontMetrics metrics((QFont()));
    while (metrics.horizontalAdvance(text) < qApp->primaryScreen()->size().width() * 3 / 4) {
        text += u"camera "_s;
    }
    const auto dialog = createDialog(text);
    dialog->show();
    const auto* const label = dialog->findChild<QLabel*>();
    QVERIFY(label->width() >= label->sizeHint().width());
    QVERIFY(dialog->rect().contains(label->geometry()));
}

void DialogColumnTest::theDialogFollowsItsControls() {
    const auto dialog = createDialog(u"text\ntext\ntext"_s);
    dialog->show();
    const int before = dialog->height();
    dialog->findChild<QLabel*>()->setText(u"text"_s);
    TRY_VERIFY(dialog->height() < before);
    QCOMPARE(dialog->size(), dialog->layout()->sizeHint());
}

void DialogColumnTest::theUserCannotResizeTheDialog() {
    const auto dialog = createDialog(u"text"_s);
    dialog->show();
    QCOMPARE(dialog->minimumSize(), dialog->size());
    QCOMPARE(dialog->maximumSize(), dialog->size());
}

const TestSubject registered = subjectWithWidgets<DialogColumnTest>();
#include "DialogColumnTest.moc"
