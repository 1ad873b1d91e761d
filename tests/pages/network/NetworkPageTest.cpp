// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetAdhoc.h"
#include "pages/network/ClWidgetInfrastructureTop.h"
#include "tests/pages/network/NetworkBench.h"
#include "tests/support/TestSubject.h"
#include "ui/ClButtonApInfo.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QPushButton>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString ADHOC_TITLE = u"Set the IP Adderss and Subnetmask when connect by adhoc"_s;

}  // namespace

/// The tabs of the network page and the sub-pages of the first one: which is on show, and what
/// passes between it and the camera.
class NetworkPageTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_bench.emplace(); }
    void cleanup() { m_bench.reset(); }

    void everythingStandsAtItsPlace();
    void theTabsAreNamedAndTakeNoFocus();
    void aButtonBoxHasItsTwoRoles();
    void infrastructureIsShownFirst();
    void aTabShowsItsPage();
    void otherTabsChangeNothing_data();
    void otherTabsChangeNothing();
    void aTabCanBeChosenByItsNumber();
    void everySubPageIsReached_data();
    void everySubPageIsReached();
    void theOtherTabTakesTheSubPagesBackToTheTop();
    void theAdhocTabReturnsWhenItIsDone();
    void showingThePageRefreshesWhatIsOnShow_data();
    void showingThePageRefreshesWhatIsOnShow();
    void pollingRefreshesNoTab();
    void requestsKeepTheirSender();
    void answersReachThePageOnShowOnly();
    void answersToThePageItselfStayThere();
    void whatIsOthersIsPassedOnUnchanged();

private:
    /// Opens the sub-page by its button, or stays when it is empty.
    void openSubPage(const QString& name);
    [[nodiscard]] bool shows(const QString& text) const { return m_bench->user.shows(text); }

    std::optional<NetworkBench> m_bench;
};

void NetworkPageTest::openSubPage(const QString& name) {
    if (name == "DHCP"_L1) {
        QTest::mouseClick(m_bench->page.findChild<ClButtonApInfo*>(), Qt::LeftButton);
    } else if (!name.isEmpty()) {
        m_bench->user.click(name);
    }
}

void NetworkPageTest::everythingStandsAtItsPlace() {
    QCOMPARE(m_bench->network.tab(INFRASTRUCTURE).geometry(), QRect(114, 3, 172, 36));
    QCOMPARE(m_bench->network.tab(ADHOC).geometry(), QRect(314, 3, 172, 36));
    const auto* bar = qobject_cast<QLabel*>(m_bench->page.childAt(1, 20));
    QVERIFY(bar != nullptr);
    QCOMPARE(bar->geometry(), QRect(0, 3, 600, 36));
    QCOMPARE(bar->pixmap().deviceIndependentSize(), QSizeF(600, 36));
    const auto* tabPage = m_bench->page.findChild<ClWidgetAdhoc*>();
    QCOMPARE(tabPage->parentWidget()->geometry(), QRect(0, 39, 600, 466));
    m_bench->network.clickTab(ADHOC);
    QCOMPARE(tabPage->geometry(), QRect(0, 0, 600, 466));
}

void NetworkPageTest::theTabsAreNamedAndTakeNoFocus() {
    for (const QString& name : {INFRASTRUCTURE, ADHOC}) {
        ClButtonNetworkTab& tab = m_bench->network.tab(name);
        QCOMPARE(tab.focusPolicy(), Qt::NoFocus);
        QVERIFY(tab.isCheckable());
        QCOMPARE(QAccessible::queryAccessibleInterface(&tab)->text(QAccessible::Name), name);
    }
}

void NetworkPageTest::aButtonBoxHasItsTwoRoles() {
    const auto box = ClWidgetNetworkSetting::createButtonBox(u"Take"_s, u"Leave"_s);
    QCOMPARE(box->parent(), nullptr);
    QCOMPARE(box->buttons().size(), 2);
    for (QAbstractButton* button : box->buttons()) {
        QCOMPARE(button->text(),
                 box->buttonRole(button) == QDialogButtonBox::AcceptRole ? u"Take"_s : u"Leave"_s);
    }
}

void NetworkPageTest::infrastructureIsShownFirst() {
    QVERIFY(m_bench->network.tab(INFRASTRUCTURE).isChecked());
    QVERIFY(!m_bench->network.tab(ADHOC).isChecked());
    QVERIFY(shows(u"AP of selecting"_s));
    QVERIFY(!shows(ADHOC_TITLE));
}

void NetworkPageTest::aTabShowsItsPage() {
    QSignalSpy changed(&m_bench->page, &ClWidgetNetworkSetting::sigChangeTab);
    // Again and again: nothing is ever asked for twice.
    for (int round = 0; round < 3; ++round) {
        m_bench->network.clickTab(ADHOC);
        QVERIFY(m_bench->network.tab(ADHOC).isChecked());
        QVERIFY(!m_bench->network.tab(INFRASTRUCTURE).isChecked());
        QVERIFY(shows(ADHOC_TITLE));
        QVERIFY(!shows(u"AP of selecting"_s));
        QCOMPARE(m_bench->takeSent(), QStringList{GET_ADHOC_SSID});

        m_bench->network.clickTab(INFRASTRUCTURE);
        QVERIFY(m_bench->network.tab(INFRASTRUCTURE).isChecked());
        QVERIFY(shows(u"AP of selecting"_s));
        QVERIFY(!shows(ADHOC_TITLE));
        QCOMPARE(m_bench->takeSent(), QStringList{GET_INFRA_SSID});
    }
    // The tab on show already.
    m_bench->network.clickTab(INFRASTRUCTURE);
    QCOMPARE(m_bench->takeSent(), QStringList());
    QCOMPARE(changed, (QList<QVariantList>{{1}, {0}, {1}, {0}, {1}, {0}}));
}

void NetworkPageTest::otherTabsChangeNothing_data() {
    QTest::addColumn<int>("index");
    QTest::newRow("2") << 2;
    QTest::newRow("-1") << -1;
    QTest::newRow("-2") << -2;
}

void NetworkPageTest::otherTabsChangeNothing() {
    QFETCH(const int, index);
    for (const QString& tab : {INFRASTRUCTURE, ADHOC}) {
        m_bench->network.clickTab(tab);
        m_bench->takeSent();
        m_bench->page.slotChangeTab(index);
        QVERIFY(m_bench->network.tab(tab).isChecked());
        QCOMPARE(shows(ADHOC_TITLE), tab == ADHOC);
        QCOMPARE(m_bench->takeSent(), QStringList());
    }
}

void NetworkPageTest::aTabCanBeChosenByItsNumber() {
    m_bench->page.slotChangeTab(1);
    QVERIFY(m_bench->network.tab(ADHOC).isChecked());
    QCOMPARE(m_bench->takeSent(), QStringList{GET_ADHOC_SSID});
    m_bench->page.slotChangeTab(0);
    QVERIFY(m_bench->network.tab(INFRASTRUCTURE).isChecked());
    QCOMPARE(m_bench->takeSent(), QStringList{GET_INFRA_SSID});
    // Choosing it again refreshes it.
    m_bench->page.slotChangeTab(0);
    QCOMPARE(m_bench->takeSent(), QStringList{GET_INFRA_SSID});
}

void NetworkPageTest::everySubPageIsReached_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("sent");
    QTest::newRow("search") << u"AP search and setting"_s << u"Display list that can connect AP"_s
                            << QStringList{GET_WIFI_INFO};
    QTest::newRow("manual") << u"AP manual setting"_s << u"Input SSID to connect AP"_s
                            << QStringList();
    QTest::newRow("DHCP") << u"DHCP"_s << u"Set ON when use DHCP server"_s << QStringList{GET_DHCP};
}

void NetworkPageTest::everySubPageIsReached() {
    QFETCH(const QString, name);
    QFETCH(const QString, shown);
    for (int round = 0; round < 2; ++round) {
        openSubPage(name);
        QVERIFY(shows(shown));
        QVERIFY(!shows(u"AP of selecting"_s));
        QTEST(m_bench->takeSent(), "sent");
        m_bench->user.click(u"Back"_s);
        QVERIFY(shows(u"AP of selecting"_s));
        QCOMPARE(m_bench->takeSent(), QStringList{GET_INFRA_SSID});
    }
}

void NetworkPageTest::theOtherTabTakesTheSubPagesBackToTheTop() {
    for (const QString& name : {u"AP search and setting"_s, u"AP manual setting"_s, u"DHCP"_s}) {
        openSubPage(name);
        m_bench->takeSent();
        m_bench->network.clickTab(ADHOC);
        m_bench->network.clickTab(INFRASTRUCTURE);
        QVERIFY(shows(u"AP of selecting"_s));
        QCOMPARE(m_bench->takeSent(), (QStringList{GET_ADHOC_SSID, GET_INFRA_SSID}));
    }
}

void NetworkPageTest::theAdhocTabReturnsWhenItIsDone() {
    m_bench->network.clickTab(ADHOC);
    m_bench->takeSent();
    m_bench->user.click(u"Back"_s);
    QVERIFY(m_bench->network.tab(INFRASTRUCTURE).isChecked());
    QVERIFY(shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->takeSent(), QStringList{GET_INFRA_SSID});
}

void NetworkPageTest::showingThePageRefreshesWhatIsOnShow_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("sent");
    QTest::newRow("top") << QString() << QStringList{GET_INFRA_SSID, GET_ONOFF};
    QTest::newRow("search") << u"AP search and setting"_s << QStringList{GET_WIFI_INFO, GET_ONOFF};
    QTest::newRow("manual") << u"AP manual setting"_s << QStringList{GET_ONOFF};
    QTest::newRow("DHCP") << u"DHCP"_s << QStringList{GET_DHCP, GET_ONOFF};
    QTest::newRow("ad hoc") << ADHOC << QStringList{GET_ADHOC_SSID, GET_ONOFF};
}

void NetworkPageTest::showingThePageRefreshesWhatIsOnShow() {
    QFETCH(const QString, name);
    if (name == ADHOC) {
        m_bench->network.clickTab(ADHOC);
    } else {
        openSubPage(name);
    }
    m_bench->takeSent();
    m_bench->page.showInit(false);
    QTEST(m_bench->takeSent(), "sent");
}

void NetworkPageTest::pollingRefreshesNoTab() {
    for (const QString& tab : {INFRASTRUCTURE, ADHOC}) {
        m_bench->network.clickTab(tab);
        m_bench->sent.clear();
        m_bench->page.showInit(true);
        QCOMPARE(m_bench->sent.size(), 1);
        const QVariantMap expected{{u"CMD"_s, WifiOnOffRequest::USB_RES_NUBO_CMD_GET_WIFI_ONOFF},
                                   {u"Sender"_s, QVariant::fromValue<QObject*>(&m_bench->page)}};
        QCOMPARE(m_bench->sent.first().first().toMap(), expected);
    }
}

void NetworkPageTest::requestsKeepTheirSender() {
    m_bench->sent.clear();
    m_bench->page.slotChangeTab(0);
    m_bench->page.slotChangeTab(1);
    const QList<QObject*> expected{m_bench->page.findChild<ClWidgetInfrastructureTop*>(),
                                   m_bench->page.findChild<ClWidgetAdhoc*>()};
    QCOMPARE(m_bench->sent.size(), 2);
    for (qsizetype i = 0; i < 2; ++i) {
        const QVariantMap request = m_bench->sent[i].first().toMap();
        QCOMPARE(request.value(u"Sender"_s).value<QObject*>(), expected[i]);
    }
}

void NetworkPageTest::answersReachThePageOnShowOnly() {
    openSubPage(u"DHCP"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"192.168.0.20"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, u"192.168.10.1"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_SSID, u"Harbour"_s);
    QCOMPARE(m_bench->user.edit(u"IP Address"_s).text(), u"192.168.0.20"_s);
    // Neither the top sub-page nor the other tab has asked for more.
    QCOMPARE(m_bench->takeSent(),
             (QStringList{GET_DHCP, u"USB_REQ_NUBO_CMD_GET_INFRA_SUBNETMASK"_s}));

    m_bench->network.clickTab(ADHOC);
    m_bench->takeSent();
    QCOMPARE(m_bench->user.edit(u"IP Address"_s).text(), QString());
    m_bench->answer(USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, u"192.168.10.1"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"192.168.0.21"_s);
    QCOMPARE(m_bench->user.edit(u"IP Address"_s).text(), u"192.168.10.1"_s);
    QCOMPARE(m_bench->takeSent(), QStringList{u"USB_REQ_NUBO_CMD_GET_ADHOC_SUBNETMASK"_s});
}

void NetworkPageTest::answersToThePageItselfStayThere() {
    m_bench->network.clickTab(ADHOC);
    m_bench->takeSent();
    QSignalSpy passedOn(&m_bench->page, &ClWidgetNetworkSetting::sigReceiveCommand);
    m_bench->answerPage(USB_RES_NUBO_CMD_GET_ADHOC_ADDRESS, u"192.168.10.1"_s);
    m_bench->answerOnOff(false);
    m_bench->answerMode(1);
    QVERIFY(passedOn.isEmpty());
    QCOMPARE(m_bench->user.edit(u"IP Address"_s).text(), QString());
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void NetworkPageTest::whatIsOthersIsPassedOnUnchanged() {
    QSignalSpy passedOn(&m_bench->page, &ClWidgetNetworkSetting::sigReceiveCommand);
    const QList<VX_CMD> messages{
        valueAnswer(USB_RES_NUBO_CMD_GET_WIFI_ONOFF, false),
        valueAnswer(USB_RES_NUBO_CMD_GET_BATTERY, 1U, this),
        plainResult(USB_NUBO_CMD_RESPONSE, USB_NUBO_CMD_SET_INFRA_SSID, 0),
        plainResult(USB_CMD_ERROR, USB_NUBO_CMD_SET_ADHOCKEY, 0xEF03),
        {},
    };
    for (const VX_CMD& message : messages) {
        m_bench->page.slotReceiveCommand(message);
    }
    QCOMPARE(passedOn.size(), messages.size());
    for (qsizetype i = 0; i < messages.size(); ++i) {
        QCOMPARE(passedOn[i].first().toMap(), messages[i]);
    }
}

const TestSubject registered = subjectWithWidgets<NetworkPageTest>();
#include "NetworkPageTest.moc"
