// SPDX-License-Identifier: MIT
#include "tests/app/NetworkOnBusBench.h"
#include "tests/catalogue/CataloguePackets.h"
#include "tests/support/WireText.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

QByteArray plain(const char* code, const char* parameter) {
    return wireBytes(plainRequest(code, parameter));
}

}  // namespace

/// What the network page reports when the simulated camera refuses a write. One window and one
/// camera for all.
class NetworkRefusalsOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit NetworkRefusalsOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanupTestCase() { m_bench.reset(); }

    void aRefusedWriteIsReported();
    void aRefusedSsidStaysOnTheList();
    void aRefusedKeyIsReportedOnTheTopPage();
    void aRefusedSwitchIsReportedAndPutRight();
    void aRefusedModeIsReadAgain();
    void twoRefusalsAreReportedOnce();

private:
    /// Has the camera answer @p code to its @p nth next command, and to @p count in a row.
    void refuse(unsigned int code, unsigned int nth = 1, unsigned int count = 1) {
        m_bus.addFault(m_bench->id, {.kind = FaultKind::CameraError,
                                     .argument = code,
                                     .unit = FaultUnit::Command,
                                     .nth = nth,
                                     .count = count});
    }

    VirtualUsbBus& m_bus;
    std::optional<NetworkOnBusBench> m_bench;
};

void NetworkRefusalsOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void NetworkRefusalsOnBusTest::init() {
    m_bench->user.setAction(acceptBox);
    QVERIFY(m_bench->enter());
    m_bench->user.forgetBoxes();
}

void NetworkRefusalsOnBusTest::aRefusedWriteIsReported() {
    m_bench->openDhcp();
    TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    m_bench->network.click(u"OFF"_s);
    refuse(0xFFFB);
    m_bench->network.click(u"Decision"_s);
    TRY_COMPARE(m_bench->user.boxes().size(), 1);
    QCOMPARE(m_bench->user.texts().last(), u"Parameter setting failed"_s);
    QVERIFY(m_bench->network.shows(u"DHCP"_s));
    m_bench->forget();
    m_bench->network.click(u"Decision"_s);
    TRY_VERIFY(m_bench->network.shows(u"AP of selecting"_s));
    QCOMPARE(m_bench->written(), QList<QByteArray>{plain("0858", "01000000")});
}

void NetworkRefusalsOnBusTest::aRefusedSsidStaysOnTheList() {
    QVERIFY(m_bench->openSearch());
    refuse(0xFFFB);
    m_bench->select(u"Guest"_s);
    TRY_COMPARE(m_bench->user.boxes().size(), 1);
    QCOMPARE(m_bench->user.texts().last(), u"Parameter setting failed"_s);
    QVERIFY(m_bench->network.shows(u"Research"_s));
}

void NetworkRefusalsOnBusTest::aRefusedKeyIsReportedOnTheTopPage() {
    QVERIFY(m_bench->openSearch());
    m_bench->user.setAction([this](QWidget& box) {
        if (auto* key = box.findChild<QLineEdit*>()) {
            QTest::keyClicks(key, u"k1"_s);
            // The SSID comes first.
            refuse(0xFFFB, 2);
        }
        acceptBox(box);
    });
    m_bench->select(u"Workshop"_s);
    TRY_COMPARE(m_bench->user.boxes().size(), 2);
    QCOMPARE(m_bench->user.texts().last(), u"Parameter setting failed"_s);
    QVERIFY(m_bench->waitForAccesspoint(u"Workshop"_s));
    QVERIFY(m_bench->network.shows(u"AP of selecting"_s));
}

void NetworkRefusalsOnBusTest::aRefusedSwitchIsReportedAndPutRight() {
    refuse(0xFFF9);
    m_bench->network.clickBox(INFRASTRUCTURE);
    TRY_COMPARE(m_bench->user.boxes().size(), 1);
    QCOMPARE(m_bench->user.texts().last(), u"Exec failed, unknown error"_s);
    QVERIFY(!m_bench->network.box(INFRASTRUCTURE).isChecked());
    // The fault has turned the answer only: a camera that refuses stays as it is.
    m_bench->camera->set("wifi", "on");
    m_bench->show();
    TRY_VERIFY(m_bench->network.box(INFRASTRUCTURE).isChecked());
    QCOMPARE(m_bench->user.boxes().size(), 1);
}

void NetworkRefusalsOnBusTest::aRefusedModeIsReadAgain() {
    m_bench->network.clickTab(ADHOC);
    TRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
    m_bench->forget();
    refuse(0xFFFB);
    m_bench->network.clickBox(ADHOC);
    TRY_COMPARE(m_bench->user.boxes().size(), 1);
    QCOMPARE(m_bench->user.texts().last(), u"Parameter setting failed"_s);
    QCOMPARE(m_bench->written(), QList<QByteArray>{plain("0358", "02000000")});
    QVERIFY(m_bench->network.box(ADHOC).isChecked());
    // The fault has turned the answer only: a camera that refuses stays as it is.
    CameraState state = m_bench->camera->state();
    state.settings.wifiMode = WIFI_MODE_INFRASTRUCTURE;
    m_bench->camera->setState(state);
    m_bench->forget();
    m_bench->show();
    TRY_VERIFY(m_bench->network.box(INFRASTRUCTURE).isChecked());
    QVERIFY(!m_bench->network.box(ADHOC).isChecked());
    QVERIFY(m_bench->camera->codes().contains(0x5003));
    QVERIFY(m_bench->written().isEmpty());
    QCOMPARE(m_bench->user.boxes().size(), 1);
}

void NetworkRefusalsOnBusTest::twoRefusalsAreReportedOnce() {
    m_bench->camera->set("wifi", "off");
    m_bench->show();
    TRY_VERIFY(!g_bIsWifiON);
    TRY_VERIFY(!m_bench->isLinked());
    m_bench->forget();
    refuse(0xFFFB, 1, 2);
    m_bench->network.clickBox(INFRASTRUCTURE);
    TRY_COMPARE(m_bench->written(),
                (QList<QByteArray>{plain("4758", "02000000"), plain("0358", "01000000")}));
    // What comes after the second refusal has come.
    m_bench->openDhcp();
    TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
    QCOMPARE(m_bench->user.boxes().size(), 1);
    QCOMPARE(m_bench->user.texts().last(), u"Parameter setting failed"_s);
}

const TestSubject registered = subjectOnBus<NetworkRefusalsOnBusTest>();

#include "NetworkRefusalsOnBusTest.moc"
