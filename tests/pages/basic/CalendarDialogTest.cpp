// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogCalendar.h"
#include "pages/basic/ClDialogTime.h"
#include "tests/support/BoxUser.h"
#include "tests/support/Contrast.h"
#include "tests/support/DialogControls.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "ui/Colours.h"

#include <QAccessible>
#include <QCalendarWidget>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

QCalendarWidget* calendar(const QWidget& dialog) {
    return dialog.findChild<QCalendarWidget*>();
}

/// The days, which have the focus.
QWidget* days(const QWidget& dialog) {
    return calendar(dialog)->findChild<QTableView*>();
}

QString shown(ClDialogTime& dialog) {
    return DialogControls(dialog).values().join(u' ');
}

bool open(QWidget& dialog) {
    dialog.show();
    return QTest::qWaitForWindowActive(&dialog);
}

}  // namespace

/// The calendar, and what it does to the fields of the dialog that opens it.
class CalendarDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isLimitedToTheYearsOfTheCamera_data();
    void isLimitedToTheYearsOfTheCamera();
    void showsNoWeekNumbers();
    void opensOnTheDateOfTheFields_data();
    void opensOnTheDateOfTheFields();
    void opensOnItsLastDayForADateOfTheCameraBeyond();
    void writesTheChosenDateOnly();
    void isAcceptedByEnterInTheDays();
    void leavesTheFieldsWhenItIsDeclined_data();
    void leavesTheFieldsWhenItIsDeclined();
    void opensFromTheKeyboard();
    void theArrowsAreNamed();
    void theBarIsWhiteOnTheAccent();
    void theYearIsTypedInANamedBox();
};

void CalendarDialogTest::isLimitedToTheYearsOfTheCamera_data() {
    QTest::addColumn<QDate>("date");
    QTest::addColumn<Qt::Key>("outwards");
    QTest::addColumn<Qt::Key>("farOutwards");
    QTest::addColumn<Qt::Key>("inwards");
    QTest::addColumn<QDate>("next");
    QTest::newRow("first day") << QDate(2000, 1, 1) << Qt::Key_Left << Qt::Key_PageUp
                               << Qt::Key_Right << QDate(2000, 1, 2);
    QTest::newRow("last day") << QDate(2100, 12, 31) << Qt::Key_Right << Qt::Key_PageDown
                              << Qt::Key_Left << QDate(2100, 12, 30);
}

void CalendarDialogTest::isLimitedToTheYearsOfTheCamera() {
    QFETCH(QDate, date);
    QFETCH(Qt::Key, outwards);
    QFETCH(Qt::Key, farOutwards);
    QFETCH(Qt::Key, inwards);
    QFETCH(QDate, next);
    ClDialogCalendar dialog;
    dialog.setParam({date});
    QVERIFY(open(dialog));
    QCOMPARE(dialog.getParam(), QVariantList{date});
    QTest::keyClick(days(dialog), outwards);
    QCOMPARE(dialog.getParam(), QVariantList{date});
    QTest::keyClick(days(dialog), farOutwards);
    QCOMPARE(dialog.getParam(), QVariantList{date});
    QTest::keyClick(days(dialog), inwards);
    QCOMPARE(dialog.getParam(), QVariantList{next});
}

// A year above the top cannot be typed, but a camera may send one.
void CalendarDialogTest::opensOnItsLastDayForADateOfTheCameraBeyond() {
    ClDialogTime dialog;
    dialog.setParam({QDateTime(QDate(2101, 6, 1), QTime(12, 0))});
    QVERIFY(open(dialog));
    QDate found;
    const BoxUser user([&](QWidget& box) {
        found = calendar(box)->selectedDate();
        rejectBox(box);
    });
    DialogControls(dialog).click(u"Calendar"_s);
    QCOMPARE(found, QDate(2100, 12, 31));
}

void CalendarDialogTest::showsNoWeekNumbers() {
    const ClDialogCalendar dialog;
    QCOMPARE(calendar(dialog)->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
}

void CalendarDialogTest::opensOnTheDateOfTheFields_data() {
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QDate>("selected");  // invalid: today
    QTest::newRow("a date") << QStringList{u"2026"_s, u"11"_s, u"21"_s} << QDate(2026, 11, 21);
    QTest::newRow("29 February") << QStringList{u"2024"_s, u"2"_s, u"29"_s} << QDate(2024, 2, 29);
    QTest::newRow("first") << QStringList{u"2000"_s, u"1"_s, u"1"_s} << QDate(2000, 1, 1);
    QTest::newRow("last") << QStringList{u"2100"_s, u"12"_s, u"31"_s} << QDate(2100, 12, 31);
    QTest::newRow("too early") << QStringList{u"1999"_s, u"6"_s, u"1"_s} << QDate(2000, 1, 1);
    QTest::newRow("no such date") << QStringList{u"2023"_s, u"2"_s, u"29"_s} << QDate();
    QTest::newRow("no month") << QStringList{u"2026"_s, {}, u"1"_s} << QDate();
    QTest::newRow("empty") << QStringList{{}, {}, {}} << QDate();
}

void CalendarDialogTest::opensOnTheDateOfTheFields() {
    QFETCH(QStringList, fields);
    QFETCH(QDate, selected);
    ClDialogTime dialog;
    QVERIFY(open(dialog));
    for (int i = 0; i < fields.size(); ++i) {
        DialogControls(dialog).fill(i, fields[i]);
    }
    const QDate before = QDate::currentDate();
    QDate found;
    QWidget* parent = nullptr;
    const BoxUser user([&](QWidget& box) {
        found = calendar(box)->selectedDate();
        parent = box.parentWidget();
        rejectBox(box);
    });
    DialogControls(dialog).click(u"Calendar"_s);
    QCOMPARE(user.boxes().size(), 1);
    QCOMPARE(parent, &dialog);
    if (selected.isValid()) {
        QCOMPARE(found, selected);
    } else {
        QVERIFY(found == before || found == QDate::currentDate());
    }
}

void CalendarDialogTest::writesTheChosenDateOnly() {
    ClDialogTime dialog;
    dialog.setParam({QDateTime(QDate(2026, 12, 31), QTime(23, 4, 59))});
    QVERIFY(open(dialog));
    const BoxUser user([](QWidget& box) {
        QTest::keyClick(days(box), Qt::Key_Right);
        acceptBox(box);
    });
    DialogControls(dialog).click(u"Calendar"_s);
    QCOMPARE(user.boxes().size(), 1);
    QCOMPARE(shown(dialog), u"2027 1 1 23 4 59"_s);
}

void CalendarDialogTest::isAcceptedByEnterInTheDays() {
    ClDialogTime dialog;
    dialog.setParam({QDateTime(QDate(2024, 2, 28), QTime(1, 2, 3))});
    QVERIFY(open(dialog));
    const BoxUser user([](QWidget& box) {
        TRY_COMPARE(box.focusWidget(), days(box));
        QTest::keyClick(box.focusWidget(), Qt::Key_Right);
        QTest::keyClick(box.focusWidget(), Qt::Key_Return);
        QVERIFY(box.isHidden());
    });
    DialogControls(dialog).click(u"Calendar"_s);
    QCOMPARE(user.boxes().size(), 1);
    QCOMPARE(shown(dialog), u"2024 2 29 1 2 3"_s);
}

void CalendarDialogTest::leavesTheFieldsWhenItIsDeclined_data() {
    QTest::addColumn<BoxUser::Action>("decline");
    QTest::newRow("Cancel") << BoxUser::Action(rejectBox);
    QTest::newRow("Escape") << BoxUser::Action(
        [](QWidget& box) { QTest::keyClick(days(box), Qt::Key_Escape); });
}

void CalendarDialogTest::leavesTheFieldsWhenItIsDeclined() {
    QFETCH(BoxUser::Action, decline);
    ClDialogTime dialog;
    dialog.setParam({QDateTime(QDate(2024, 2, 28), QTime(1, 2, 3))});
    QVERIFY(open(dialog));
    bool isDeclined = false;
    const BoxUser user([&](QWidget& box) {
        QTest::keyClick(days(box), Qt::Key_Right);
        decline(box);
        isDeclined = box.isHidden();
    });
    DialogControls(dialog).click(u"Calendar"_s);
    QVERIFY(isDeclined);
    QCOMPARE(shown(dialog), u"2024 2 28 1 2 3"_s);
}

void CalendarDialogTest::opensFromTheKeyboard() {
    ClDialogTime dialog;
    QVERIFY(open(dialog));
    // Past the six fields and "Synchronize PC".
    for (int i = 0; i < 7; ++i) {
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
    }
    const BoxUser user(rejectBox);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(user.boxes().size(), 1);
    QVERIFY(dialog.isVisible());
}

void CalendarDialogTest::theArrowsAreNamed() {
    const ClDialogCalendar dialog;
    QStringList names;
    for (QToolButton* const button : dialog.findChildren<QToolButton*>()) {
        if (button->text().size() == 1) {
            names.append(QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name));
        }
    }
    QCOMPARE(names, (QStringList{u"Previous month"_s, u"Next month"_s}));
}

void CalendarDialogTest::theBarIsWhiteOnTheAccent() {
    ClDialogCalendar dialog;
    QVERIFY(open(dialog));
    const QRect bar(0, 0, calendar(dialog)->width(), days(dialog)->y());
    const QImage picture = calendar(dialog)->grab(bar).toImage();
    QCOMPARE(groundOf(picture), ACCENT_COLOUR);
    bool hasWhite = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            // What is drawn smoothly lies between the two.
            const QColor colour = picture.pixelColor(x, y);
            QVERIFY2(colour.red() >= ACCENT_COLOUR.red() &&
                         colour.green() >= ACCENT_COLOUR.green() &&
                         colour.blue() >= ACCENT_COLOUR.blue(),
                     qPrintable(u"%1 at %2, %3"_s.arg(colour.name()).arg(x).arg(y)));
            hasWhite = hasWhite || colour == Qt::white;
        }
    }
    QVERIFY(hasWhite);
}

void CalendarDialogTest::theYearIsTypedInANamedBox() {
    ClDialogCalendar dialog;
    dialog.setParam({QDate(2026, 11, 21)});
    QVERIFY(open(dialog));
    auto* year = dialog.findChild<QSpinBox*>();
    QVERIFY(year->isHidden());
    QTest::mouseClick(dialog.findChild<QToolButton*>(u"qt_calendar_yearbutton"_s), Qt::LeftButton);
    QVERIFY(year->isVisible());
    QCOMPARE(QAccessible::queryAccessibleInterface(year)->text(QAccessible::Name), u"Year"_s);
    // Its arrows are as dark as the bar, so they need a ground of their own.
    const QPoint betweenArrows(year->width() - 8, year->height() / 2);
    const QPoint place = year->mapTo(&dialog, betweenArrows);
    QVERIFY(dialog.grab().toImage().pixelColor(place) != ACCENT_COLOUR);
    QTest::keyClicks(year, u"2031"_s);
    QTest::keyClick(year, Qt::Key_Tab);
    QCOMPARE(calendar(dialog)->yearShown(), 2031);
}

const TestSubject registered = subjectWithWidgets<CalendarDialogTest>();
#include "CalendarDialogTest.moc"
