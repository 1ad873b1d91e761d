// SPDX-License-Identifier: MIT
#include "tests/app/NetworkOnBusBench.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/support/WireText.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

const QString LONGEST_SSID = u"Lighthouse-Keeper-Upper-Deck-2G4"_s;
const QString LONGEST_KEY = u"0123456789abcdefghijABCDEFGHIJ0123456789abcdefghijABCDEFGHIJxyz"_s;
constexpr auto LONGEST_SSID_WIRE =
    "20000000 4c69676874686f7573652d4b65657065722d55707065722d4465636b2d324734";
constexpr auto LONGEST_KEY_WIRE =
    "3f000000 30313233343536373839 6162636465666768696a 4142434445464748494a"
    "30313233343536373839 6162636465666768696a 4142434445464748494a 78797a";

QByteArray plain(const char* code, const char* parameter) {
    return wireBytes(plainRequest(code, parameter));
}

QByteArray text(const char* length, const char* code, const char* counted) {
    return wireBytes(textRequest(length, code, counted));
}

}  // namespace

/// The story of the network page with the USB side, libusb and a simulated camera behind it. One
/// window and one camera for all.
class NetworkOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit NetworkOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { m_bench.reset(); }

    void theCamerasValuesAreShown();
    void aLinkThatIsDownIsNoLink();
    void anOpenAccesspointIsChosen();
    void anEncryptedAccesspointIsChosen();
    void anSsidIsTyped();
    void anSsidIsTypedWithoutAKey();
    void addressesAreSetByHand();
    void dhcpIsSwitchedOn();
    void adhocAndBackAndOff();
    void uncheckingAndCheckingAgainSwitchesOnAgain();
    void theAddressInTheAdhocNetworkIsSet();
    void theLongestNamesOfTheOwnNetworkAreShown();
    void pollingTellsOfALink();
    void theOwnNetworkIsReadOnce();
    void aSingleChangeIsWrittenAlone();

private:
    QList<int> codesOfWifi() const;

    VirtualUsbBus& m_bus;
    std::optional<NetworkOnBusBench> m_bench;
};

/// What the camera received, without the reads of SSID and link: those that the page began before
/// may come between.
QList<int> NetworkOnBusTest::codesOfWifi() const {
    QList<int> codes = m_bench->camera->codes();
    codes.removeAll(0x503B);
    codes.removeAll(0x5001);
    return codes;
}

void NetworkOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void NetworkOnBusTest::init() {
    m_bench->user.setAction(acceptBox);
    QVERIFY(m_bench->enter());
}

void NetworkOnBusTest::theCamerasValuesAreShown() {
    m_bench->camera->forgetCodes();
    g_ulWifiMode = WIFI_MODE_UNKNOWN;
    m_bench->show();
    TRY_COMPARE(m_bench->camera->commands(), plainCommands(NETWORK_FIRST));
    TRY_COMPARE(g_ulWifiMode, WIFI_MODE_INFRASTRUCTURE);
    QVERIFY(m_bench->network.box(INFRASTRUCTURE).isChecked());
    QVERIFY(!m_bench->network.box(ADHOC).isChecked());
    QVERIFY(m_bench->waitForLink("Harbour"));
    m_bench->camera->forgetCodes();
    m_bench->show();
    TRY_COMPARE(m_bench->camera->commands(), plainCommands(NETWORK_REFRESH));
}

void NetworkOnBusTest::aLinkThatIsDownIsNoLink() {
    CameraState state = m_bench->camera->state();
    state.settings.wifi.state = 1;
    m_bench->camera->setState(state);
    QCOMPARE(state.settings.wifi.ssid, state.settings.infraSsid);
    m_bench->show();
    TRY_VERIFY(!m_bench->isLinked());
    QVERIFY(m_bench->waitForAccesspoint(u"Harbour"_s));
    QVERIFY(!m_bench->isLinked());
}

void NetworkOnBusTest::anOpenAccesspointIsChosen() {
    QVERIFY(m_bench->openSearch());
    m_bench->select(u"Guest"_s);
    QVERIFY(m_bench->waitForAccesspoint(u"Guest"_s));
    QCOMPARE(m_bench->written(),
             QList<QByteArray>{text("21000000", "3b58", "05000000 4775657374")});
    QVERIFY(!m_bench->isLinked());

    CameraState state = m_bench->camera->state();
    QCOMPARE(state.settings.infraSsid, "Guest");
    QCOMPARE(state.settings.infraKey, "breakwater");
    state.settings.wifi.ssid = "Guest";
    m_bench->camera->setState(state);
    m_bench->show();
    TRY_VERIFY(m_bench->isLinked());
}

void NetworkOnBusTest::anEncryptedAccesspointIsChosen() {
    m_bench->user.setAction([](QWidget& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), LONGEST_KEY);
        acceptBox(box);
    });
    QVERIFY(m_bench->openSearch());
    m_bench->select(LONGEST_SSID);
    QVERIFY(m_bench->waitForAccesspoint(LONGEST_SSID));
    TRY_COMPARE(m_bench->written(),
                (QList<QByteArray>{text("3c000000", "3b58", LONGEST_SSID_WIRE),
                                   text("5b000000", "3c58", LONGEST_KEY_WIRE)}));
    TRY_COMPARE(m_bench->camera->state().settings.infraKey, LONGEST_KEY.toStdString());
    QCOMPARE(m_bench->camera->state().settings.infraSsid, LONGEST_SSID.toStdString());
}

void NetworkOnBusTest::anSsidIsTyped() {
    m_bench->network.click(u"AP manual setting"_s);
    m_bench->network.type(u"SSID"_s, LONGEST_SSID + u"5G"_s);
    m_bench->user.setAction([](QWidget& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), u"k1"_s);
        acceptBox(box);
    });
    m_bench->network.click(u"Decision"_s);
    QVERIFY(m_bench->waitForAccesspoint(LONGEST_SSID));
    QVERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(), (QList<QByteArray>{text("3c000000", "3b58", LONGEST_SSID_WIRE),
                                                    text("1e000000", "3c58", "02000000 6b31")}));
}

void NetworkOnBusTest::anSsidIsTypedWithoutAKey() {
    m_bench->network.click(u"AP manual setting"_s);
    m_bench->network.type(u"SSID"_s, u"a"_s);
    m_bench->network.click(u"Decision"_s);
    QVERIFY(m_bench->waitForAccesspoint(u"a"_s));
    QVERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(), QList<QByteArray>{text("1d000000", "3b58", "01000000 61")});
}

void NetworkOnBusTest::addressesAreSetByHand() {
    m_bench->openDhcp();
    TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    QCOMPARE(m_bench->camera->commands(), plainCommands({0x5008, 0x5009, 0x500A, 0x500B}));
    QVERIFY(m_bench->network.isChecked(u"ON"_s));
    m_bench->network.click(u"OFF"_s);
    m_bench->network.type(u"IP Address"_s, u"172.16.254.9"_s);
    m_bench->network.type(u"Subnetmask"_s, u"255.255.0.0"_s);
    m_bench->network.type(u"Default Gateway"_s, u"172.16.0.1"_s);
    m_bench->forget();
    m_bench->network.click(u"Decision"_s);
    TRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(),
             (QList<QByteArray>{plain("0858", "01000000"), plain("0958", "09fe10ac"),
                                plain("0a58", "0000ffff"), plain("0b58", "010010ac")}));
    QCOMPARE(m_bench->camera->state().settings.infraUseDhcp, OFF);
    QCOMPARE(m_bench->camera->state().settings.infraAddress, 0xAC10FE09U);
}

void NetworkOnBusTest::dhcpIsSwitchedOn() {
    CameraState state = m_bench->camera->state();
    state.settings.infraUseDhcp = OFF;
    m_bench->camera->setState(state);
    m_bench->openDhcp();
    TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    QVERIFY(m_bench->network.isChecked(u"OFF"_s));
    m_bench->network.click(u"ON"_s);
    m_bench->network.click(u"Decision"_s);
    TRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(), QList<QByteArray>{plain("0858", "02000000")});
}

void NetworkOnBusTest::adhocAndBackAndOff() {
    m_bench->network.clickTab(ADHOC);
    m_bench->network.clickBox(ADHOC);
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());
    TRY_COMPARE(m_bench->written(), QList<QByteArray>{plain("0358", "02000000")});
    TRY_COMPARE(m_bench->camera->state().settings.wifiMode, 2U);

    m_bench->network.clickTab(INFRASTRUCTURE);
    m_bench->page.slotStopPolling();
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());
    m_bench->forget();
    m_bench->network.clickBox(INFRASTRUCTURE);
    QVERIFY(!m_bench->network.box(ADHOC).isChecked());
    TRY_COMPARE(m_bench->written(), QList<QByteArray>{plain("0358", "01000000")});

    m_bench->forget();
    m_bench->network.clickBox(INFRASTRUCTURE);
    // It is read back at once.
    TRY_COMPARE(codesOfWifi(), (QList<int>{0x5847, 0x5047}));
    TRY_VERIFY(!g_bIsWifiON);
    QCOMPARE(m_bench->written(), QList<QByteArray>{plain("4758", "01000000")});
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());

    // On again, in the other mode: Wi-Fi first.
    m_bench->network.clickTab(ADHOC);
    m_bench->forget();
    m_bench->network.clickBox(ADHOC);
    TRY_COMPARE(m_bench->written(),
                (QList<QByteArray>{plain("4758", "02000000"), plain("0358", "02000000")}));
    TRY_VERIFY(g_bIsWifiON);
    QVERIFY(m_bench->network.box(ADHOC).isChecked());
}

void NetworkOnBusTest::uncheckingAndCheckingAgainSwitchesOnAgain() {
    m_bench->network.clickBox(INFRASTRUCTURE);
    TRY_VERIFY(!g_bIsWifiON);
    m_bench->network.clickBox(INFRASTRUCTURE);
    TRY_VERIFY(g_bIsWifiON);
    TRY_COMPARE(codesOfWifi(), (QList<int>{0x5847, 0x5047, 0x5847, 0x5803, 0x5047}));
    QCOMPARE(m_bench->written(),
             (QList<QByteArray>{plain("4758", "01000000"), plain("4758", "02000000"),
                                plain("0358", "01000000")}));
    // Without waiting for anything.
    m_bench->forget();
    m_bench->network.clickBox(INFRASTRUCTURE);
    m_bench->network.clickBox(INFRASTRUCTURE);
    TRY_COMPARE(m_bench->written(),
                (QList<QByteArray>{plain("4758", "01000000"), plain("4758", "02000000"),
                                   plain("0358", "01000000")}));
    TRY_COMPARE(m_bench->camera->codes().count(0x5047), 2);
    QVERIFY(m_bench->network.box(INFRASTRUCTURE).isChecked());
    QCOMPARE(m_bench->camera->state().settings.wifiOn, ON);
}

void NetworkOnBusTest::theAddressInTheAdhocNetworkIsSet() {
    m_bench->network.clickTab(ADHOC);
    TRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
    QCOMPARE(m_bench->network.edit(u"IP Address"_s).text(), u"192.168.10.1"_s);
    m_bench->network.type(u"IP Address"_s, u"10.1.2.3"_s);
    m_bench->network.type(u"Subnetmask"_s, u"255.0.0.0"_s);
    m_bench->forget();
    m_bench->network.click(u"Decision"_s);
    TRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(),
             (QList<QByteArray>{plain("0658", "0302010a"), plain("0758", "000000ff")}));
}

void NetworkOnBusTest::theLongestNamesOfTheOwnNetworkAreShown() {
    CameraState state = m_bench->camera->state();
    state.identity.ssid = LONGEST_SSID.toStdString();
    state.identity.adhocKey = LONGEST_KEY.toStdString();
    m_bench->camera->setState(state);
    m_bench->network.clickTab(ADHOC);
    TRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
    for (const QString& name : {LONGEST_SSID, LONGEST_KEY}) {
        const QLabel& label = m_bench->network.label(name);
        QVERIFY(label.geometry().right() < label.parentWidget()->width());
    }
}

void NetworkOnBusTest::pollingTellsOfALink() {
    CameraState state = m_bench->camera->state();
    state.settings.infraSsid = "Workshop";
    state.settings.wifi.ssid = "Workshop";
    m_bench->camera->setState(state);
    m_bench->page.slotStartPolling();
    QVERIFY(m_bench->waitForLink("Workshop"));
    QCOMPARE(m_bench->camera->commands(), plainCommands({0x5047, 0x503B, 0x5001}));
}

void NetworkOnBusTest::theOwnNetworkIsReadOnce() {
    m_bench->network.clickTab(ADHOC);
    TRY_COMPARE(m_bench->camera->commands(), plainCommands({0x4004, 0x4005, 0x5006, 0x5007}));
    QVERIFY(m_bench->network.shows(u"NuBo-0001"_s));
    TRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
    m_bench->network.clickTab(INFRASTRUCTURE);
    m_bench->page.slotStopPolling();
    TRY_COMPARE(m_bench->camera->codes().last(), 0x5001);
    m_bench->forget();
    m_bench->network.clickTab(ADHOC);
    TRY_COMPARE(m_bench->camera->commands(), plainCommands({0x5006, 0x5007}));
}

void NetworkOnBusTest::aSingleChangeIsWrittenAlone() {
    m_bench->openDhcp();
    TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    m_bench->network.click(u"OFF"_s);
    m_bench->network.type(u"Default Gateway"_s, u"192.168.0.254"_s);
    // A user who thinks again.
    m_bench->network.click(u"ON"_s);
    m_bench->network.click(u"Decision"_s);
    TRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(), QList<QByteArray>{plain("0b58", "fe00a8c0")});
}

const TestSubject registered = subjectOnBus<NetworkOnBusTest>();

#include "NetworkOnBusTest.moc"
