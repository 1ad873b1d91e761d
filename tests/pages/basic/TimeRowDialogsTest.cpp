// SPDX-License-Identifier: MIT
#include "pages/basic/PeriodDialogs.h"
#include "tests/pages/DialogParameters.h"
#include "tests/pages/basic/TimeRowUser.h"
#include "tests/support/TestSubject.h"

#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using Box = TimeRowUser::Box;

namespace {

constexpr unsigned int GREATEST = 72U * 3600;

/// A row of a dialog that asks for a time.
struct stRow {
    const char* name;
    unsigned int least;
    int place;
    QVariantList (*params)(unsigned int seconds);
    std::unique_ptr<ClDialogBase> (*create)();
    int parameter;  ///< the place of the time in the dialog's parameters
};

template <class Dialog>
std::unique_ptr<ClDialogBase> create() {
    return std::make_unique<Dialog>();
}

const QList<stRow> ROWS{
    {"interval", 1, 0,
     [](unsigned int time) {
         return QVariantList{true, 7U, time};
     },
     create<ClDialogInterval>, 2},
    {"delay", 0, 1,
     [](unsigned int time) {
         return QVariantList{true, time, 7U};
     },
     create<ClDialogInterval>, 1},
    {"power off", 60, 0, [](unsigned int time) { return QVariantList{time}; },
     create<ClDialogAutoPoweroff>, 0},
};

const QList<unsigned int> BOUNDARIES{0,     1,      2,      58,     59,     60,      61,
                                     119,   120,    3599,   3600,   3601,   3660,    86399,
                                     86400, 255599, 255600, 259140, 259199, GREATEST};

QString written(unsigned int seconds) {
    return u"%1:%2:%3"_s.arg(seconds / 3600).arg(seconds / 60 % 60).arg(seconds % 60);
}

/// Adds a column "row" and a data row for each row of a dialog.
void addRows() {
    QTest::addColumn<int>("row");
    for (int i = 0; i < ROWS.size(); ++i) {
        QTest::newRow(ROWS[i].name) << i;
    }
}

enum Action { Up, Down, KeyUp, KeyDown, PageUp, PageDown };

void perform(const TimeRowUser& user, Box box, Action action) {
    switch (action) {
        case Up:
            user.stepUp(box);
            break;
        case Down:
            user.stepDown(box);
            break;
        case KeyUp:
            user.press(box, Qt::Key_Up);
            break;
        case KeyDown:
            user.press(box, Qt::Key_Down);
            break;
        case PageUp:
            user.press(box, Qt::Key_PageUp);
            break;
        case PageDown:
            user.press(box, Qt::Key_PageDown);
            break;
    }
}

}  // namespace

/// The rows of hours, minutes and seconds: what they show, and how they stay in their ranges.
class TimeRowDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_dialog.reset(); }

    void carriesTimesInAndOut_data() { addRows(); }
    void carriesTimesInAndOut();
    void aTimeIsShownWhateverWasShownBefore_data() { addRows(); }
    void aTimeIsShownWhateverWasShownBefore();
    void aTimeBeyondTheRangeBecomesItsEnd_data();
    void aTimeBeyondTheRangeBecomesItsEnd();
    void staysInItsRangeByArrows_data();
    void staysInItsRangeByArrows();
    void staysInItsRangeByTyping_data();
    void staysInItsRangeByTyping();
    void reachesEveryTimeByTyping_data() { addRows(); }
    void reachesEveryTimeByTyping();

private:
    [[nodiscard]] TimeRowUser user() const { return TimeRowUser(*m_dialog, m_row.place); }
    void set(unsigned int seconds) const { m_dialog->setParam(m_row.params(seconds)); }
    [[nodiscard]] QString result() const {
        return typedValues(m_dialog->getParam()).at(m_row.parameter);
    }

    stRow m_row{};
    std::unique_ptr<ClDialogBase> m_dialog;
};

void TimeRowDialogsTest::init() {
    QFETCH(int, row);
    m_row = ROWS[row];
    m_dialog = m_row.create();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
    set(3725);
}

void TimeRowDialogsTest::carriesTimesInAndOut() {
    for (const unsigned int seconds : BOUNDARIES) {
        if (seconds >= m_row.least && seconds > 0) {
            set(seconds);
            QCOMPARE(user().time(), written(seconds));
            QCOMPARE(result(), u"uint %1"_s.arg(seconds));
        }
    }
}

void TimeRowDialogsTest::aTimeIsShownWhateverWasShownBefore() {
    for (const unsigned int before : BOUNDARIES) {
        for (const unsigned int after : BOUNDARIES) {
            if (after >= m_row.least && after > 0) {
                set(before);
                set(after);
                QCOMPARE(user().time(), written(after));
            }
        }
    }
}

void TimeRowDialogsTest::aTimeBeyondTheRangeBecomesItsEnd_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<unsigned int>("seconds");
    QTest::addColumn<QString>("shown");
    QTest::newRow("interval of none") << 0 << 0U << u"0:0:1"_s;
    QTest::newRow("a second until power off") << 2 << 1U << u"0:1:0"_s;
    QTest::newRow("almost a minute until power off") << 2 << 59U << u"0:1:0"_s;
    for (int row = 0; row < ROWS.size(); ++row) {
        for (const unsigned int seconds : {GREATEST + 1, GREATEST + 60, GREATEST + 3600,
                                           0x7FFFFFFFU, 0x80000000U, 0xFFFFFFFFU}) {
            QTest::addRow("%s, %u s", ROWS[row].name, seconds) << row << seconds << u"72:0:0"_s;
        }
    }
}

void TimeRowDialogsTest::aTimeBeyondTheRangeBecomesItsEnd() {
    QFETCH(unsigned int, seconds);
    QFETCH(QString, shown);
    set(seconds);
    QCOMPARE(user().time(), shown);
}

void TimeRowDialogsTest::staysInItsRangeByArrows_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<unsigned int>("before");
    QTest::addColumn<Box>("box");
    QTest::addColumn<Action>("action");
    QTest::addColumn<QString>("after");
    for (int row = 0; row < ROWS.size(); ++row) {
        const auto add = [row](unsigned int before, Box box, Action action, const QString& after) {
            QTest::addRow("%s %s, %c %d", ROWS[row].name, qPrintable(written(before)), "hms"[box],
                          action)
                << row << before << box << action << after;
        };
        // Away from the ends each box goes its own way.
        add(3725, Box::Hours, Up, u"2:2:5"_s);
        add(3725, Box::Minutes, Down, u"1:1:5"_s);
        add(3725, Box::Seconds, KeyUp, u"1:2:6"_s);
        add(3725, Box::Minutes, PageUp, u"1:12:5"_s);
        add(3599, Box::Seconds, Up, u"0:59:59"_s);
        add(3599, Box::Minutes, KeyUp, u"0:59:59"_s);
        // The greatest hour stands alone.
        add(GREATEST - 1, Box::Hours, Up, u"72:0:0"_s);
        add(GREATEST - 1, Box::Hours, KeyUp, u"72:0:0"_s);
        add(63 * 3600 + 59, Box::Hours, PageUp, u"72:0:0"_s);
        add(GREATEST, Box::Hours, Up, u"72:0:0"_s);
        add(GREATEST, Box::Minutes, Up, u"72:0:0"_s);
        add(GREATEST, Box::Minutes, PageUp, u"72:0:0"_s);
        add(GREATEST, Box::Minutes, Down, u"72:0:0"_s);
        add(GREATEST, Box::Seconds, KeyUp, u"72:0:0"_s);
        add(GREATEST, Box::Seconds, Down, u"72:0:0"_s);
        add(GREATEST, Box::Hours, Down, u"71:0:0"_s);
    }
    const auto add = [](int row, unsigned int before, Box box, Action action,
                        const QString& after) {
        QTest::addRow("%s %s, %c %d", ROWS[row].name, qPrintable(written(before)), "hms"[box],
                      action)
            << row << before << box << action << after;
    };
    constexpr int INTERVAL = 0;
    constexpr int DELAY = 1;
    constexpr int POWER_OFF = 2;
    add(INTERVAL, 1, Box::Seconds, Down, u"0:0:1"_s);
    add(INTERVAL, 2, Box::Seconds, Down, u"0:0:1"_s);
    add(INTERVAL, 5, Box::Seconds, PageDown, u"0:0:1"_s);
    add(INTERVAL, 60, Box::Minutes, Down, u"0:0:1"_s);
    add(INTERVAL, 120, Box::Minutes, PageDown, u"0:0:1"_s);
    add(INTERVAL, 65, Box::Minutes, Down, u"0:0:5"_s);
    add(INTERVAL, 3600, Box::Hours, KeyDown, u"0:0:1"_s);
    add(INTERVAL, 3660, Box::Hours, Down, u"0:1:0"_s);
    add(INTERVAL, 3605, Box::Hours, Down, u"0:0:5"_s);
    add(DELAY, 1, Box::Seconds, Down, u"0:0:0"_s);
    add(DELAY, 60, Box::Minutes, Down, u"0:0:0"_s);
    add(DELAY, 3600, Box::Hours, Down, u"0:0:0"_s);
    add(DELAY, 0, Box::Hours, Down, u"0:0:0"_s);
    add(POWER_OFF, 60, Box::Minutes, Down, u"0:1:0"_s);
    add(POWER_OFF, 60, Box::Seconds, Down, u"0:1:0"_s);
    add(POWER_OFF, 65, Box::Minutes, KeyDown, u"0:1:5"_s);
    add(POWER_OFF, 120, Box::Minutes, PageDown, u"0:1:0"_s);
    add(POWER_OFF, 3600, Box::Hours, Down, u"0:1:0"_s);
    add(POWER_OFF, 3605, Box::Hours, Down, u"0:1:5"_s);
    add(POWER_OFF, 3660, Box::Hours, Down, u"0:1:0"_s);
    add(POWER_OFF, 3660, Box::Minutes, Down, u"1:0:0"_s);
}

void TimeRowDialogsTest::staysInItsRangeByArrows() {
    QFETCH(unsigned int, before);
    QFETCH(Box, box);
    QFETCH(Action, action);
    QFETCH(QString, after);
    set(before);
    QCOMPARE(user().time(), written(before));
    perform(user(), box, action);
    QCOMPARE(user().time(), after);
}

void TimeRowDialogsTest::staysInItsRangeByTyping_data() {
    QTest::addColumn<int>("row");
    QTest::addColumn<unsigned int>("before");
    QTest::addColumn<Box>("box");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("after");
    for (int row = 0; row < ROWS.size(); ++row) {
        const auto add = [row](unsigned int before, Box box, const char* typed,
                               const QString& after) {
            QTest::addRow("%s %s, %c %s", ROWS[row].name, qPrintable(written(before)), "hms"[box],
                          typed)
                << row << before << box << QString::fromLatin1(typed) << after;
        };
        add(3725, Box::Hours, "72", u"72:0:0"_s);
        add(3725, Box::Hours, "73", u"7:2:5"_s);
        add(3725, Box::Hours, "720", u"72:0:0"_s);
        add(3725, Box::Hours, "x4-,.", u"4:2:5"_s);
        add(3725, Box::Minutes, "59", u"1:59:5"_s);
        add(3725, Box::Minutes, "60", u"1:6:5"_s);
        add(3725, Box::Seconds, "599", u"1:2:59"_s);
        add(GREATEST, Box::Minutes, "5", u"72:0:0"_s);
        add(GREATEST, Box::Seconds, "59", u"72:0:0"_s);
        add(GREATEST, Box::Hours, "71", u"71:0:0"_s);
    }
    QTest::newRow("interval 0:0:5, s 0") << 0 << 5U << Box::Seconds << u"0"_s << u"0:0:1"_s;
    QTest::newRow("interval 0:0:5, s 07") << 0 << 5U << Box::Seconds << u"07"_s << u"0:0:7"_s;
    QTest::newRow("interval 0:1:0, m 0") << 0 << 60U << Box::Minutes << u"0"_s << u"0:0:1"_s;
    QTest::newRow("interval 1:0:0, h 0") << 0 << 3600U << Box::Hours << u"0"_s << u"0:0:1"_s;
    QTest::newRow("delay 0:0:5, s 0") << 1 << 5U << Box::Seconds << u"0"_s << u"0:0:0"_s;
    QTest::newRow("delay 1:0:0, h 0") << 1 << 3600U << Box::Hours << u"0"_s << u"0:0:0"_s;
    QTest::newRow("power off 0:5:0, m 0") << 2 << 300U << Box::Minutes << u"0"_s << u"0:1:0"_s;
    QTest::newRow("power off 0:5:0, m 07") << 2 << 300U << Box::Minutes << u"07"_s << u"0:7:0"_s;
    QTest::newRow("power off 1:0:9, h 0") << 2 << 3609U << Box::Hours << u"0"_s << u"0:1:9"_s;
    QTest::newRow("power off 0:1:9, s 0") << 2 << 69U << Box::Seconds << u"0"_s << u"0:1:0"_s;
}

void TimeRowDialogsTest::staysInItsRangeByTyping() {
    QFETCH(unsigned int, before);
    QFETCH(Box, box);
    QFETCH(QString, typed);
    QFETCH(QString, after);
    set(before);
    user().type(box, typed);
    QCOMPARE(user().time(), after);
    // Nothing changes any more when the box is left or the dialog accepted.
    user().press(box, Qt::Key_Return);
    QCOMPARE(user().time(), after);
    QVERIFY(m_dialog->isHidden());
}

void TimeRowDialogsTest::reachesEveryTimeByTyping() {
    for (const unsigned int seconds : BOUNDARIES) {
        if (seconds < m_row.least) {
            continue;
        }
        // From a time with nothing in the boxes that are yet to be typed into.
        set(36000);
        user().type(Box::Seconds, QString::number(seconds % 60));
        user().type(Box::Minutes, QString::number(seconds / 60 % 60));
        user().type(Box::Hours, QString::number(seconds / 3600));
        QCOMPARE(user().time(), written(seconds));
        QCOMPARE(result(), u"uint %1"_s.arg(seconds));
    }
}

const TestSubject registered = subjectWithWidgets<TimeRowDialogsTest>();
#include "TimeRowDialogsTest.moc"
