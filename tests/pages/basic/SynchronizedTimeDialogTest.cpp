// SPDX-License-Identifier: MIT
#include "pages/basic/ClDialogTime.h"
#include "tests/support/DialogControls.h"
#include "tests/support/ManualClock.h"

#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

const QDateTime START(QDate(2026, 11, 21), QTime(13, 44, 55, 200));

}  // namespace

/// The dialog of the camera's clock while it follows the computer's, on clocks of the test's own.
class SynchronizedTimeDialogTest : public QObject {
    Q_OBJECT

public:
    explicit SynchronizedTimeDialogTest(ManualClock& timers) : m_timers(timers) {}

private Q_SLOTS:
    void init();
    void cleanup() { m_dialog.reset(); }

    void runsNoTimerUntilItIsSwitchedOn();
    void fillsTheFieldsAtOnce();
    void nothingCanBeTypedMeanwhile();
    void followsTheClock();
    void rollsOver_data();
    void rollsOver();
    void followsAClockThatIsSet();
    void rewritesOnlyWhatHasChanged();
    void keepsTheLastValuesWhenItIsSwitchedOff();
    void fillsAllFieldsWhenItIsSwitchedOnAgain();
    void returnsTheTimeThatWasShownLast();
    void theTimerEndsWithTheDialog();
    void followsTheComputersClockUnlessToldAnother();

private:
    /// Lets @p time pass, for the timers and on the computer's clock.
    void pass(std::chrono::milliseconds time) {
        m_now = m_now.addMSecs(time.count());
        m_timers.advance(time);
    }
    void clickSynchronize() const { QTest::mouseClick(synchronize(), Qt::LeftButton); }
    [[nodiscard]] QPushButton* button(const QString& text) const {
        for (QPushButton* const button : m_dialog->findChildren<QPushButton*>()) {
            if (button->text() == text) {
                return button;
            }
        }
        return nullptr;
    }
    [[nodiscard]] QPushButton* synchronize() const { return button(u"Synchronize PC"_s); }
    [[nodiscard]] QLineEdit* field(int index) const {
        return m_dialog->findChildren<QLineEdit*>().at(index);
    }
    [[nodiscard]] QString shown() const {
        QStringList texts;
        for (const QLineEdit* const edit : m_dialog->findChildren<QLineEdit*>()) {
            texts.append(edit->text());
        }
        return texts.join(u' ');
    }
    /// Whether the fields and "Calendar" can be used; none of them must differ from the others.
    [[nodiscard]] bool canEdit() const {
        const bool isEnabled = button(u"Calendar"_s)->isEnabled();
        for (const QLineEdit* const edit : m_dialog->findChildren<QLineEdit*>()) {
            QTest::qVerify(edit->isEnabled() == isEnabled, "all are enabled together", "", __FILE__,
                           __LINE__);
        }
        return isEnabled;
    }

    ManualClock& m_timers;
    QDateTime m_now;
    std::unique_ptr<ClDialogTime> m_dialog;
};

void SynchronizedTimeDialogTest::init() {
    m_now = START;
    m_dialog = std::make_unique<ClDialogTime>(nullptr, [this] { return m_now; });
    m_dialog->setParam({QDateTime(QDate(2001, 2, 3), QTime(4, 5, 6))});
    m_dialog->show();
}

void SynchronizedTimeDialogTest::runsNoTimerUntilItIsSwitchedOn() {
    QCOMPARE(m_timers.runningTimers(), 0);
    pass(20s);
    QCOMPARE(shown(), u"2001 2 3 4 5 6"_s);
    clickSynchronize();
    QCOMPARE(m_timers.runningTimers(), 1);
    clickSynchronize();
    QCOMPARE(m_timers.runningTimers(), 0);
}

void SynchronizedTimeDialogTest::fillsTheFieldsAtOnce() {
    clickSynchronize();
    QCOMPARE(shown(), u"2026 11 21 13 44 55"_s);
}

void SynchronizedTimeDialogTest::nothingCanBeTypedMeanwhile() {
    QVERIFY(canEdit());
    QVERIFY(!synchronize()->isChecked());
    clickSynchronize();
    QVERIFY(!canEdit());
    QVERIFY(synchronize()->isEnabled());
    QVERIFY(synchronize()->isChecked());
    clickSynchronize();
    QVERIFY(canEdit());
    QVERIFY(!synchronize()->isChecked());
}

void SynchronizedTimeDialogTest::followsTheClock() {
    clickSynchronize();
    for (int second = 0; second < 130; ++second) {
        // The clock changes 800 ms after the start and every second from then on.
        pass(second == 0 ? 800ms : 500ms);
        pass(500ms);
        QCOMPARE(shown(),
                 u"2026 11 21 13 %1 %2"_s.arg(44 + (56 + second) / 60).arg((56 + second) % 60));
    }
}

void SynchronizedTimeDialogTest::rollsOver_data() {
    QTest::addColumn<QDateTime>("before");
    QTest::addColumn<QString>("after");
    const auto row = [](const char* name, QDate date, QTime time, const QString& after) {
        QTest::newRow(name) << QDateTime(date, time) << after;
    };
    row("minute", QDate(2026, 11, 21), QTime(13, 44, 59, 900), u"2026 11 21 13 45 0"_s);
    row("hour", QDate(2026, 11, 21), QTime(13, 59, 59, 900), u"2026 11 21 14 0 0"_s);
    row("midnight", QDate(2026, 11, 21), QTime(23, 59, 59, 900), u"2026 11 22 0 0 0"_s);
    row("month", QDate(2026, 11, 30), QTime(23, 59, 59, 900), u"2026 12 1 0 0 0"_s);
    row("year", QDate(2026, 12, 31), QTime(23, 59, 59, 900), u"2027 1 1 0 0 0"_s);
    row("29 February", QDate(2024, 2, 28), QTime(23, 59, 59, 900), u"2024 2 29 0 0 0"_s);
    row("after 29 February", QDate(2024, 2, 29), QTime(23, 59, 59, 900), u"2024 3 1 0 0 0"_s);
    row("no 29 February", QDate(2100, 2, 28), QTime(23, 59, 59, 900), u"2100 3 1 0 0 0"_s);
}

void SynchronizedTimeDialogTest::rollsOver() {
    QFETCH(QDateTime, before);
    QFETCH(QString, after);
    m_now = before;
    clickSynchronize();
    QCOMPARE(shown(), before.toString(u"yyyy M d H m s"_s));
    pass(500ms);
    QCOMPARE(shown(), after);
}

void SynchronizedTimeDialogTest::followsAClockThatIsSet() {
    clickSynchronize();
    m_now = QDateTime(QDate(2020, 1, 2), QTime(3, 4, 5));
    pass(500ms);
    QCOMPARE(shown(), u"2020 1 2 3 4 5"_s);
}

void SynchronizedTimeDialogTest::rewritesOnlyWhatHasChanged() {
    clickSynchronize();
    // A mark that only rewriting removes.
    for (int i = 0; i < 6; ++i) {
        field(i)->setText(u"?"_s);
    }
    pass(500ms);
    QCOMPARE(shown(), u"? ? ? ? ? ?"_s);
    pass(500ms);
    QCOMPARE(shown(), u"? ? ? ? ? 56"_s);
    m_now = m_now.addDays(1).addSecs(3600);
    pass(1ms);
    QCOMPARE(shown(), u"? ? ? ? ? 56"_s);
    pass(499ms);
    QCOMPARE(shown(), u"? ? 22 14 ? 56"_s);
}

void SynchronizedTimeDialogTest::keepsTheLastValuesWhenItIsSwitchedOff() {
    clickSynchronize();
    clickSynchronize();
    pass(20s);
    QCOMPARE(shown(), u"2026 11 21 13 44 55"_s);
    DialogControls(*m_dialog).fill(4, u"7"_s);
    QCOMPARE(shown(), u"2026 11 21 13 7 55"_s);
}

void SynchronizedTimeDialogTest::fillsAllFieldsWhenItIsSwitchedOnAgain() {
    clickSynchronize();
    clickSynchronize();
    DialogControls(*m_dialog).fill(0, u"2000"_s);
    DialogControls(*m_dialog).fill(4, {});
    clickSynchronize();
    QCOMPARE(shown(), u"2026 11 21 13 44 55"_s);
}

void SynchronizedTimeDialogTest::returnsTheTimeThatWasShownLast() {
    clickSynchronize();
    pass(1s);
    QTest::mouseClick(button(u"OK"_s), Qt::LeftButton);
    QVERIFY(m_dialog->isHidden());
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(m_dialog->getParam(), QVariantList{QDateTime(QDate(2026, 11, 21), QTime(13, 44, 56))});
}

void SynchronizedTimeDialogTest::theTimerEndsWithTheDialog() {
    clickSynchronize();
    m_dialog.reset();
    QCOMPARE(m_timers.runningTimers(), 0);
}

void SynchronizedTimeDialogTest::followsTheComputersClockUnlessToldAnother() {
    m_dialog = std::make_unique<ClDialogTime>();
    m_dialog->show();
    const QDateTime before = QDateTime::currentDateTime();
    clickSynchronize();
    const QDateTime after = QDateTime::currentDateTime();
    const QDateTime taken = m_dialog->getParam().constFirst().toDateTime();
    QVERIFY(taken > before.addSecs(-1));
    QVERIFY(taken <= after);
}

const TestSubject registered = subjectOnManualClock<SynchronizedTimeDialogTest>();

#include "SynchronizedTimeDialogTest.moc"
