// SPDX-License-Identifier: MIT
#include "tests/support/TestSubject.h"
#include "tests/ui/Painting.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ApBadges.h"
#include "ui/Artwork.h"
#include "ui/ClLabelSepalator.h"

#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

/// The two labels that show a picture: the separator and the check mark.
class LabelControlsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void separatesWithTheLine();
    void takesTheWidthOfTheLayout();
    void startsWithoutACheckMark();
    void showsAndRemovesTheCheckMark();
    void namesTheCheckMark();
};

void LabelControlsTest::separatesWithTheLine() {
    QWidget page;
    page.resize(600, 100);
    ClLabelSepalator separator(&page);
    page.show();
    QCOMPARE(separator.size(), QSize(600, 2));
    QCOMPARE(separator.minimumHeight(), 2);
    QCOMPARE(separator.maximumHeight(), 2);
    QCOMPARE(painted(separator), blankWith(separator, artwork(u":/img/bg_line"_s, 1.0)));
}

void LabelControlsTest::takesTheWidthOfTheLayout() {
    QWidget page;
    auto* const column = new QVBoxLayout(&page);
    column->setContentsMargins(0, 0, 0, 0);
    auto* const separator = new ClLabelSepalator;
    column->addWidget(separator);
    page.resize(700, 100);
    page.show();
    QCOMPARE(separator->size(), QSize(700, 2));
}

void LabelControlsTest::startsWithoutACheckMark() {
    const ClLinkCheck check;
    QVERIFY(check.pixmap().isNull());
    QVERIFY(check.text().isEmpty());
}

void LabelControlsTest::showsAndRemovesTheCheckMark() {
    ClLinkCheck check;
    check.setCheck(true);
    QCOMPARE(check.size(), QSize(24, 18));
    QCOMPARE(painted(check), blankWith(check, artwork(u":/img/ap_check"_s, 1.0)));
    check.setCheck(false);
    QVERIFY(check.pixmap().isNull());
    QVERIFY(check.width() < 24);
    check.setCheck(true);
    QCOMPARE(check.size(), QSize(24, 18));
}

void LabelControlsTest::namesTheCheckMark() {
    const TaggingTranslator translator;
    ClLinkCheck check;
    check.setCheck(true);
    QCOMPARE(check.accessibleName(), u"ClLinkCheck|Linked"_s);
    check.setCheck(false);
    QVERIFY(check.accessibleName().isEmpty());
}

const TestSubject registered = subjectWithWidgets<LabelControlsTest>();
#include "LabelControlsTest.moc"
