// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogTime.h"
#include "tests/pages/DialogParameters.h"
#include "tests/support/BoxUser.h"
#include "tests/support/DialogControls.h"
#include "tests/support/SummerTime.h"
#include "tests/support/TestSubject.h"

#include <QLineEdit>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;

namespace {

enum Field { Year, Month, Day, Hour, Minute, Second };

const QString EMPTY = u"There are not input value"_s;
const QString INVALID_YEAR = u"Invalid year\nSet from 2000 to 2100"_s;

QDateTime at(int year, int month, int day, int hour, int minute, int second) {
    return {QDate(year, month, day), QTime(hour, minute, second)};
}

}  // namespace

/// The dialog of the camera's clock: its fields.
class TimeDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init();
    void cleanup() { m_dialog.reset(); }

    void carriesTimesInAndOut_data();
    void carriesTimesInAndOut();
    void aTimeThatSummerTimeSkipsHereIsCarried();
    void whatIsNoTimeLeavesTheFields_data();
    void whatIsNoTimeLeavesTheFields();
    void returnsWhatIsTyped_data();
    void returnsWhatIsTyped();
    void refusesWhatIsNoNumber_data();
    void refusesWhatIsNoNumber();
    void refusesWhatIsAboveTheTop_data();
    void refusesWhatIsAboveTheTop();
    void anEmptyFieldIsComplainedOf_data();
    void anEmptyFieldIsComplainedOf();
    void aYearOutOfRangeIsComplainedOf_data();
    void aYearOutOfRangeIsComplainedOf();
    void aYearOfTheCameraOutOfRangeIsComplainedOf();

private:
    [[nodiscard]] DialogControls controls() const { return DialogControls(*m_dialog); }
    [[nodiscard]] QString shown() const { return controls().values().join(u' '); }
    [[nodiscard]] QLineEdit* field(int index) const {
        return m_dialog->findChildren<QLineEdit*>().at(index);
    }

    std::unique_ptr<ClDialogTime> m_dialog;
};

void TimeDialogTest::init() {
    m_dialog = std::make_unique<ClDialogTime>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void TimeDialogTest::carriesTimesInAndOut_data() {
    QTest::addColumn<QDateTime>("time");
    QTest::addColumn<QString>("fields");
    QTest::newRow("one digit each") << at(2026, 1, 2, 3, 4, 5) << u"2026 1 2 3 4 5"_s;
    QTest::newRow("two digits each") << at(2026, 11, 22, 13, 44, 55) << u"2026 11 22 13 44 55"_s;
    QTest::newRow("midnight") << at(2026, 1, 1, 0, 0, 0) << u"2026 1 1 0 0 0"_s;
    QTest::newRow("29 February") << at(2024, 2, 29, 23, 59, 59) << u"2024 2 29 23 59 59"_s;
    QTest::newRow("29 February 2000") << at(2000, 2, 29, 12, 0, 0) << u"2000 2 29 12 0 0"_s;
    for (int year = 1999; year <= 2101; ++year) {
        QTest::addRow("%d", year) << at(year, 12, 31, 23, 59, 59)
                                  << u"%1 12 31 23 59 59"_s.arg(year);
    }
}

void TimeDialogTest::carriesTimesInAndOut() {
    QFETCH(QDateTime, time);
    QFETCH(QString, fields);
    m_dialog->setParam({time});
    QCOMPARE(shown(), fields);
    const QVariantList result = m_dialog->getParam();
    QCOMPARE(result, QVariantList{time});
    QCOMPARE(result.constFirst().typeId(), int(QMetaType::QDateTime));
    QCOMPARE(result.constFirst().toDateTime().timeSpec(), Qt::LocalTime);
}

void TimeDialogTest::aTimeThatSummerTimeSkipsHereIsCarried() {
    const SummerTime here;
    const QDateTime skipped = SummerTime::skipped();
    QVERIFY(!skipped.isValid());
    m_dialog->setParam({skipped});
    QCOMPARE(shown(), u"2026 3 29 2 30 5"_s);
    const QDateTime result = m_dialog->getParam().constFirst().toDateTime();
    QCOMPARE(result.date(), skipped.date());
    QCOMPARE(result.time(), skipped.time());
}

void TimeDialogTest::whatIsNoTimeLeavesTheFields_data() {
    QTest::addColumn<QVariantList>("params");
    QTest::newRow("nothing") << QVariantList{};
    QTest::newRow("invalid time") << QVariantList{QDateTime()};
    QTest::newRow("impossible date") << QVariantList{at(2026, 2, 30, 1, 2, 3)};
    QTest::newRow("invalid") << QVariantList{QVariant()};
    QTest::newRow("number") << QVariantList{20260101U};
    QTest::newRow("text") << QVariantList{u"tomorrow"_s};
}

void TimeDialogTest::whatIsNoTimeLeavesTheFields() {
    QFETCH(QVariantList, params);
    m_dialog->setParam(params);
    QCOMPARE(controls().values(), QStringList(6, QString()));
    QVERIFY(!m_dialog->getParam().constFirst().toDateTime().isValid());
    m_dialog->setParam({at(2026, 1, 2, 3, 4, 5)});
    m_dialog->setParam(params);
    QCOMPARE(shown(), u"2026 1 2 3 4 5"_s);
}

void TimeDialogTest::returnsWhatIsTyped_data() {
    QTest::addColumn<QStringList>("typed");
    QTest::addColumn<QDateTime>("time");
    const auto row = [](const char* typed, const QDateTime& time) {
        QTest::newRow(typed) << QString::fromLatin1(typed).split(u' ') << time;
    };
    row("2000 1 1 0 0 0", at(2000, 1, 1, 0, 0, 0));
    row("2100 12 31 23 59 59", at(2100, 12, 31, 23, 59, 59));
    row("2026 01 02 03 04 05", at(2026, 1, 2, 3, 4, 5));
    row("2024 2 29 12 30 30", at(2024, 2, 29, 12, 30, 30));
    row("2000 2 29 12 30 30", at(2000, 2, 29, 12, 30, 30));
    // What does not exist is returned as an invalid time, which the camera takes for now.
    row("2023 2 29 12 30 30", {});
    row("2100 2 29 12 30 30", {});
    row("2026 2 31 12 30 30", {});
    row("2026 4 31 12 30 30", {});
    row("2026 1 1 24 0 0", {});
    row("2026 0 1 12 0 0", {});
    row("2026 1 0 12 0 0", {});
}

void TimeDialogTest::returnsWhatIsTyped() {
    QFETCH(QStringList, typed);
    QFETCH(QDateTime, time);
    for (int i = 0; i < typed.size(); ++i) {
        controls().fill(i, typed[i]);
    }
    QCOMPARE(controls().values(), typed);
    const BoxUser user;
    QTest::keyClick(field(Second), Qt::Key_Return);
    QCOMPARE(user.texts(), QStringList());
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->getParam().constFirst().toDateTime(), time);
    QCOMPARE(m_dialog->getParam().constFirst().toDateTime().isValid(), time.isValid());
}

void TimeDialogTest::refusesWhatIsNoNumber_data() {
    QTest::addColumn<QString>("typed");
    for (const QString& typed : {u"a"_s, u" "_s, u"-"_s, u"."_s, u","_s, u"/"_s, u":"_s, u"e"_s,
                                 u"é"_s, u"１"_s, u"一"_s}) {
        QTest::newRow(qUtf8Printable(typed)) << typed;
    }
}

void TimeDialogTest::refusesWhatIsNoNumber() {
    QFETCH(QString, typed);
    for (int i = Year; i <= Second; ++i) {
        typeAtOnce(field(i), u"1"_s);
        typeAtOnce(field(i), typed);
        QCOMPARE(field(i)->text(), u"1"_s);
        QTest::keyClick(field(i), Qt::Key_Home);
        typeAtOnce(field(i), typed);
        QCOMPARE(field(i)->text(), u"1"_s);
    }
}

void TimeDialogTest::refusesWhatIsAboveTheTop_data() {
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("left");
    const auto row = [](Field field, const QString& typed, const QString& left) {
        QTest::addRow("field %d: %s", field, qPrintable(typed)) << int(field) << typed << left;
    };
    row(Year, u"1999"_s, u"1999"_s);
    row(Year, u"2100"_s, u"2100"_s);
    row(Year, u"2101"_s, u"210"_s);
    row(Year, u"9999"_s, u"999"_s);
    row(Year, u"20267"_s, u"2026"_s);
    row(Year, u"99999999999"_s, u"999"_s);
    row(Month, u"12"_s, u"12"_s);
    row(Month, u"13"_s, u"1"_s);
    row(Month, u"123"_s, u"12"_s);
    row(Day, u"31"_s, u"31"_s);
    row(Day, u"32"_s, u"3"_s);
    row(Day, u"311"_s, u"31"_s);
    row(Hour, u"24"_s, u"24"_s);
    row(Hour, u"25"_s, u"2"_s);
    row(Hour, u"240"_s, u"24"_s);
    for (const Field field : {Minute, Second}) {
        row(field, u"59"_s, u"59"_s);
        row(field, u"60"_s, u"6"_s);
        row(field, u"75"_s, u"7"_s);
        row(field, u"599"_s, u"59"_s);
    }
}

void TimeDialogTest::refusesWhatIsAboveTheTop() {
    QFETCH(int, index);
    QFETCH(QString, typed);
    QFETCH(QString, left);
    controls().fill(index, typed);
    QCOMPARE(field(index)->text(), left);
    // Nor does a digit in front of the others bring it above.
    QTest::keyClick(field(index), Qt::Key_Home);
    QTest::keyClick(field(index), Qt::Key_9);
    QCOMPARE(field(index)->text(), left);
}

void TimeDialogTest::anEmptyFieldIsComplainedOf_data() {
    QTest::addColumn<int>("index");
    const char* const names[] = {"year", "month", "day", "hour", "minute", "second"};
    for (int i = Year; i <= Second; ++i) {
        QTest::newRow(names[i]) << i;
    }
}

void TimeDialogTest::anEmptyFieldIsComplainedOf() {
    QFETCH(int, index);
    m_dialog->setParam({at(1999, 1, 2, 3, 4, 5)});
    controls().fill(index, {});
    const BoxUser user;
    controls().click(u"OK"_s);
    QCOMPARE(user.boxes(),
             (QList<stModalBox>{{u"Test program"_s, EMPTY, QStringList{u"OK"_s}, m_dialog.get()}}));
    QVERIFY(m_dialog->isVisible());
}

void TimeDialogTest::aYearOutOfRangeIsComplainedOf_data() {
    QTest::addColumn<QString>("year");
    QTest::addColumn<bool>("isAccepted");
    QTest::newRow("0") << u"0"_s << false;
    QTest::newRow("26") << u"26"_s << false;
    QTest::newRow("1999") << u"1999"_s << false;
    QTest::newRow("2000") << u"2000"_s << true;
    QTest::newRow("2100") << u"2100"_s << true;
}

void TimeDialogTest::aYearOutOfRangeIsComplainedOf() {
    QFETCH(QString, year);
    QFETCH(bool, isAccepted);
    m_dialog->setParam({at(2026, 1, 2, 3, 4, 5)});
    controls().fill(Year, year);
    QCOMPARE(field(Year)->text(), year);
    const BoxUser user;
    controls().click(u"OK"_s);
    QCOMPARE(user.texts(), isAccepted ? QStringList() : QStringList{INVALID_YEAR});
    QCOMPARE(m_dialog->isHidden(), isAccepted);
    if (!isAccepted) {
        controls().fill(Year, u"2050"_s);
        controls().click(u"OK"_s);
        QCOMPARE(user.boxes().size(), 1);
    }
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
}

void TimeDialogTest::aYearOfTheCameraOutOfRangeIsComplainedOf() {
    for (const int year : {1999, 2101}) {
        m_dialog->setParam({at(year, 1, 2, 3, 4, 5)});
        const BoxUser user;
        controls().click(u"OK"_s);
        QCOMPARE(user.texts(), QStringList{INVALID_YEAR});
        QVERIFY(m_dialog->isVisible());
    }
}

const TestSubject registered = subjectWithWidgets<TimeDialogTest>();
#include "TimeDialogTest.moc"
