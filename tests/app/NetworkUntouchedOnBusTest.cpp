// SPDX-License-Identifier: MIT
#include "tests/app/NetworkOnBusBench.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

/// What a user may do on the network page without the camera being told anything. One window and
/// one camera for all.
class NetworkUntouchedOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit NetworkUntouchedOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { m_bench.reset(); }

    void aCancelledKeyWritesNothing();
    void nothingChangedIsNothingWritten();
    void checkingTheBoxOfTheCamerasModeWritesNothing();
    void anEmptySsidIsNotDecided();
    void aSubnetmaskWithHolesIsRefusedWhileDhcpIsOn();
    void anAddressOfAWholeNetworkIsRefused();

private:
    /// Whether nothing has been written in this test, and nothing is on its way.
    [[nodiscard]] bool leavesCameraAlone() const {
        return m_bench->settle() && m_bench->written().isEmpty();
    }

    VirtualUsbBus& m_bus;
    std::optional<NetworkOnBusBench> m_bench;
};

void NetworkUntouchedOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void NetworkUntouchedOnBusTest::init() {
    m_bench->user.setAction(acceptBox);
    QVERIFY(m_bench->enter());
    m_bench->user.forgetBoxes();
}

void NetworkUntouchedOnBusTest::aCancelledKeyWritesNothing() {
    m_bench->user.setAction(rejectBox);
    QVERIFY(m_bench->openSearch());
    m_bench->select(u"Workshop"_s);
    QVERIFY(m_bench->network.shows(u"Research"_s));
    QVERIFY(leavesCameraAlone());
    QCOMPARE(m_bench->camera->state().settings.infraSsid, "Harbour");
}

void NetworkUntouchedOnBusTest::nothingChangedIsNothingWritten() {
    m_bench->openDhcp();
    TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    m_bench->network.click(u"Decision"_s);
    QVERIFY(m_bench->network.shows(u"AP of selecting"_s));
    m_bench->network.clickTab(ADHOC);
    TRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
    m_bench->network.click(u"Decision"_s);
    QVERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QVERIFY(leavesCameraAlone());
}

void NetworkUntouchedOnBusTest::checkingTheBoxOfTheCamerasModeWritesNothing() {
    QCheckBox& box = m_bench->network.box(INFRASTRUCTURE);
    box.setChecked(false);
    m_bench->network.clickBox(INFRASTRUCTURE);
    QVERIFY(box.isChecked());
    QVERIFY(leavesCameraAlone());
}

void NetworkUntouchedOnBusTest::anEmptySsidIsNotDecided() {
    m_bench->network.click(u"AP manual setting"_s);
    m_bench->network.click(u"Decision"_s);
    QVERIFY(m_bench->network.shows(u"Input SSID to connect AP"_s));
    QVERIFY(leavesCameraAlone());
    QVERIFY(m_bench->user.boxes().isEmpty());
}

void NetworkUntouchedOnBusTest::aSubnetmaskWithHolesIsRefusedWhileDhcpIsOn() {
    m_bench->openDhcp();
    TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    m_bench->network.click(u"OFF"_s);
    m_bench->network.type(u"Subnetmask"_s, u"255.0.255.0"_s);
    m_bench->network.click(u"ON"_s);
    m_bench->network.click(u"Decision"_s);
    QCOMPARE(m_bench->user.texts(), QStringList{u"Not valid settings of network"_s});
    QVERIFY(m_bench->network.shows(u"DHCP"_s));
    QVERIFY(leavesCameraAlone());
}

void NetworkUntouchedOnBusTest::anAddressOfAWholeNetworkIsRefused() {
    m_bench->network.clickTab(ADHOC);
    TRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
    m_bench->network.type(u"IP Address"_s, u"192.168.10.0"_s);
    m_bench->network.click(u"Decision"_s);
    QCOMPARE(m_bench->user.texts(), QStringList{u"Not valid settings of network"_s});
    QCOMPARE(m_bench->network.edit(u"IP Address"_s).text(), u"192.168.10.0"_s);
    QVERIFY(leavesCameraAlone());
}

const TestSubject registered = subjectOnBus<NetworkUntouchedOnBusTest>();

#include "NetworkUntouchedOnBusTest.moc"
