// SPDX-License-Identifier: MIT
#include "tests/app/NetworkOnBusBench.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/support/WireText.h"
#include "ui/ClWidgetApInfo.h"

#include <QScrollArea>

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
    void anOpenAccesspointIsChosen();
    void anEncryptedAccesspointIsChosen();
    void anSsidIsTyped();
    void addressesAreSetByHand();
    void adhocAndBackAndOff();
    void theAddressInTheAdhocNetworkIsSet();
    void theLongestNamesOfTheOwnNetworkAreShown();
    void pollingTellsOfALink();
    void aRefusedWriteIsTold();
    void aRefusedSwitchIsToldAndPutRight();

private:
    [[nodiscard]] bool openSearch() const;
    [[nodiscard]] QWidget* row(const QString& ssid) const;

    VirtualUsbBus& m_bus;
    std::optional<NetworkOnBusBench> m_bench;
};

void NetworkOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void NetworkOnBusTest::init() {
    m_bench->user.setAction(acceptBox);
    QVERIFY(m_bench->enter());
}

QWidget* NetworkOnBusTest::row(const QString& ssid) const {
    const QWidget* list = m_bench->page.findChild<QScrollArea*>()->widget();
    for (ClWidgetApInfo* row : list->findChildren<ClWidgetApInfo*>()) {
        if (row->findChild<ClLabelSsid*>()->text() == ssid) {
            return row;
        }
    }
    return nullptr;
}

bool NetworkOnBusTest::openSearch() const {
    const auto* area = m_bench->page.findChild<QScrollArea*>();
    const QWidget* former = area->widget();
    m_bench->network.click(u"AP search and setting"_s);
    return QTest::qWaitFor([&] { return area->widget() != former; }, PATIENCE_MS) &&
           m_bench->camera->codes() == QList<int>{0x5001, 0x5002};
}

void NetworkOnBusTest::theCamerasValuesAreShown() {
    m_bench->camera->forgetCodes();
    g_ulWifiMode = WIFI_MODE_UNKNOWN;
    m_bench->clickMode(2);
    QTRY_COMPARE(m_bench->camera->codes(), NETWORK_FIRST);
    QTRY_COMPARE(g_ulWifiMode, WIFI_MODE_INFRASTRUCTURE);
    QVERIFY(m_bench->network.box(INFRASTRUCTURE).isChecked());
    QVERIFY(!m_bench->network.box(ADHOC).isChecked());
    QVERIFY(m_bench->waitForLink("Harbour"));
    m_bench->camera->forgetCodes();
    m_bench->clickMode(2);
    QTRY_COMPARE(m_bench->camera->codes(), NETWORK_REFRESH);
}

void NetworkOnBusTest::anOpenAccesspointIsChosen() {
    QVERIFY(openSearch());
    QTest::mouseDClick(row(u"Guest"_s), Qt::LeftButton);
    QVERIFY(m_bench->waitForAccesspoint(u"Guest"_s));
    QCOMPARE(m_bench->written(),
             QList<QByteArray>{text("21000000", "3b58", "05000000 4775657374")});
    QVERIFY(!m_bench->isLinked());

    CameraState state = m_bench->camera->state();
    QCOMPARE(state.settings.infraSsid, "Guest");
    QCOMPARE(state.settings.infraKey, "breakwater");
    state.settings.wifi.ssid = "Guest";
    m_bench->camera->setState(state);
    m_bench->clickMode(2);
    QTRY_VERIFY(m_bench->isLinked());
}

void NetworkOnBusTest::anEncryptedAccesspointIsChosen() {
    m_bench->user.setAction([](QWidget& box) {
        QTest::keyClicks(box.findChild<QLineEdit*>(), LONGEST_KEY);
        acceptBox(box);
    });
    QVERIFY(openSearch());
    QTest::mouseDClick(row(LONGEST_SSID), Qt::LeftButton);
    QVERIFY(m_bench->waitForAccesspoint(LONGEST_SSID));
    QTRY_COMPARE(m_bench->written(),
                 (QList<QByteArray>{text("3c000000", "3b58", LONGEST_SSID_WIRE),
                                    text("5b000000", "3c58", LONGEST_KEY_WIRE)}));
    const CameraSettings settings = m_bench->camera->state().settings;
    QCOMPARE(QString::fromStdString(settings.infraSsid), LONGEST_SSID);
    QCOMPARE(QString::fromStdString(settings.infraKey), LONGEST_KEY);
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

void NetworkOnBusTest::addressesAreSetByHand() {
    m_bench->openDhcp();
    QTRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    QCOMPARE(m_bench->camera->codes(), (QList<int>{0x5008, 0x5009, 0x500A, 0x500B}));
    QVERIFY(m_bench->network.isChecked(u"ON"_s));
    m_bench->network.click(u"OFF"_s);
    m_bench->network.type(u"IP Address"_s, u"172.16.254.9"_s);
    m_bench->network.type(u"Subnetmask"_s, u"255.255.0.0"_s);
    m_bench->network.type(u"Default Gateway"_s, u"172.16.0.1"_s);
    m_bench->forget();
    m_bench->network.click(u"Decision"_s);
    QTRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(),
             (QList<QByteArray>{plain("0858", "01000000"), plain("0958", "09fe10ac"),
                                plain("0a58", "0000ffff"), plain("0b58", "010010ac")}));
    QCOMPARE(m_bench->camera->state().settings.infraUseDhcp, kOff);
    QCOMPARE(m_bench->camera->state().settings.infraAddress, 0xAC10FE09U);
}

void NetworkOnBusTest::adhocAndBackAndOff() {
    m_bench->network.clickTab(ADHOC);
    m_bench->network.clickBox(ADHOC);
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());
    QTRY_COMPARE(m_bench->written(), QList<QByteArray>{plain("0358", "02000000")});
    QCOMPARE(m_bench->camera->state().settings.wifiMode, 2U);

    m_bench->network.clickTab(INFRASTRUCTURE);
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());
    m_bench->forget();
    m_bench->network.clickBox(INFRASTRUCTURE);
    QVERIFY(!m_bench->network.box(ADHOC).isChecked());
    QTRY_COMPARE(m_bench->written(), QList<QByteArray>{plain("0358", "01000000")});

    m_bench->forget();
    m_bench->network.clickBox(INFRASTRUCTURE);
    QTRY_COMPARE(m_bench->written(), QList<QByteArray>{plain("4758", "01000000")});
    m_bench->clickMode(2);
    QTRY_VERIFY(!g_bIsWifiON);
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());

    // On again, in the other mode: Wi-Fi first.
    m_bench->network.clickTab(ADHOC);
    m_bench->forget();
    m_bench->network.clickBox(ADHOC);
    QTRY_COMPARE(m_bench->written(),
                 (QList<QByteArray>{plain("4758", "02000000"), plain("0358", "02000000")}));
    m_bench->clickMode(2);
    QTRY_VERIFY(g_bIsWifiON);
    QVERIFY(m_bench->network.box(ADHOC).isChecked());
}

void NetworkOnBusTest::theAddressInTheAdhocNetworkIsSet() {
    m_bench->network.clickTab(ADHOC);
    QTRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
    QCOMPARE(m_bench->network.edit(u"IP Address"_s).text(), u"192.168.10.1"_s);
    m_bench->network.type(u"IP Address"_s, u"10.1.2.3"_s);
    m_bench->network.type(u"Subnetmask"_s, u"255.0.0.0"_s);
    m_bench->forget();
    m_bench->network.click(u"Decision"_s);
    QTRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(),
             (QList<QByteArray>{plain("0658", "0302010a"), plain("0758", "000000ff")}));
}

void NetworkOnBusTest::theLongestNamesOfTheOwnNetworkAreShown() {
    CameraState state = m_bench->camera->state();
    state.identity.ssid = LONGEST_SSID.toStdString();
    state.identity.adhocKey = LONGEST_KEY.toStdString();
    m_bench->camera->setState(state);
    m_bench->network.clickTab(ADHOC);
    QTRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
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
    QVERIFY(m_bench->waitForLink("Workshop"));
    QCOMPARE(m_bench->camera->codes(), (QList<int>{0x5047, 0x503B, 0x5001}));
}

void NetworkOnBusTest::aRefusedWriteIsTold() {
    m_bench->openDhcp();
    QTRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    m_bench->network.click(u"OFF"_s);
    m_bus.addFault(
        m_bench->id,
        {.kind = FaultKind::CameraError, .argument = 0xFFFB, .unit = FaultUnit::Command});
    const qsizetype before = m_bench->user.boxes().size();
    m_bench->network.click(u"Decision"_s);
    QTRY_COMPARE(m_bench->user.boxes().size(), before + 1);
    QCOMPARE(m_bench->user.texts().last(), u"Parameter setting failed"_s);
    QVERIFY(m_bench->network.shows(u"DHCP"_s));
    m_bench->forget();
    m_bench->network.click(u"Decision"_s);
    QTRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(), QList<QByteArray>{plain("0858", "01000000")});
}

void NetworkOnBusTest::aRefusedSwitchIsToldAndPutRight() {
    m_bus.addFault(
        m_bench->id,
        {.kind = FaultKind::CameraError, .argument = 0xFFF9, .unit = FaultUnit::Command});
    const qsizetype before = m_bench->user.boxes().size();
    m_bench->network.clickBox(INFRASTRUCTURE);
    QTRY_COMPARE(m_bench->user.boxes().size(), before + 1);
    QCOMPARE(m_bench->user.texts().last(), u"Exec failed, unknown error"_s);
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());
    // The fault has turned the answer only: a camera that refuses stays as it is.
    m_bench->camera->set("wifi", "on");
    m_bench->clickMode(2);
    QTRY_VERIFY(m_bench->network.box(INFRASTRUCTURE).isChecked());
    QCOMPARE(m_bench->user.boxes().size(), before + 1);
}

int main(int argc, char** argv) {
    return runOnBus<NetworkOnBusTest>(argc, argv);
}

#include "NetworkOnBusTest.moc"
