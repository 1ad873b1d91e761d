// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/support/TextFit.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

/// What tests learn about texts that are cut off or lie on one another.
class MisplacedTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void findsNothingWhereEachTextHasItsPlace();
    void findsALabelThatIsTooNarrow();
    void findsALabelThatIsTooLow();
    void findsALineThatIsWrappedOutOfSight();
    void findsAButtonThatIsTooSmall();
    void findsOtherControlsThatAreTooNarrow();
    void findsTextOnText();
    void findsATextThatItsParentCutsOff();
    void findsATextBeyondTheWindow();
    void leavesAloneWhatIsElidedAndSaysAllInItsToolTip();
    void leavesAloneWhatIsHidden();
    void leavesAloneWhatCanBeScrolledIntoView();
    void leavesAloneALabelWhoseEmptyPartIsOnATextsPlace();

private:
    /// A child of the window as large as it wants to be.
    template <class Widget>
    Widget* place(Widget* widget, QPoint place) {
        widget->setParent(m_window.get());
        widget->move(place);
        widget->adjustSize();
        return widget;
    }
    QStringList complaints() {
        m_window->show();
        return misplacedTexts(*m_window);
    }

    std::unique_ptr<QWidget> m_window;
};

void MisplacedTextsTest::init() {
    m_window = std::make_unique<QWidget>();
    m_window->setFixedSize(400, 300);
}

void MisplacedTextsTest::findsNothingWhereEachTextHasItsPlace() {
    place(new QLabel(u"Harbour"_s), {10, 10});
    place(new QPushButton(u"Research"_s), {10, 40});
    place(new QLineEdit(u"192.168.10.1"_s), {10, 80});
    place(new QSpinBox, {10, 120});
    place(new QComboBox, {10, 160})->addItem(u"Japan"_s);
    m_window->findChild<QComboBox*>()->adjustSize();
    QCOMPARE(complaints(), QStringList());
}

void MisplacedTextsTest::findsALabelThatIsTooNarrow() {
    QLabel* label = place(new QLabel(u"Harbour"_s), {10, 10});
    label->setFixedWidth(label->sizeHint().width() - 1);
    QCOMPARE(complaints(), QStringList(u"'Harbour' is cut off"_s));
}

void MisplacedTextsTest::findsALabelThatIsTooLow() {
    QLabel* label = place(new QLabel(u"Harbour"_s), {10, 10});
    const int letters = label->fontMetrics().tightBoundingRect(label->text()).height();
    label->setFixedHeight(letters - 1);
    QCOMPARE(complaints(), QStringList(u"'Harbour' is cut off"_s));
    // A line is higher than its letters; what is cut off of the rest nobody sees.
    label->setFixedHeight(label->sizeHint().height() - 1);
    QCOMPARE(complaints(), QStringList());
}

void MisplacedTextsTest::findsALineThatIsWrappedOutOfSight() {
    QLabel* label = place(new QLabel(u"Harbour Workshop"_s), {10, 10});
    const int lineHeight = label->height();
    label->setWordWrap(true);
    label->resize(label->width() / 2 + 10, lineHeight);
    QCOMPARE(complaints(), QStringList(u"'Harbour Workshop' is cut off"_s));
    label->resize(label->width(), 2 * lineHeight);
    QCOMPARE(complaints(), QStringList());
}

void MisplacedTextsTest::findsAButtonThatIsTooSmall() {
    QPushButton* button = place(new QPushButton(u"AP search and setting"_s), {10, 10});
    button->setFixedWidth(button->sizeHint().width() - 1);
    QCOMPARE(complaints(), QStringList(u"'AP search and setting' is cut off"_s));
}

void MisplacedTextsTest::findsOtherControlsThatAreTooNarrow() {
    place(new QLineEdit(u"255.255.255.255"_s), {10, 10})->setFixedWidth(40);
    place(new QSpinBox, {10, 60})->setFixedWidth(12);
    auto* choice = new QComboBox;
    choice->addItem(u"Tokyo/Seoul/Yakutsk"_s);
    place(choice, {10, 110})->setFixedWidth(40);
    QCOMPARE(complaints(), QStringList({u"'255.255.255.255' is cut off"_s, u"'0' is cut off"_s,
                                        u"'Tokyo/Seoul/Yakutsk' is cut off"_s}));
}

void MisplacedTextsTest::findsTextOnText() {
    const QLabel* caption = place(new QLabel(u"Channel"_s), {10, 10});
    place(new QLabel(u"6ch"_s), {10 + caption->width() - 1, 10});
    QCOMPARE(complaints(), QStringList(u"'Channel' lies on '6ch'"_s));
}

void MisplacedTextsTest::findsATextThatItsParentCutsOff() {
    auto* panel = place(new QWidget, {10, 10});
    panel->setFixedSize(100, 30);
    auto* label = new QLabel(u"Harbour"_s, panel);
    label->adjustSize();
    label->move(101 - label->width(), 0);
    QCOMPARE(complaints(), QStringList(u"'Harbour' is cut off"_s));
    label->move(100 - label->width(), 0);
    QCOMPARE(complaints(), QStringList());
}

void MisplacedTextsTest::findsATextBeyondTheWindow() {
    place(new QLabel(u"Harbour"_s), {10, 299});
    QCOMPARE(complaints(), QStringList(u"'Harbour' is cut off"_s));
}

void MisplacedTextsTest::leavesAloneWhatIsElidedAndSaysAllInItsToolTip() {
    QLabel* label = place(new QLabel(u"Caf\u00E9 <upper deck>"_s), {10, 10});
    label->setTextFormat(Qt::PlainText);
    label->setFixedWidth(30);
    label->setToolTip(u"<span style=\"white-space:pre\">Caf\u00E9 &lt;upper deck&gt;</span>"_s);
    QCOMPARE(complaints(), QStringList());
    label->setToolTip(u"A name"_s);
    QCOMPARE(complaints(), QStringList(u"'Caf\u00E9 <upper deck>' is cut off"_s));
}

void MisplacedTextsTest::leavesAloneWhatIsHidden() {
    place(new QLabel(u"Channel"_s), {10, 10});
    place(new QLabel(u"6ch"_s), {10, 10})->hide();
    QCOMPARE(complaints(), QStringList());
}

void MisplacedTextsTest::leavesAloneWhatCanBeScrolledIntoView() {
    auto* area = new QScrollArea;
    auto* rows = new QWidget;
    auto* column = new QVBoxLayout(rows);
    for (int i = 0; i < 20; ++i) {
        column->addWidget(new QLabel(u"Row %1"_s.arg(i)));
    }
    area->setWidget(rows);
    place(area, {10, 10})->setFixedSize(200, 100);
    // Where rows would be if the area did not end above it.
    place(new QPushButton(u"Research"_s), {10, 120});
    QCOMPARE(complaints(), QStringList());
}

void MisplacedTextsTest::leavesAloneALabelWhoseEmptyPartIsOnATextsPlace() {
    place(new QLabel(u"Channel"_s), {10, 10})->resize(300, 30);
    place(new QLabel(u"6ch"_s), {200, 15});
    QCOMPARE(complaints(), QStringList());
}

const TestSubject registered = subjectWithWidgets<MisplacedTextsTest>();

#include "MisplacedTextsTest.moc"
