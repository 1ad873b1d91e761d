// SPDX-License-Identifier: MIT
#include "pages/basic/PeriodDialogs.h"
#include "tests/pages/DialogParameters.h"
#include "tests/pages/basic/TimeRowUser.h"
#include "tests/support/TestSubject.h"

#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;
using Box = TimeRowUser::Box;

namespace {

QString values(ClDialogBase& dialog) {
    return DialogControls(dialog).values().join(u' ');
}

bool open(QWidget& dialog) {
    dialog.show();
    return QTest::qWaitForWindowActive(&dialog);
}

}  // namespace

/// The dialogs of the times after which the camera switches itself or its Wi-Fi off. How the first
/// one's time keeps its range is TimeRowDialogsTest's matter.
class AutoOffDialogsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void powerOffCarriesItsTime_data();
    void powerOffCarriesItsTime();
    void powerOffStartsFromAMinuteWhenSwitchedOn();
    void powerOffMovesToTheGreatestTime();
    void powerOffIsLeftAloneByAnEmptyList();

    void wifiOffCarriesItsMinutes_data();
    void wifiOffCarriesItsMinutes();
    void wifiOffKeepsItsMinutesWhileItIsOff();
    void wifiOffCannotLeaveItsRange();
    void wifiOffIsLeftAloneByAnEmptyList();
};

void AutoOffDialogsTest::powerOffCarriesItsTime_data() {
    QTest::addColumn<QVariant>("seconds");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("result");
    const QString never = u"Not auto power off %1"_s;
    const QString timed = u"Time of auto power off %1"_s;
    QTest::newRow("never") << QVariant(0U) << never.arg(u"0 1 0"_s) << u"int 0"_s;
    QTest::newRow("least") << QVariant(60U) << timed.arg(u"0 1 0"_s) << u"uint 60"_s;
    QTest::newRow("some") << QVariant(3725U) << timed.arg(u"1 2 5"_s) << u"uint 3725"_s;
    QTest::newRow("greatest") << QVariant(259200U) << timed.arg(u"72 0 0"_s) << u"uint 259200"_s;
    QTest::newRow("too little") << QVariant(1U) << timed.arg(u"0 1 0"_s) << u"uint 60"_s;
    QTest::newRow("too much") << QVariant(0xFFFFFFFFU) << timed.arg(u"72 0 0"_s)
                              << u"uint 259200"_s;
    QTest::newRow("no number") << QVariant(u"soon"_s) << never.arg(u"0 1 0"_s) << u"int 0"_s;
    QTest::newRow("invalid") << QVariant() << never.arg(u"0 1 0"_s) << u"int 0"_s;
}

void AutoOffDialogsTest::powerOffCarriesItsTime() {
    QFETCH(QVariant, seconds);
    QFETCH(QString, shown);
    QFETCH(QString, result);
    ClDialogAutoPoweroff dialog;
    dialog.setParam({seconds});
    QVERIFY(open(dialog));
    QCOMPARE(values(dialog), shown);
    QCOMPARE(TimeRowUser(dialog).isEnabled(), shown.startsWith(u"Time"));
    DialogControls(dialog).click(u"OK"_s);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(typedValues(dialog.getParam()), QStringList{result});
}

void AutoOffDialogsTest::powerOffStartsFromAMinuteWhenSwitchedOn() {
    ClDialogAutoPoweroff dialog;
    dialog.setParam({7265U});
    dialog.setParam({0U});
    QVERIFY(open(dialog));
    DialogControls(dialog).click(u"Time of auto power off"_s);
    QVERIFY(TimeRowUser(dialog).isEnabled());
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"uint 60"_s});
    DialogControls(dialog).click(u"Not auto power off"_s);
    QVERIFY(!TimeRowUser(dialog).isEnabled());
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"int 0"_s});
}

void AutoOffDialogsTest::powerOffMovesToTheGreatestTime() {
    ClDialogAutoPoweroff dialog;
    dialog.setParam({3725U});
    QVERIFY(open(dialog));
    const TimeRowUser row(dialog);
    row.type(Box::Hours, u"70"_s);
    row.stepUp(Box::Hours);
    QCOMPARE(row.time(), u"71:2:5"_s);
    row.stepUp(Box::Hours);
    QCOMPARE(row.time(), u"72:0:0"_s);
}

void AutoOffDialogsTest::powerOffIsLeftAloneByAnEmptyList() {
    ClDialogAutoPoweroff dialog;
    dialog.setParam({});
    QCOMPARE(values(dialog), u"Not auto power off 0 1 0"_s);
    dialog.setParam({3725U});
    dialog.setParam({});
    QCOMPARE(values(dialog), u"Time of auto power off 1 2 5"_s);
}

void AutoOffDialogsTest::wifiOffCarriesItsMinutes_data() {
    QTest::addColumn<QVariant>("seconds");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("result");
    const QString never = u"Not auto Wi-Fi off 1"_s;
    const QString timed = u"Time of auto Wi-Fi off %1"_s;
    QTest::newRow("never") << QVariant(0U) << never << u"int 0"_s;
    for (int minutes = 1; minutes <= 10; ++minutes) {
        QTest::addRow("%d minutes", minutes) << QVariant(static_cast<unsigned int>(minutes) * 60)
                                             << timed.arg(minutes) << u"int %1"_s.arg(minutes * 60);
    }
    QTest::newRow("a second") << QVariant(1U) << timed.arg(1) << u"int 60"_s;
    QTest::newRow("59 seconds") << QVariant(59U) << timed.arg(1) << u"int 60"_s;
    QTest::newRow("119 seconds") << QVariant(119U) << timed.arg(1) << u"int 60"_s;
    QTest::newRow("359 seconds") << QVariant(359U) << timed.arg(5) << u"int 300"_s;
    QTest::newRow("11 minutes") << QVariant(660U) << timed.arg(10) << u"int 600"_s;
    QTest::newRow("far too much") << QVariant(0xFFFFFFFFU) << timed.arg(10) << u"int 600"_s;
    QTest::newRow("no number") << QVariant(u"soon"_s) << never << u"int 0"_s;
    QTest::newRow("invalid") << QVariant() << never << u"int 0"_s;
}

void AutoOffDialogsTest::wifiOffCarriesItsMinutes() {
    QFETCH(QVariant, seconds);
    QFETCH(QString, shown);
    QFETCH(QString, result);
    ClDialogAutoWifiOff dialog;
    dialog.setParam({seconds});
    QVERIFY(open(dialog));
    QCOMPARE(values(dialog), shown);
    QCOMPARE(dialog.findChild<QSpinBox*>()->isEnabled(), shown.startsWith(u"Time"));
    DialogControls(dialog).click(u"OK"_s);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(typedValues(dialog.getParam()), QStringList{result});
}

void AutoOffDialogsTest::wifiOffKeepsItsMinutesWhileItIsOff() {
    ClDialogAutoWifiOff dialog;
    dialog.setParam({300U});
    dialog.setParam({0U});
    QVERIFY(open(dialog));
    QCOMPARE(values(dialog), u"Not auto Wi-Fi off 5"_s);
    DialogControls(dialog).click(u"Time of auto Wi-Fi off"_s);
    QVERIFY(dialog.findChild<QSpinBox*>()->isEnabled());
    QCOMPARE(typedValues(dialog.getParam()), QStringList{u"int 300"_s});
}

void AutoOffDialogsTest::wifiOffCannotLeaveItsRange() {
    ClDialogAutoWifiOff dialog;
    dialog.setParam({600U});
    QVERIFY(open(dialog));
    auto* const box = dialog.findChild<QSpinBox*>();
    QTest::keyClick(box, Qt::Key_Up);
    QCOMPARE(box->text(), u"10"_s);
    QTest::keyClick(box, Qt::Key_PageDown);
    QTest::keyClick(box, Qt::Key_Down);
    QCOMPARE(box->text(), u"1"_s);
    DialogControls(dialog).spin(0, u"x4-,."_s);
    QCOMPARE(box->text(), u"4"_s);
    DialogControls(dialog).spin(0, u"11"_s);
    QCOMPARE(box->text(), u"1"_s);
    DialogControls(dialog).spin(0, u"0"_s);
    DialogControls(dialog).click(u"OK"_s);
    QCOMPARE(dialog.getParam(), QVariantList{60});
}

void AutoOffDialogsTest::wifiOffIsLeftAloneByAnEmptyList() {
    ClDialogAutoWifiOff dialog;
    dialog.setParam({300U});
    dialog.setParam({});
    QCOMPARE(values(dialog), u"Time of auto Wi-Fi off 5"_s);
}

const TestSubject registered = subjectWithWidgets<AutoOffDialogsTest>();
#include "AutoOffDialogsTest.moc"
