// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/ui/Mouse.h"
#include "ui/ClWidgetApInfo.h"
#include "ui/ClWidgetApList.h"

#include <QAccessible>
#include <QFrame>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace Qt::StringLiterals;

/// The column of access points, between two buttons.
class ApListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_window.reset(); }

    void everyRowIsFollowedByALine_data();
    void everyRowIsFollowedByALine();
    void leavesNoSpace();
    void ownsItsRows();

    void isAListToAScreenReader();
    void tabStopsOnceAtTheList();
    void goesFromRowToRowByKey();
    void staysWithinTheList();
    void tabComesBackToTheRowThatItLeft();
    void enterSelectsTheRowThatHasTheFocus();
    void aClickTakesNoFocus();

private:
    void fill(int count);
    void press(Qt::Key key) const { QTest::keyClick(QApplication::focusWidget(), key); }
    /// The number of the row that has the focus; -1 when none has.
    [[nodiscard]] qsizetype focused() const { return m_rows.indexOf(QApplication::focusWidget()); }

    std::unique_ptr<QWidget> m_window;
    QPushButton* m_before = nullptr;
    ClWidgetApList* m_list = nullptr;
    QPushButton* m_after = nullptr;
    QList<QWidget*> m_rows;
    QStringList m_selected;
};

void ApListTest::init() {
    m_rows.clear();
    m_selected.clear();
    m_window = std::make_unique<QWidget>();
    m_before = new QPushButton(m_window.get());
    m_list = new ClWidgetApList;
    m_list->setParent(m_window.get());
}

void ApListTest::fill(int count) {
    for (int number = 0; number < count; ++number) {
        auto* row = new ClWidgetApInfo(u"AP %1"_s.arg(number), 0, 50);
        connect(row, &ClWidgetApInfo::sigSelect, this,
                [this](const QString& ssid) { m_selected.append(ssid); });
        m_rows.append(row);
        m_list->addWidget(row);
    }
    m_list->resize(m_list->sizeHint());
    m_after = new QPushButton(m_window.get());
    m_window->resize(600, 400);
    m_window->show();
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    m_before->setFocus();
}

void ApListTest::everyRowIsFollowedByALine_data() {
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 3, 64}) {
        QTest::addRow("%d", count) << count;
    }
}

void ApListTest::everyRowIsFollowedByALine() {
    QFETCH(int, count);
    fill(count);
    QCOMPARE(m_list->layout()->count(), 2 * count);
    for (int number = 0; number < count; ++number) {
        QCOMPARE(m_list->layout()->itemAt(2 * number)->widget(), m_rows[number]);
        QCOMPARE(m_rows[number]->geometry(), QRect(0, 50 * number, 550, 49));
        const auto* line =
            qobject_cast<QFrame*>(m_list->layout()->itemAt(2 * number + 1)->widget());
        QVERIFY(line != nullptr);
        QCOMPARE(line->geometry(), QRect(0, 50 * number + 49, 550, 1));
        QCOMPARE(line->minimumHeight(), 1);
        QCOMPARE(line->maximumHeight(), 1);
        QCOMPARE(line->frameShape(), QFrame::HLine);
        QCOMPARE(line->frameShadow(), QFrame::Plain);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            QCOMPARE(line->palette().color(group, QPalette::WindowText), QColor(136, 140, 145));
        }
        QCOMPARE(m_list->grab().toImage().pixelColor(275, 50 * number + 49), QColor(136, 140, 145));
    }
}

void ApListTest::leavesNoSpace() {
    QVERIFY(qobject_cast<QVBoxLayout*>(m_list->layout()) != nullptr);
    QCOMPARE(m_list->layout()->contentsMargins(), QMargins());
    QCOMPARE(m_list->layout()->spacing(), 0);
    QCOMPARE(m_list->sizeHint(), QSize(0, 0));
    fill(500);
    QCOMPARE(m_list->size(), QSize(550, 500 * 50));
}

void ApListTest::ownsItsRows() {
    fill(2);
    const QPointer<QWidget> row = m_rows[1];
    delete m_list;
    QVERIFY(row.isNull());
}

void ApListTest::isAListToAScreenReader() {
    fill(1);
    const QAccessibleInterface* list = QAccessible::queryAccessibleInterface(m_list);
    QCOMPARE(list->role(), QAccessible::List);
    QCOMPARE(list->child(0)->role(), QAccessible::ListItem);
    QCOMPARE(list->child(0)->text(QAccessible::Name), u"AP 0, Signal strength 50"_s);
}

void ApListTest::tabStopsOnceAtTheList() {
    fill(3);
    press(Qt::Key_Tab);
    QCOMPARE(focused(), 0);
    press(Qt::Key_Tab);
    QVERIFY(m_after->hasFocus());
    press(Qt::Key_Backtab);
    QCOMPARE(focused(), 0);
    press(Qt::Key_Backtab);
    QVERIFY(m_before->hasFocus());
}

void ApListTest::goesFromRowToRowByKey() {
    fill(4);
    press(Qt::Key_Tab);
    const QList<std::pair<Qt::Key, int>> steps{{Qt::Key_Down, 1}, {Qt::Key_Down, 2},
                                               {Qt::Key_Up, 1},   {Qt::Key_End, 3},
                                               {Qt::Key_Home, 0}, {Qt::Key_Down, 1}};
    for (const auto& [key, row] : steps) {
        press(key);
        QCOMPARE(focused(), row);
    }
}

void ApListTest::staysWithinTheList() {
    fill(2);
    press(Qt::Key_Tab);
    press(Qt::Key_Up);
    QCOMPARE(focused(), 0);
    press(Qt::Key_End);
    press(Qt::Key_Down);
    QCOMPARE(focused(), 1);
    press(Qt::Key_A);
    QCOMPARE(focused(), 1);
}

void ApListTest::tabComesBackToTheRowThatItLeft() {
    fill(5);
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Tab);
    QVERIFY(m_after->hasFocus());
    press(Qt::Key_Backtab);
    QCOMPARE(focused(), 2);
}

void ApListTest::enterSelectsTheRowThatHasTheFocus() {
    fill(3);
    press(Qt::Key_Tab);
    press(Qt::Key_Down);
    QVERIFY(m_selected.isEmpty());
    press(Qt::Key_Return);
    QCOMPARE(m_selected, QStringList{u"AP 1"_s});
}

void ApListTest::aClickTakesNoFocus() {
    fill(2);
    clickMouse(*m_rows[1]);
    QVERIFY(m_before->hasFocus());
    QVERIFY(m_selected.isEmpty());
}

const TestSubject registered = subjectWithWidgets<ApListTest>();
#include "ApListTest.moc"
