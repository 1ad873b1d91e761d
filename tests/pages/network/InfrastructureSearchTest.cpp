// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureSearch.h"
#include "tests/pages/PageBench.h"
#include "tests/pages/network/AccesspointMessages.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/ui/TaggingTranslator.h"
#include "ui/ApBadges.h"
#include "ui/ClLabelSsid.h"
#include "ui/ClWidgetApInfo.h"
#include "ui/ClWidgetApList.h"

#include <QLayout>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString GET_LINK = u"USB_REQ_NUBO_CMD_GET_WIFI_INFO"_s;
const QString SCAN = u"USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST"_s;
const QString UNKNOWN_ERROR = u"Exec failed, unknown error"_s;

const AccesspointList THREE{
    {u"Harbour"_s, u"a"_s, 9, 4, 9, 90},
    {u"Quay"_s, u"Harbour"_s, 9, 0, 9, 40},
    {u"Lighthouse"_s, u"c"_s, 9, 1, 9, static_cast<quint32>(-20)},
};

AccesspointList many(int count) {
    AccesspointList accesspoints;
    for (int number = 0; number < count; ++number) {
        accesspoints.append({u"AP %1"_s.arg(number), {}, 0, 4, 0, 50});
    }
    return accesspoints;
}

}  // namespace

/// The sub-page that lists the access points: its look, its scans and its list.
class InfrastructureSearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QCoreApplication::setApplicationName(u"Test program"_s); }
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void everythingStandsAtItsPlace();
    void itsTextsAreTheNetworkPages();
    void theButtonsScanAndLeave();
    void comingOnShowReadsTheLinkAndScans();
    void whatTheTopSubPageHasAskedForIsNoReasonToScan();

    void listsWhatWasFoundInItsOrder_data();
    void listsWhatWasFoundInItsOrder();
    void aRowShowsItsAccessPoint();
    void skipsWhatHasNoName();
    void onlyTheLinkedAccessPointIsChecked_data();
    void onlyTheLinkedAccessPointIsChecked();
    void aNewScanReplacesTheList();
    void theListIsHiddenWhileItIsFilled();
    void theListIsPaintedOnTheScreen();
    void otherWindowsArePaintedAllTheSame();
    void theKeyboardScrollsTheList();
    void scrollingLaysNothingOutAgain();

    void aFailureIsShownEachTime_data();
    void aFailureIsShownEachTime();
    void aFailedScanLeavesTheList();
    void otherResultsAreLeftAlone_data();
    void otherResultsAreLeftAlone();

private:
    [[nodiscard]] ClWidgetInfrastructureSearch& page() { return m_bench->page; }
    [[nodiscard]] QScrollArea& area() { return *page().findChild<QScrollArea*>(); }
    [[nodiscard]] QList<ClWidgetApInfo*> rows() {
        return area().widget()->findChildren<ClWidgetApInfo*>();
    }
    [[nodiscard]] QStringList ssids();

    std::optional<PageBench<ClWidgetInfrastructureSearch>> m_bench;
};

QStringList InfrastructureSearchTest::ssids() {
    QStringList texts;
    for (const ClWidgetApInfo* row : rows()) {
        texts.append(row->findChild<ClLabelSsid*>()->text());
    }
    return texts;
}

void InfrastructureSearchTest::everythingStandsAtItsPlace() {
    const PageUser& user = m_bench->user;
    QCOMPARE(user.label(u"Display list that can connect AP"_s).pos(), QPoint(35, 20));
    QCOMPARE(area().geometry(), QRect(14, 54, 572, 364));
    QCOMPARE(area().minimumSize(), QSize(572, 364));
    QCOMPARE(area().maximumSize(), QSize(572, 364));
    QVERIFY(area().autoFillBackground());
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        QCOMPARE(area().palette().color(group, QPalette::Window), QColor(185, 193, 202));
    }
    QCOMPARE(page().grab().toImage().pixelColor(300, 300), QColor(185, 193, 202));

    const QAbstractButton& research = user.button(u"Research"_s);
    const QAbstractButton& back = user.button(u"Back"_s);
    const QWidget* bar = research.parentWidget();
    QCOMPARE(back.parentWidget(), bar);
    QCOMPARE(bar->pos(), QPoint(0, 423));
    QCOMPARE(bar->minimumWidth(), 600);
    QCOMPARE(bar->maximumWidth(), 600);
    QCOMPARE(bar->layout()->contentsMargins(), QMargins(0, 0, 15, 0));
    QCOMPARE(research.minimumSize(), QSize(133, 30));
    QCOMPARE(back.minimumSize(), QSize(133, 30));
    QCOMPARE(back.geometry().right() + 1, 585);
    QCOMPARE(back.x() - research.geometry().right() - 1, 10);
}

void InfrastructureSearchTest::itsTextsAreTheNetworkPages() {
    const TaggingTranslator translator;
    ClWidgetInfrastructureSearch page;
    page.show();
    const PageUser user(page);
    for (const char* text : {"Display list that can connect AP", "Research", "Back"}) {
        QVERIFY2(user.shows(u"ClWidgetNetworkSetting|"_s + QLatin1String(text)), text);
    }
}

void InfrastructureSearchTest::theButtonsScanAndLeave() {
    const QSignalSpy changed(&page(), &ClWidgetInfrastructureSearch::sigChangePage);
    m_bench->user.click(u"Research"_s);
    QCOMPARE(m_bench->takeSent(), QStringList{SCAN});
    QVERIFY(changed.isEmpty());
    m_bench->user.click(u"Back"_s);
    QVERIFY(m_bench->takeSent().isEmpty());
    QCOMPARE(changed, (QList<QVariantList>{{0}}));
}

void InfrastructureSearchTest::comingOnShowReadsTheLinkAndScans() {
    for (const bool isPolling : {false, true}) {
        page().showInit(isPolling);
        QCOMPARE(m_bench->takeSent(), QStringList{GET_LINK});
        for (const unsigned int state : {0U, 1U, 2U}) {
            page().slotReceiveCommand(linkAnswer(state, {}, {}));
            QCOMPARE(m_bench->takeSent(), QStringList{SCAN});
        }
        page().slotReceiveCommand(scanAnswer(THREE));
        QVERIFY(m_bench->takeSent().isEmpty());
    }
}

void InfrastructureSearchTest::whatTheTopSubPageHasAskedForIsNoReasonToScan() {
    QWidget top;
    const auto answerTo = [](QWidget& asker, const QString& linked) {
        VX_CMD answer = linkAnswer(2, {}, linked);
        answer.insert(u"Sender"_s, QVariant::fromValue<QObject*>(&asker));
        return answer;
    };
    page().showInit(false);
    page().slotReceiveCommand(answerTo(top, u"Lighthouse"_s));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_LINK});
    page().slotReceiveCommand(answerTo(page(), u"Quay"_s));
    QCOMPARE(m_bench->takeSent(), QStringList{SCAN});
    page().slotReceiveCommand(scanAnswer(THREE));
    QVERIFY(!rows()[1]->findChild<ClLinkCheck*>()->pixmap().isNull());
    QVERIFY(rows()[2]->findChild<ClLinkCheck*>()->pixmap().isNull());
}

void InfrastructureSearchTest::listsWhatWasFoundInItsOrder_data() {
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 4, 64, 500}) {
        QTest::addRow("%d", count) << count;
    }
}

void InfrastructureSearchTest::listsWhatWasFoundInItsOrder() {
    QFETCH(int, count);
    page().slotReceiveCommand(scanAnswer(many(count)));
    QStringList expected;
    for (int number = 0; number < count; ++number) {
        expected.append(u"AP %1"_s.arg(number));
    }
    QCOMPARE(ssids(), expected);
    QVERIFY(area().isVisible());
    const auto* list = qobject_cast<ClWidgetApList*>(area().widget());
    QVERIFY(list != nullptr);
    QCOMPARE(list->size(), list->sizeHint());
    QCOMPARE(list->height(), 50 * count);
    // Everything can be reached without scrolling sideways.
    QVERIFY(!area().horizontalScrollBar()->isVisible());
    TRY_COMPARE(area().verticalScrollBar()->isVisible(), 50 * count > 364);
}

void InfrastructureSearchTest::aRowShowsItsAccessPoint() {
    page().slotReceiveCommand(scanAnswer(THREE));
    QStringList shown;
    for (const ClWidgetApInfo* row : rows()) {
        shown.append(row->accessibleName());
        QVERIFY(row->isVisible());
    }
    QCOMPARE(shown, (QStringList{u"Harbour, AES, Signal strength 90"_s,
                                 u"Quay, Signal strength 40"_s, u"Lighthouse, WEP"_s}));
}

void InfrastructureSearchTest::skipsWhatHasNoName() {
    AccesspointList accesspoints = THREE;
    accesspoints[1].ssid.clear();
    page().slotReceiveCommand(scanAnswer(accesspoints));
    QCOMPARE(ssids(), (QStringList{u"Harbour"_s, u"Lighthouse"_s}));
    QCOMPARE(area().widget()->height(), 100);
    page().slotReceiveCommand(scanAnswer({{}, {}}));
    QVERIFY(ssids().isEmpty());
}

void InfrastructureSearchTest::onlyTheLinkedAccessPointIsChecked_data() {
    QTest::addColumn<unsigned int>("state");
    QTest::addColumn<QString>("second");
    QTest::addColumn<int>("checked");
    QTest::newRow("linked") << 2U << u"Quay"_s << 1;
    QTest::newRow("ad-hoc") << 3U << u"Quay"_s << 1;
    QTest::newRow("state 1, with a name all the same") << 1U << u"Quay"_s << -1;
    QTest::newRow("state 0") << 0U << u"Quay"_s << -1;
    QTest::newRow("not in the list") << 2U << u"Pier"_s << -1;
    QTest::newRow("differs in case") << 2U << u"quay"_s << -1;
    QTest::newRow("no name") << 2U << QString() << -1;
}

void InfrastructureSearchTest::onlyTheLinkedAccessPointIsChecked() {
    QFETCH(unsigned int, state);
    QFETCH(QString, second);
    QFETCH(int, checked);
    // An earlier answer counts no longer.
    page().slotReceiveCommand(linkAnswer(2, {}, u"Lighthouse"_s));
    // The first text is not the one that counts here.
    page().slotReceiveCommand(linkAnswer(state, u"Harbour"_s, second));
    page().slotReceiveCommand(scanAnswer(THREE));
    for (int number = 0; number < 3; ++number) {
        QCOMPARE(!rows()[number]->findChild<ClLinkCheck*>()->pixmap().isNull(), number == checked);
    }
}

void InfrastructureSearchTest::aNewScanReplacesTheList() {
    page().slotReceiveCommand(scanAnswer(many(500)));
    const QPointer<QWidget> former = area().widget();
    area().verticalScrollBar()->setValue(10000);
    page().slotReceiveCommand(scanAnswer(THREE));
    QCOMPARE(ssids(), (QStringList{u"Harbour"_s, u"Quay"_s, u"Lighthouse"_s}));
    QCOMPARE(area().widget()->y(), 0);
    TRY_VERIFY(former.isNull());
    QCOMPARE(page().findChildren<ClWidgetApList*>().size(), 1);
}

void InfrastructureSearchTest::theListIsHiddenWhileItIsFilled() {
    // Notes whether the area is visible when the list comes into it.
    class Watcher : public QObject {
    public:
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::ChildAdded) {
                isVisible = static_cast<QWidget*>(watched)->isVisible();
            }
            return false;
        }
        std::optional<bool> isVisible;
    } watcher;
    area().viewport()->installEventFilter(&watcher);
    page().slotReceiveCommand(scanAnswer(THREE));
    QCOMPARE(watcher.isVisible, std::optional(false));
    QVERIFY(area().isVisible());
}

void InfrastructureSearchTest::theListIsPaintedOnTheScreen() {
    QVERIFY(QTest::qWaitForWindowExposed(&page()));
    // Not as it would be painted, but as it has been.
    const auto onScreen = [this] {
        return page()
            .screen()
            ->grabWindow(page().winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    };
    const auto expected = [this] {
        return page().grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    for (const int count : {3, 0, 64}) {
        page().slotReceiveCommand(scanAnswer(many(count)));
        TRY_COMPARE(onScreen(), expected());
    }
    area().verticalScrollBar()->setValue(1000);
    TRY_COMPARE(onScreen(), expected());
}

void InfrastructureSearchTest::otherWindowsArePaintedAllTheSame() {
    class Child : public QWidget {
    public:
        using QWidget::QWidget;
        bool isPainted = false;

    protected:
        void paintEvent(QPaintEvent* /*event*/) override { isPainted = true; }
    };
    QWidget window;
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCoreApplication::processEvents();
    Child child(&window);
    child.show();
    page().slotReceiveCommand(scanAnswer(THREE));
    QTRY_VERIFY(child.isPainted);
}

void InfrastructureSearchTest::theKeyboardScrollsTheList() {
    page().slotReceiveCommand(scanAnswer(many(64)));
    page().activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&page()));
    const auto isShown = [this](const QWidget* row) {
        return area().viewport()->rect().contains(
            QRect(row->mapTo(area().viewport(), QPoint()), row->size()));
    };
    rows().first()->setFocus();
    for (const auto& [key, number] :
         {std::pair(Qt::Key_End, 63), std::pair(Qt::Key_Home, 0), std::pair(Qt::Key_Down, 1)}) {
        QTest::keyClick(QApplication::focusWidget(), key);
        QVERIFY(rows()[number]->hasFocus());
        QVERIFY(isShown(rows()[number]));
    }
}

void InfrastructureSearchTest::scrollingLaysNothingOutAgain() {
    class Counter : public QObject {
    public:
        bool eventFilter(QObject* /*watched*/, QEvent* event) override {
            layouts += event->type() == QEvent::LayoutRequest ? 1 : 0;
            moves += event->type() == QEvent::Move ? 1 : 0;
            return false;
        }
        int layouts = 0;
        int moves = 0;
    } counter;
    page().slotReceiveCommand(scanAnswer(many(64)));
    TRY_VERIFY(area().verticalScrollBar()->isVisible());
    QCoreApplication::processEvents();
    area().widget()->installEventFilter(&counter);
    rows()[5]->installEventFilter(&counter);
    for (int value = 10; value <= 500; value += 10) {
        area().verticalScrollBar()->setValue(value);
        QCoreApplication::processEvents();
    }
    // The list moves as a whole.
    QCOMPARE(counter.moves, 50);
    QCOMPARE(counter.layouts, 0);
}

void InfrastructureSearchTest::aFailureIsShownEachTime_data() {
    QTest::addColumn<QUuid>("kind");
    QTest::addColumn<QUuid>("command");
    QTest::addColumn<unsigned short>("code");
    QTest::addColumn<QString>("text");
    const QList<std::pair<const char*, QUuid>> refused{
        {"link", USB_REQ_NUBO_CMD_GET_WIFI_INFO},
        {"scan", USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST},
        {"SSID", USB_NUBO_CMD_SET_INFRA_SSID},
        {"key", USB_NUBO_CMD_SET_INFRA_KEY},
    };
    for (const auto& [name, command] : refused) {
        QTest::addRow("%s, refused", name)
            << USB_NUBO_CMD_RESPONSE << command << static_cast<unsigned short>(0xFFFB)
            << u"Parameter setting failed"_s;
    }
    for (const auto& [name, command] : refused.first(2)) {
        QTest::addRow("%s, lost", name)
            << USB_CMD_ERROR << command << static_cast<unsigned short>(0xEF03) << UNKNOWN_ERROR;
    }
}

void InfrastructureSearchTest::aFailureIsShownEachTime() {
    QFETCH(QUuid, kind);
    QFETCH(QUuid, command);
    QFETCH(unsigned short, code);
    QFETCH(QString, text);
    const QSignalSpy changed(&page(), &ClWidgetInfrastructureSearch::sigChangePage);
    g_bIsShowError = true;
    page().slotReceiveCommand(plainResult(kind, command, code));
    page().slotReceiveCommand(plainResult(kind, command, code));
    QCOMPARE(m_bench->boxes.texts(), (QStringList{text, text}));
    QVERIFY(m_bench->takeSent().isEmpty());
    QVERIFY(changed.isEmpty());
}

void InfrastructureSearchTest::aFailedScanLeavesTheList() {
    page().slotReceiveCommand(scanAnswer(THREE));
    const QImage before = page().grab().toImage();
    m_bench->respond(USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST, 0xFFFF);
    m_bench->fail(USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST, 0xEF03);
    QCOMPARE(m_bench->boxes.boxes().size(), 2);
    QCOMPARE(page().grab().toImage(), before);
}

void InfrastructureSearchTest::otherResultsAreLeftAlone_data() {
    QTest::addColumn<VX_CMD>("message");
    QTest::newRow("success of a read")
        << plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_WIFI_INFO, 0);
    QTest::newRow("success of a write that was not asked for")
        << plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_SET_INFRA_SSID, 0);
    QTest::newRow("camera gone") << plainResult(USB_CMD_ERROR,
                                                USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST, 0xEF00);
    QTest::newRow("SSID lost") << plainResult(USB_CMD_ERROR, USB_NUBO_CMD_SET_INFRA_SSID, 0xEF03);
    QTest::newRow("key lost") << plainResult(USB_CMD_ERROR, USB_NUBO_CMD_SET_INFRA_KEY, 0xEF03);
    QTest::newRow("another command refused")
        << plainResult(USB_NUBO_CMD_RESPONSE, USB_REQ_NUBO_CMD_GET_INFRA_SSID, 0xFFFF);
    QTest::newRow("another answer") << ssidAnswer(u"Harbour"_s);
    QTest::newRow("nothing") << VX_CMD();
}

void InfrastructureSearchTest::otherResultsAreLeftAlone() {
    QFETCH(VX_CMD, message);
    page().slotReceiveCommand(scanAnswer(THREE));
    const QSignalSpy changed(&page(), &ClWidgetInfrastructureSearch::sigChangePage);
    const QImage before = page().grab().toImage();
    page().slotReceiveCommand(message);
    QVERIFY(m_bench->boxes.boxes().isEmpty());
    QVERIFY(m_bench->takeSent().isEmpty());
    QCOMPARE(page().grab().toImage(), before);
    QVERIFY(changed.isEmpty());
}

const TestSubject registered = subjectWithWidgets<InfrastructureSearchTest>();
#include "InfrastructureSearchTest.moc"
