// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureTop.h"
#include "tests/pages/PageBench.h"
#include "tests/pages/network/AccesspointMessages.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ClButtonApInfo.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>

#include <optional>

using namespace Qt::StringLiterals;

/// Where everything stands on the first infrastructure sub-page, and what it is called.
class InfrastructureTopLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void everythingStandsAtItsPlace();
    void itsTextsAreTheNetworkPages();
    void theTabKeyFollowsTheEye();
    void theButtonHasANameWhileItIsEmpty();

private:
    [[nodiscard]] ClWidgetInfrastructureTop& page() { return m_bench->page; }

    std::optional<PageBench<ClWidgetInfrastructureTop>> m_bench;
};

void InfrastructureTopLayoutTest::initTestCase() {
    // The program's own text size.
    QFont font;
    font.setPixelSize(13);
    QApplication::setFont(font);
}

void InfrastructureTopLayoutTest::everythingStandsAtItsPlace() {
    const auto* box = page().findChild<QCheckBox*>();
    QCOMPARE(box->text(), u"Connect Infrastructure on startup"_s);
    QCOMPARE(box->pos(), QPoint(27, 28));
    QCOMPARE(box->size(), box->sizeHint());

    const auto* caption = page().findChild<QLabel*>({}, Qt::FindDirectChildrenOnly);
    QCOMPARE(caption->text(), u"AP of selecting"_s);
    QCOMPARE(caption->pos(), QPoint(27, 72));

    QCOMPARE(page().findChild<ClButtonApInfo*>()->geometry(), QRect(17, 97, 568, 44));

    const QAbstractButton* search = &m_bench->user.button(u"AP search and setting"_s);
    const QAbstractButton* manual = &m_bench->user.button(u"AP manual setting"_s);
    const QWidget* bar = search->parentWidget();
    QCOMPARE(manual->parentWidget(), bar);
    QCOMPARE(bar->pos(), QPoint(0, 154));
    QCOMPARE(bar->width(), 600);
    QCOMPARE(bar->minimumWidth(), 600);
    QCOMPARE(bar->maximumWidth(), 600);
    QCOMPARE(bar->layout()->contentsMargins(), QMargins(0, 0, 15, 0));
    QCOMPARE(search->minimumSize(), QSize(133, 30));
    QCOMPARE(manual->minimumSize(), QSize(133, 30));
    QCOMPARE(manual->geometry().right() + 1, 585);
    QCOMPARE(manual->x() - search->geometry().right() - 1, 10);
    QCOMPARE(search->mapTo(&page(), QPoint()).y(), 154);
}

void InfrastructureTopLayoutTest::itsTextsAreTheNetworkPages() {
    const TaggingTranslator translator;
    const ClWidgetInfrastructureTop page;
    QCOMPARE(page.findChild<QCheckBox*>()->text(),
             u"ClWidgetNetworkSetting|Connect ClWidgetNetworkSetting|Infrastructure on startup"_s);
    QStringList texts;
    for (const QPushButton* button : page.findChildren<QPushButton*>()) {
        texts.append(button->text());
    }
    texts.append(page.findChild<QLabel*>({}, Qt::FindDirectChildrenOnly)->text());
    QCOMPARE(texts, (QStringList{QString(), u"ClWidgetNetworkSetting|AP search and setting"_s,
                                 u"ClWidgetNetworkSetting|AP manual setting"_s,
                                 u"ClWidgetNetworkSetting|AP of selecting"_s}));
}

void InfrastructureTopLayoutTest::theTabKeyFollowsTheEye() {
    page().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page()));
    page().findChild<QCheckBox*>()->setFocus();
    for (QWidget* stop :
         QList<QWidget*>{page().findChild<QCheckBox*>(), page().findChild<ClButtonApInfo*>(),
                         &m_bench->user.button(u"AP search and setting"_s),
                         &m_bench->user.button(u"AP manual setting"_s)}) {
        QCOMPARE(QApplication::focusWidget(), stop);
        QTest::keyClick(stop, Qt::Key_Tab);
    }
}

void InfrastructureTopLayoutTest::theButtonHasANameWhileItIsEmpty() {
    const auto name = [this] {
        return QAccessible::queryAccessibleInterface(page().findChild<ClButtonApInfo*>())
            ->text(QAccessible::Name);
    };
    QCOMPARE(name(), u"AP of selecting"_s);
    page().slotReceiveCommand(ssidAnswer(u"Harbour"_s));
    page().slotReceiveCommand(linkAnswer(2, u"Harbour"_s, {}));
    QCOMPARE(name(), u"Harbour, Linked, AES, Signal strength 72"_s);
}

const TestSubject registered = subjectWithWidgets<InfrastructureTopLayoutTest>();
#include "InfrastructureTopLayoutTest.moc"
