// SPDX-License-Identifier: MIT
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/Painting.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ClButtonApInfo.h"
#include "ui/ClLabelSsid.h"
#include "ui/ClWidgetApInfo.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

constexpr int BADGE_X = 284;
constexpr int SIGNAL_X = 490;

QString selectedSsid(ClWidgetApInfo& row) {
    const QSignalSpy selected(&row, &ClWidgetApInfo::sigSelect);
    QTest::mouseDClick(&row, Qt::LeftButton);
    return selected.value(0).value(0).toString();
}

/// Where the SSID ends, as seen from the row.
int endOf(const ClLabelSsid& label) {
    return label.geometry().right() + 1;
}

}  // namespace

/// The SSID of a row, whatever it consists of, and what assistive technology learns of the row.
class ApSsidTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void isShownAndSelectedAsItIs_data();
    void isShownAndSelectedAsItIs();
    void endsBeforeWhatFollows_data();
    void endsBeforeWhatFollows();
    void endsInAnEllipsisWhereItIsCut();
    void showsACutSsidAsAToolTip();
    void takesTheRoomOfABadgeThatHasGone();

    void describesTheRow();
    void describesTheButton();
    void aScreenReaderCanPressTheRow();
};

void ApSsidTest::initTestCase() {
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void ApSsidTest::isShownAndSelectedAsItIs_data() {
    QTest::addColumn<QString>("ssid");
    QString printable;
    for (char16_t character = u' '; character <= u'~'; ++character) {
        printable.append(character);
    }
    for (qsizetype start = 0; start < printable.size(); start += 16) {
        const QString part = printable.mid(start, 16);
        QTest::newRow(qPrintable(part)) << part;
    }
    QTest::newRow("bold") << u"<b>x</b>"_s;
    QTest::newRow("link") << u"<a href=\"x\">y</a>"_s;
    QTest::newRow("picture") << u"<img src=\":/img/ap_button\">"_s;
    QTest::newRow("entity") << u"&amp;&lt;"_s;
    QTest::newRow("mnemonic") << u"A&P"_s;
    QTest::newRow("place marker") << u"%1%2"_s;
    QTest::newRow("non-ASCII bytes") << u"caf\u00e9 \u00ff\u00a0"_s;
    QTest::newRow("wide") << u"\u6e2f\u306e\u7121\u7dda"_s;
}

void ApSsidTest::isShownAndSelectedAsItIs() {
    QFETCH(QString, ssid);
    ClWidgetApInfo row(ssid, 0, 50);
    auto* const label = row.findChild<ClLabelSsid*>();
    QCOMPARE(label->text(), ssid);
    QCOMPARE(selectedSsid(row), ssid);

    QImage expected = blank(*label);
    QPainter painter(&expected);
    painter.setFont(label->font());
    painter.setPen(QColor(0x2B, 0x30, 0x36));
    painter.drawText(label->rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, ssid);
    painter.end();
    QCOMPARE(painted(*label), expected);
}

void ApSsidTest::endsBeforeWhatFollows_data() {
    QTest::addColumn<QString>("ssid");
    QTest::newRow("wide letters") << QString(32, u'W');
    QTest::newRow("Kanji") << QString(32, u'\u6e2f');
    QTest::newRow("4096") << QString(4096, u'x');
}

void ApSsidTest::endsBeforeWhatFollows() {
    QFETCH(QString, ssid);
    ClWidgetApInfo row(ssid, 4, 50);
    const auto* label = row.findChild<ClLabelSsid*>();
    QVERIFY(endOf(*label) < BADGE_X);
    QCOMPARE(label->text(), ssid);
    QCOMPARE(selectedSsid(row), ssid);
    row.setType(0);
    QVERIFY(endOf(*label) < SIGNAL_X);

    const ClButtonApInfo button(ssid, 4, 50, nullptr);
    QVERIFY(endOf(*button.findChild<ClLabelSsid*>()) < BADGE_X);
}

void ApSsidTest::endsInAnEllipsisWhereItIsCut() {
    ClWidgetApInfo row(QString(32, u'W'), 4, 50);
    auto* const label = row.findChild<ClLabelSsid*>();
    const QImage cut = painted(*label);
    const QString shown =
        label->fontMetrics().elidedText(label->text(), Qt::ElideRight, label->width());
    QVERIFY(shown.startsWith(u"WWW"));
    QVERIFY(shown.endsWith(u'\u2026'));

    const QSize size = label->size();
    row.setSsid(shown);
    label->resize(size);
    QCOMPARE(cut, painted(*label));
}

void ApSsidTest::showsACutSsidAsAToolTip() {
    ClWidgetApInfo row(u"<b>W</b>"_s.repeated(10), 4, 50);
    const auto* label = row.findChild<ClLabelSsid*>();
    QVERIFY(Qt::mightBeRichText(label->toolTip()));
    QVERIFY(label->toolTip().contains(u"&lt;b&gt;W&lt;/b&gt;"));
    QVERIFY(!label->toolTip().contains(u"<b>"));
    row.setSsid(u"Harbour"_s);
    QVERIFY(label->toolTip().isEmpty());
}

void ApSsidTest::takesTheRoomOfABadgeThatHasGone() {
    ClWidgetApInfo row(QString(20, u'W'), 4, 50);
    const auto* label = row.findChild<ClLabelSsid*>();
    const int cut = label->width();
    QVERIFY(cut < label->sizeHint().width());
    row.setType(0);
    QCOMPARE(label->size(), label->sizeHint());
    row.setType(1);
    QCOMPARE(label->width(), cut);
}

void ApSsidTest::describesTheRow() {
    const TaggingTranslator translator;
    ClWidgetApInfo row(u"Harbour"_s, 4, 72);
    const QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&row);
    QCOMPARE(accessible->role(), QAccessible::ListItem);
    QCOMPARE(accessible->text(QAccessible::Name),
             u"Harbour, AES, ClWidgetRssi|Signal strength 72"_s);
    row.setLinking(true);
    row.setType(0);
    row.setRssi(0);
    QCOMPARE(accessible->text(QAccessible::Name), u"Harbour, ClLinkCheck|Linked"_s);
    row.setSsid(u"Quay"_s);
    QCOMPARE(accessible->text(QAccessible::Name), u"Quay, ClLinkCheck|Linked"_s);
}

void ApSsidTest::describesTheButton() {
    ClButtonApInfo button(u"Harbour"_s, 1, 0, nullptr);
    QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(accessible->role(), QAccessible::Button);
    QCOMPARE(accessible->text(QAccessible::Name), u"Harbour, WEP"_s);
    QVERIFY(accessible->actionInterface()->actionNames().contains(
        QAccessibleActionInterface::pressAction()));
}

void ApSsidTest::aScreenReaderCanPressTheRow() {
    ClWidgetApInfo row(u"Harbour"_s, 4, 72);
    const QSignalSpy selected(&row, &ClWidgetApInfo::sigSelect);
    QAccessibleActionInterface* const actions =
        QAccessible::queryAccessibleInterface(&row)->actionInterface();
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    // Whoever pressed gets an answer before a dialog opens.
    QVERIFY(selected.isEmpty());
    TRY_COMPARE(selected, (QList<QVariantList>{{u"Harbour"_s, true}}));
    actions->doAction(u"no such action"_s);
    QTest::qWait(0);
    QCOMPARE(selected.size(), 1);
}

const TestSubject registered = subjectWithWidgets<ApSsidTest>();
#include "ApSsidTest.moc"
