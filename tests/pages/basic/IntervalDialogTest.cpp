// SPDX-License-Identifier: MIT
#include "pages/basic/PeriodDialogs.h"
#include "tests/pages/DialogParameters.h"
#include "tests/pages/basic/TimeRowUser.h"
#include "tests/support/TestSubject.h"

#include <QLabel>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;
using Box = TimeRowUser::Box;

/// The dialog of the interval timer. How its two times keep their ranges is TimeRowDialogsTest's
/// matter.
class IntervalDialogTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_dialog.reset(); }

    void loads_data();
    void loads();
    void aShorterListLeavesTheRest();
    void returnsWhatWasChosen();
    void theTimesAreAskedForWhenTheTimerIsUsed();
    void theRowsKeepTheirRangesApart();
    void tellsTheRanges();

private:
    [[nodiscard]] DialogControls controls() const { return DialogControls(*m_dialog); }
    [[nodiscard]] TimeRowUser interval() const { return TimeRowUser(*m_dialog, 0); }
    [[nodiscard]] TimeRowUser delay() const { return TimeRowUser(*m_dialog, 1); }

    std::unique_ptr<ClDialogInterval> m_dialog;
};

void IntervalDialogTest::init() {
    m_dialog = std::make_unique<ClDialogInterval>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowActive(m_dialog.get()));
}

void IntervalDialogTest::loads_data() {
    QTest::addColumn<QVariantList>("params");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("delayTime");
    QTest::addColumn<QString>("intervalTime");
    const QString use = u"Use interval timer"_s;
    const QString notUse = u"Not use interval timer"_s;
    QTest::newRow("nothing") << QVariantList{} << use << u"0:0:0"_s << u"0:0:1"_s;
    QTest::newRow("used") << QVariantList{true, 3725U, 60U} << use << u"1:2:5"_s << u"0:1:0"_s;
    QTest::newRow("not used") << QVariantList{false, 3725U, 60U} << notUse << u"1:2:5"_s
                              << u"0:1:0"_s;
    QTest::newRow("greatest") << QVariantList{true, 259200U, 259200U} << use << u"72:0:0"_s
                              << u"72:0:0"_s;
    QTest::newRow("out of range") << QVariantList{true, 0xFFFFFFFFU, 0U} << use << u"72:0:0"_s
                                  << u"0:0:1"_s;
    QTest::newRow("wrong types") << QVariantList{QVariant(), u"soon"_s, QVariantList{}} << notUse
                                 << u"0:0:0"_s << u"0:0:1"_s;
    QTest::newRow("more than three")
        << QVariantList{true, 1U, 2U, 3U} << use << u"0:0:1"_s << u"0:0:2"_s;
}

void IntervalDialogTest::loads() {
    QFETCH(QVariantList, params);
    QFETCH(QString, choice);
    QFETCH(QString, delayTime);
    QFETCH(QString, intervalTime);
    m_dialog->setParam(params);
    QCOMPARE(controls().values().first(), choice);
    QCOMPARE(delay().time(), delayTime);
    QCOMPARE(interval().time(), intervalTime);
}

void IntervalDialogTest::aShorterListLeavesTheRest() {
    m_dialog->setParam({true, 3725U, 60U});
    m_dialog->setParam({false, 7U});
    QCOMPARE(typedValues(m_dialog->getParam()),
             (QStringList{u"bool false"_s, u"uint 7"_s, u"uint 60"_s}));
    m_dialog->setParam({true});
    QCOMPARE(typedValues(m_dialog->getParam()),
             (QStringList{u"bool true"_s, u"uint 7"_s, u"uint 60"_s}));
    m_dialog->setParam({});
    QCOMPARE(typedValues(m_dialog->getParam()),
             (QStringList{u"bool true"_s, u"uint 7"_s, u"uint 60"_s}));
}

void IntervalDialogTest::returnsWhatWasChosen() {
    m_dialog->setParam({false, 0U, 60U});
    controls().click(u"Use interval timer"_s);
    interval().type(Box::Minutes, u"30"_s);
    delay().stepUp(Box::Hours);
    controls().click(u"OK"_s);
    QCOMPARE(m_dialog->result(), int(QDialog::Accepted));
    QCOMPARE(typedValues(m_dialog->getParam()),
             (QStringList{u"bool true"_s, u"uint 3600"_s, u"uint 1800"_s}));
}

void IntervalDialogTest::theTimesAreAskedForWhenTheTimerIsUsed() {
    QVERIFY(interval().isEnabled() && delay().isEnabled());
    controls().click(u"Not use interval timer"_s);
    QVERIFY(!interval().isEnabled() && !delay().isEnabled());
    controls().click(u"Use interval timer"_s);
    QVERIFY(interval().isEnabled() && delay().isEnabled());
    m_dialog->setParam({false});
    QVERIFY(!interval().isEnabled() && !delay().isEnabled());
}

void IntervalDialogTest::theRowsKeepTheirRangesApart() {
    m_dialog->setParam({true, 259200U, 3725U});
    interval().stepUp(Box::Seconds);
    QCOMPARE(interval().time(), u"1:2:6"_s);
    QCOMPARE(delay().time(), u"72:0:0"_s);
    m_dialog->setParam({true, 65U, 259200U});
    delay().stepUp(Box::Minutes);
    QCOMPARE(delay().time(), u"0:2:5"_s);
    QCOMPARE(interval().time(), u"72:0:0"_s);
}

void IntervalDialogTest::tellsTheRanges() {
    QList<QLabel*> labels = m_dialog->findChildren<QLabel*>();
    std::ranges::stable_sort(labels, {}, [this](const QLabel* label) {
        return label->mapTo(m_dialog.get(), QPoint()).y();
    });
    QStringList texts;
    for (const QLabel* const label : std::as_const(labels)) {
        texts.append(label->text());
    }
    texts.removeAll(u":"_s);
    QCOMPARE(texts, (QStringList{u"Set the interval timer\nUse the interval timer that keep "
                                 "capture at a certain interval"_s,
                                 u"Time of interval that captured"_s, u"(0:0:1 - 72:0:0)"_s,
                                 u"Time of until start interval timer"_s, u"(0:0:0 - 72:0:0)"_s}));
}

const TestSubject registered = subjectWithWidgets<IntervalDialogTest>();
#include "IntervalDialogTest.moc"
