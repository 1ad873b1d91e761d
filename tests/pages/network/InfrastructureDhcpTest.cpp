// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureDhcp.h"
#include "tests/pages/PageBench.h"
#include "tests/support/TestSubject.h"
#include "ui/ClLabelSepalator.h"

#include <QAccessible>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

const QString TITLE = u"Set ON when use DHCP server"_s;
const QString ADDRESS_TITLE = u"Set the IP Address, Subnetmask and Default Gateway"_s;
const QStringList ADDRESSES{u"IP Address"_s, u"Subnetmask"_s, u"Default Gateway"_s};

const QString SET_DHCP_ON = u"USB_NUBO_CMD_SET_INFRA_USE_DHCP bool true"_s;
const QString SET_DHCP_OFF = u"USB_NUBO_CMD_SET_INFRA_USE_DHCP bool false"_s;
const QString SET_ADDRESS = u"USB_NUBO_CMD_SET_INFRA_ADDRESS QString 10.0.0.7"_s;
const QString SET_GATEWAY = u"USB_NUBO_CMD_SET_INFRA_GATEWAY QString 10.0.0.1"_s;

}  // namespace

/// What is the DHCP sub-page's own: the choice of DHCP, and what it means to the addresses.
/// AddressFormTest has the rest.
class InfrastructureDhcpTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_bench.reset(); }

    void theChoiceStandsAtItsPlace();
    void screenReadersNameTheChoices();
    void theChoiceFollowsTheCamera();
    void addressesAreEditedOnlyWhileDhcpIsOff();
    void nothingChangedLeavesAtOnceUnderDhcpToo();
    void aChangedChoiceIsWritten_data();
    void aChangedChoiceIsWritten();
    void theChoiceIsWrittenBeforeTheAddresses();
    void addressesThatAreNotValidAreNotWrittenUnderDhcpEither();

private:
    void readFromCamera(bool useDhcp);
    [[nodiscard]] QAbstractButton& choice(const QString& text) const {
        return m_bench->user.button(text);
    }
    void decide() { m_bench->user.click(u"Decision"_s); }

    std::optional<PageBench<ClWidgetInfrastructureDhcp>> m_bench;
    QList<int> m_left;
};

void InfrastructureDhcpTest::init() {
    m_bench.emplace();
    m_left.clear();
    connect(&m_bench->page, &ClWidgetInfrastructureDhcp::sigChangePage, this,
            [this](int page) { m_left.append(page); });
}

void InfrastructureDhcpTest::readFromCamera(bool useDhcp) {
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, useDhcp);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_ADDRESS, u"192.168.0.20"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_SUBNETMASK, u"255.255.255.0"_s);
    m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_GATEWAY, u"192.168.0.1"_s);
    m_bench->takeSent();
}

void InfrastructureDhcpTest::theChoiceStandsAtItsPlace() {
    const PageUser& user = m_bench->user;
    QCOMPARE(user.label(TITLE).pos(), QPoint(36, 41));
    const QWidget* row = user.label(u"DHCP"_s).parentWidget();
    QCOMPARE(row->x() + row->sizeHint().width(), 438);
    QCOMPARE(row->y(), 77);
    QCOMPARE(row->width(), row->sizeHint().width());
    const QRect caption = user.label(u"DHCP"_s).geometry();
    QCOMPARE(choice(u"ON"_s).x() - caption.right() - 1, 104);
    QCOMPARE(choice(u"OFF"_s).x() - choice(u"ON"_s).geometry().right() - 1, 20);
    QCOMPARE(m_bench->page.findChild<ClLabelSepalator*>()->pos(), QPoint(0, 117));
    QCOMPARE(user.label(ADDRESS_TITLE).pos(), QPoint(36, 148));
}

void InfrastructureDhcpTest::screenReadersNameTheChoices() {
    for (const QString& text : {u"ON"_s, u"OFF"_s}) {
        auto* button = QAccessible::queryAccessibleInterface(&choice(text));
        QCOMPARE(button->text(QAccessible::Name), u"DHCP "_s + text);
    }
}

void InfrastructureDhcpTest::theChoiceFollowsTheCamera() {
    for (const bool useDhcp : {true, true, false, true, false}) {
        m_bench->answer(USB_RES_NUBO_CMD_GET_INFRA_USE_DHCP, useDhcp);
        QCOMPARE(m_bench->user.isChecked(u"ON"_s), useDhcp);
        QCOMPARE(m_bench->user.isChecked(u"OFF"_s), !useDhcp);
        QCOMPARE(m_bench->user.edit(ADDRESSES.first()).isEnabled(), !useDhcp);
    }
}

void InfrastructureDhcpTest::addressesAreEditedOnlyWhileDhcpIsOff() {
    const auto areEnabled = [this](bool expected) {
        bool all = m_bench->user.label(ADDRESS_TITLE).isEnabled() == expected;
        for (const QString& text : ADDRESSES) {
            all = all && m_bench->user.label(text).isEnabled() == expected &&
                  m_bench->user.edit(text).isEnabled() == expected;
        }
        return all;
    };
    QVERIFY(m_bench->user.isChecked(u"OFF"_s));
    QVERIFY(areEnabled(true));
    m_bench->user.click(u"ON"_s);
    QVERIFY(!m_bench->user.isChecked(u"OFF"_s));
    QVERIFY(areEnabled(false));
    QVERIFY(m_bench->user.label(TITLE).isEnabled());
    m_bench->user.click(u"OFF"_s);
    QVERIFY(areEnabled(true));
}

void InfrastructureDhcpTest::nothingChangedLeavesAtOnceUnderDhcpToo() {
    readFromCamera(true);
    decide();
    QCOMPARE(m_left, QList<int>{0});
    QCOMPARE(m_bench->takeSent(), QStringList());
}

void InfrastructureDhcpTest::aChangedChoiceIsWritten_data() {
    QTest::addColumn<bool>("useDhcp");
    QTest::addColumn<QString>("choice");
    QTest::addColumn<QString>("sent");
    QTest::newRow("on") << false << u"ON"_s << SET_DHCP_ON;
    QTest::newRow("off") << true << u"OFF"_s << SET_DHCP_OFF;
}

void InfrastructureDhcpTest::aChangedChoiceIsWritten() {
    QFETCH(const bool, useDhcp);
    QFETCH(const QString, choice);
    QFETCH(const QString, sent);
    readFromCamera(useDhcp);
    m_bench->user.click(choice);
    decide();
    QCOMPARE(m_bench->takeSent(), QStringList{sent});
    QVERIFY(m_left.isEmpty());
    m_bench->succeed(USB_NUBO_CMD_SET_INFRA_USE_DHCP);
    QCOMPARE(m_left, QList<int>{0});
}

void InfrastructureDhcpTest::theChoiceIsWrittenBeforeTheAddresses() {
    readFromCamera(false);
    m_bench->user.type(ADDRESSES.first(), u"10.0.0.7"_s);
    m_bench->user.type(ADDRESSES.last(), u"10.0.0.1"_s);
    m_bench->user.click(u"ON"_s);
    decide();
    // The camera takes its address from the server now; these are written all the same.
    QCOMPARE(m_bench->takeSent(), (QStringList{SET_DHCP_ON, SET_ADDRESS, SET_GATEWAY}));
    for (const QUuid& command : {USB_NUBO_CMD_SET_INFRA_GATEWAY, USB_NUBO_CMD_SET_INFRA_ADDRESS,
                                 USB_NUBO_CMD_SET_INFRA_USE_DHCP}) {
        QVERIFY(m_left.isEmpty());
        m_bench->succeed(command);
    }
    QCOMPARE(m_left, QList<int>{0});
}

void InfrastructureDhcpTest::addressesThatAreNotValidAreNotWrittenUnderDhcpEither() {
    for (const QString& caption : ADDRESSES) {
        readFromCamera(false);
        m_bench->user.type(caption, u"10.0.0."_s);
        m_bench->user.click(u"ON"_s);
        m_bench->boxes.forgetBoxes();
        decide();
        QCOMPARE(m_bench->boxes.texts(), QStringList{u"Not valid settings of network"_s});
    }
    QCOMPARE(m_bench->takeSent(), QStringList());
    QVERIFY(m_left.isEmpty());
}

const TestSubject registered = subjectWithWidgets<InfrastructureDhcpTest>();
#include "InfrastructureDhcpTest.moc"
