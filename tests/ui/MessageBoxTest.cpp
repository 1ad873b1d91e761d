// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/ui/Modal.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ClDialogBase.h"
#include "ui/ClMessageBox.h"

#include <QApplication>
#include <QLabel>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>

using namespace Qt::StringLiterals;

using Buttons = QDialogButtonBox::StandardButtons;

namespace {

QStringList buttonTexts(const ClMessageBox& box) {
    QStringList texts;
    for (const auto* const button : box.findChildren<QPushButton*>()) {
        texts.append(button->text());
    }
    texts.sort();
    return texts;
}

/// The order of a desktop's buttons.
class DesktopStyle : public QProxyStyle {
public:
    explicit DesktopStyle(int layout) : m_layout(layout) {}

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        return hint == SH_DialogButtonLayout
                   ? m_layout
                   : QProxyStyle::styleHint(hint, option, widget, returned);
    }

private:
    int m_layout;
};

QPushButton* button(const QDialog& box, const QString& text) {
    const auto buttons = box.findChildren<QPushButton*>();
    const auto found = std::ranges::find(buttons, text, &QPushButton::text);
    return found == buttons.end() ? nullptr : *found;
}

}  // namespace

/// The message box of the tool.
class MessageBoxTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void showsTextAndTitle();
    void isADialogOfTheUsualKind();
    void choosesItsButtons_data();
    void choosesItsButtons();
    void looksTheButtonTextsUpInItsContext();
    void isAnsweredByItsButtons_data();
    void isAnsweredByItsButtons();
    void isRejectedWithoutAnAnswer();
    void returnAcceptsUnlessRejectingIsPreferred_data();
    void returnAcceptsUnlessRejectingIsPreferred();
    void whatCannotBeRejectedIsAccepted();
    void centresTextAndButtons();
    void isAsLargeAsItsTextNeeds();
    void isNeverNarrowerThanADialog();
};

void MessageBoxTest::showsTextAndTitle() {
    const ClMessageBox box(nullptr, u"All data delete on SD card"_s, u"Title"_s,
                           QDialogButtonBox::Ok);
    QCOMPARE(box.windowTitle(), u"Title"_s);
    QCOMPARE(box.findChildren<QLabel*>().size(), 1);
    QCOMPARE(box.findChild<QLabel*>()->text(), u"All data delete on SD card"_s);
}

void MessageBoxTest::isADialogOfTheUsualKind() {
    QWidget parent;
    const ClMessageBox box(&parent, u"text"_s, u"title"_s, QDialogButtonBox::Ok);
    QCOMPARE(box.parentWidget(), &parent);
    QVERIFY(box.isWindow());
    QCOMPARE(box.windowFlags() & ClDialogBase::WINDOW_FLAGS, ClDialogBase::WINDOW_FLAGS);
    QCOMPARE(box.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(box.minimumWidth(), 170);
    QCOMPARE(qobject_cast<QVBoxLayout*>(box.layout())->spacing(), 15);
}

void MessageBoxTest::choosesItsButtons_data() {
    QTest::addColumn<Buttons>("asked");
    QTest::addColumn<QStringList>("shown");  // sorted: the platform orders them
    using Box = QDialogButtonBox;
    QTest::newRow("OK and Cancel")
        << Buttons(Box::Ok | Box::Cancel) << QStringList{u"Cancel"_s, u"OK"_s};
    QTest::newRow("Yes and No") << Buttons(Box::Yes | Box::No) << QStringList{u"No"_s, u"Yes"_s};
    QTest::newRow("OK before Yes") << Buttons(Box::Ok | Box::Yes) << QStringList{u"OK"_s};
    QTest::newRow("Cancel before No") << Buttons(Box::Cancel | Box::No) << QStringList{u"Cancel"_s};
    QTest::newRow("OK") << Buttons(Box::Ok) << QStringList{u"OK"_s};
    QTest::newRow("all four") << Buttons(Box::Ok | Box::Yes | Box::Cancel | Box::No)
                              << QStringList{u"Cancel"_s, u"OK"_s};
    QTest::newRow("Yes and Cancel")
        << Buttons(Box::Yes | Box::Cancel) << QStringList{u"Cancel"_s, u"Yes"_s};
    QTest::newRow("others are ignored")
        << Buttons(Box::Save | Box::Help | Box::Close) << QStringList();
}

void MessageBoxTest::choosesItsButtons() {
    QFETCH(Buttons, asked);
    QFETCH(QStringList, shown);
    QCOMPARE(buttonTexts(ClMessageBox(nullptr, u"text"_s, u"title"_s, asked)), shown);
}

void MessageBoxTest::looksTheButtonTextsUpInItsContext() {
    const TaggingTranslator translator;
    using Box = QDialogButtonBox;
    QCOMPARE(buttonTexts(ClMessageBox(nullptr, {}, {}, Box::Ok | Box::Cancel)),
             (QStringList{u"ClMessageBox|Cancel"_s, u"ClMessageBox|OK"_s}));
    QCOMPARE(buttonTexts(ClMessageBox(nullptr, {}, {}, Box::Yes | Box::No)),
             (QStringList{u"ClMessageBox|No"_s, u"ClMessageBox|Yes"_s}));
}

void MessageBoxTest::isAnsweredByItsButtons_data() {
    QTest::addColumn<Buttons>("asked");
    QTest::addColumn<QString>("clicked");
    QTest::addColumn<int>("result");
    const Buttons okCancel = QDialogButtonBox::Ok | QDialogButtonBox::Cancel;
    const Buttons yesNo = QDialogButtonBox::Yes | QDialogButtonBox::No;
    QTest::newRow("OK") << okCancel << u"OK"_s << int(QDialog::Accepted);
    QTest::newRow("Cancel") << okCancel << u"Cancel"_s << int(QDialog::Rejected);
    QTest::newRow("Yes") << yesNo << u"Yes"_s << int(QDialog::Accepted);
    QTest::newRow("No") << yesNo << u"No"_s << int(QDialog::Rejected);
}

void MessageBoxTest::isAnsweredByItsButtons() {
    QFETCH(Buttons, asked);
    QFETCH(QString, clicked);
    QFETCH(int, result);
    ClMessageBox box(nullptr, u"text"_s, u"title"_s, asked);
    const ModalAnswer answer(
        [&](QDialog& shown) { QTest::mouseClick(button(shown, clicked), Qt::LeftButton); });
    QCOMPARE(box.exec(), result);
    QVERIFY(answer.closed());
}

void MessageBoxTest::isRejectedWithoutAnAnswer() {
    ClMessageBox box(nullptr, u"text"_s, u"title"_s, QDialogButtonBox::Ok);
    const ModalAnswer answer([](QDialog& shown) { shown.close(); });
    QCOMPARE(box.exec(), int(QDialog::Rejected));
    QVERIFY(answer.closed());
}

void MessageBoxTest::returnAcceptsUnlessRejectingIsPreferred_data() {
    QTest::addColumn<int>("layout");
    QTest::addColumn<Buttons>("asked");
    QTest::addColumn<bool>("prefersRejecting");
    for (const int layout : {QDialogButtonBox::WinLayout, QDialogButtonBox::MacLayout,
                             QDialogButtonBox::KdeLayout, QDialogButtonBox::GnomeLayout}) {
        for (const bool prefersRejecting : {false, true}) {
            const char* preferred = prefersRejecting ? "rejecting" : "accepting";
            QTest::addRow("OK and Cancel, layout %d, %s", layout, preferred)
                << layout << Buttons(QDialogButtonBox::Ok | QDialogButtonBox::Cancel)
                << prefersRejecting;
            QTest::addRow("Yes and No, layout %d, %s", layout, preferred)
                << layout << Buttons(QDialogButtonBox::Yes | QDialogButtonBox::No)
                << prefersRejecting;
        }
    }
}

void MessageBoxTest::returnAcceptsUnlessRejectingIsPreferred() {
    QFETCH(int, layout);
    QFETCH(Buttons, asked);
    QFETCH(bool, prefersRejecting);
    QApplication::setStyle(new DesktopStyle(layout));
    for (const bool isFocusAsked : {false, true}) {
        ClMessageBox box(nullptr, u"text"_s, u"title"_s, asked);
        if (prefersRejecting) {
            box.preferRejecting();
        }
        const ModalAnswer answer([&](QDialog& shown) {
            QVERIFY(QTest::qWaitForWindowActive(&shown));
            // The focused button is also the default one, and shows it.
            const auto* focused = qobject_cast<QPushButton*>(shown.focusWidget());
            QVERIFY(focused != nullptr && focused->isDefault());
            QTest::keyClick(isFocusAsked ? shown.focusWidget() : &shown, Qt::Key_Return);
        });
        QCOMPARE(box.exec(), int(prefersRejecting ? QDialog::Rejected : QDialog::Accepted));
        QVERIFY(answer.closed());
    }
}

void MessageBoxTest::whatCannotBeRejectedIsAccepted() {
    ClMessageBox box(nullptr, u"text"_s, u"title"_s, QDialogButtonBox::Ok);
    box.preferRejecting();
    const ModalAnswer answer([](QDialog& shown) { QTest::keyClick(&shown, Qt::Key_Return); });
    QCOMPARE(box.exec(), int(QDialog::Accepted));
    QVERIFY(answer.closed());
}

void MessageBoxTest::centresTextAndButtons() {
    ClMessageBox box(nullptr, u"text"_s, u"title"_s, QDialogButtonBox::Ok);
    box.show();
    QCOMPARE(box.findChild<QLabel*>()->alignment(), Qt::AlignCenter);
    for (const QWidget* const child : {static_cast<QWidget*>(box.findChild<QLabel*>()),
                                       static_cast<QWidget*>(box.findChild<QDialogButtonBox*>())}) {
        QCOMPARE(child->width(), child->sizeHint().width());
        QVERIFY(qAbs(child->geometry().center().x() - box.rect().center().x()) <= 1);
    }
    QVERIFY(box.findChild<QLabel*>()->geometry().bottom() <
            box.findChild<QDialogButtonBox*>()->y());
}

void MessageBoxTest::isAsLargeAsItsTextNeeds() {
    // Wider than the part of a small screen that the toolkit grants a new window.
    QString text;
    const QFontMetrics metrics((QFont()));
    while (metrics.horizontalAdvance(text) < qApp->primaryScreen()->size().width() * 3 / 4) {
        text += u"camera "_s;
    }
    ClMessageBox box(nullptr, text, u"title"_s, QDialogButtonBox::Ok);
    box.show();
    const auto* const label = box.findChild<QLabel*>();
    QVERIFY(label->width() >= label->sizeHint().width());
    QVERIFY(box.rect().contains(label->geometry()));
}

void MessageBoxTest::isNeverNarrowerThanADialog() {
    ClMessageBox box(nullptr, u"i"_s, u"title"_s, {});
    box.show();
    QCOMPARE(box.width(), 170);
}

const TestSubject registered = subjectWithWidgets<MessageBoxTest>();
#include "MessageBoxTest.moc"
