// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "ui/ClWidgetProgress.h"

#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/// The percentage bar.
class ProgressTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isLaidOutAboveItsText();
    void showsTheValue_data();
    void showsTheValue();
    void changesItsColourBackAndForth();
};

void ProgressTest::isLaidOutAboveItsText() {
    const ClWidgetProgress progress;
    const auto* const bar = progress.findChild<QProgressBar*>();
    const auto* const label = progress.findChild<QLabel*>();
    QCOMPARE(progress.minimumWidth(), 133);
    QCOMPARE(progress.maximumWidth(), 133);
    QCOMPARE(bar->minimumWidth(), 133);
    QCOMPARE(bar->maximumWidth(), 133);
    QCOMPARE(bar->maximum(), 100);
    QVERIFY(!bar->isTextVisible());
    QCOMPARE(label->alignment(), Qt::AlignCenter);
    QCOMPARE(label->font().weight(), QFont::Bold);
    const auto* const column = qobject_cast<QVBoxLayout*>(progress.layout());
    QCOMPARE(column->contentsMargins(), QMargins());
    QCOMPARE(column->spacing(), 9);
    QCOMPARE(column->itemAt(0)->widget(), bar);
    QCOMPARE(column->itemAt(1)->widget(), label);
}

void ProgressTest::showsTheValue_data() {
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("colour");
    const QColor green(26, 97, 9);
    const QColor amber(120, 110, 25);
    const QColor red(180, 25, 8);
    QTest::newRow("0") << 0 << u"0%"_s << red;
    QTest::newRow("9") << 9 << u"9%"_s << red;
    QTest::newRow("10") << 10 << u"10%"_s << amber;
    QTest::newRow("49") << 49 << u"49%"_s << amber;
    QTest::newRow("50") << 50 << u"50%"_s << green;
    QTest::newRow("100") << 100 << u"100%"_s << green;
}

void ProgressTest::showsTheValue() {
    QFETCH(int, value);
    QFETCH(QString, text);
    QFETCH(QColor, colour);
    ClWidgetProgress progress;
    progress.setValue(value);
    QCOMPARE(progress.findChild<QProgressBar*>()->value(), value);
    const auto* const label = progress.findChild<QLabel*>();
    QCOMPARE(label->text(), text);
    for (const QPalette::ColorGroup group :
         {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(label->palette().color(group, QPalette::WindowText), colour);
    }
    QCOMPARE(label->foregroundRole(), QPalette::WindowText);
    QCOMPARE(colour.alpha(), 255);
}

void ProgressTest::changesItsColourBackAndForth() {
    ClWidgetProgress progress;
    const auto* const label = progress.findChild<QLabel*>();
    progress.setValue(80);
    progress.setValue(5);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(180, 25, 8));
    progress.setValue(80);
    QCOMPARE(label->palette().color(QPalette::WindowText), QColor(26, 97, 9));
}

const TestSubject registered = subjectWithWidgets<ProgressTest>();
#include "ProgressTest.moc"
