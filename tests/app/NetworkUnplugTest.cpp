// SPDX-License-Identifier: MIT
#include "tests/app/NetworkOnBusBench.h"

#include <QSignalSpy>

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

/// A camera that is unplugged while the network page is on show, and comes back.
class NetworkUnplugTest : public QObject {
    Q_OBJECT

public:
    explicit NetworkUnplugTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_bench.reset(); }

    void nothingIsSentUntilItIsBack_data();
    void nothingIsSentUntilItIsBack();

private:
    void openSubPage(const QString& name);
    /// Does on the sub-page what sends something, or opens the key dialog.
    void decide(const QString& name);

    VirtualUsbBus& m_bus;
    std::optional<NetworkOnBusBench> m_bench;
};

void NetworkUnplugTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void NetworkUnplugTest::openSubPage(const QString& name) {
    if (name == "search"_L1 || name == "scan"_L1) {
        QVERIFY(m_bench->openSearch());
    } else if (name == "manual"_L1) {
        m_bench->network.click(u"AP manual setting"_s);
        m_bench->network.type(u"SSID"_s, u"Harbour"_s);
    } else if (name == "DHCP"_L1) {
        m_bench->openDhcp();
        TRY_COMPARE(m_bench->network.edit(u"Default Gateway"_s).text(), u"192.168.0.1"_s);
        m_bench->network.click(u"OFF"_s);
    } else if (name == "ad hoc"_L1) {
        m_bench->network.clickTab(ADHOC);
        TRY_COMPARE(m_bench->network.edit(u"Subnetmask"_s).text(), u"255.255.255.0"_s);
        m_bench->network.type(u"IP Address"_s, u"10.1.2.3"_s);
    }
}

void NetworkUnplugTest::decide(const QString& name) {
    if (name == "search"_L1) {
        m_bench->select(u"Harbour"_s);
    } else if (name == "scan"_L1) {
        // Long enough to be interrupted.
        CameraState state = m_bench->camera->state();
        state.accessPoints.resize(500, {"Harbour", 6, 4, 72});
        m_bench->camera->setState(state);
        m_bench->network.click(u"Research"_s);
        TRY_VERIFY(m_bench->camera->codes().contains(0x5002));
    } else {
        m_bench->network.click(u"Decision"_s);
    }
}

void NetworkUnplugTest::nothingIsSentUntilItIsBack_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isDecided");  // a moment before
    for (const QString& name : {u"top"_s, u"search"_s, u"manual"_s, u"DHCP"_s, u"ad hoc"_s}) {
        QTest::addRow("%s", qPrintable(name)) << name << false;
    }
    QTest::newRow("search, key dialog") << u"search"_s << true;
    QTest::newRow("manual, key dialog") << u"manual"_s << true;
    QTest::newRow("search, scanning") << u"scan"_s << true;
    QTest::newRow("DHCP, writing") << u"DHCP"_s << true;
}

void NetworkUnplugTest::nothingIsSentUntilItIsBack() {
    QFETCH(const QString, name);
    QFETCH(const bool, isDecided);
    QVERIFY(m_bench->enter());
    openSubPage(name);
    m_bench->forget();
    const qsizetype boxes = m_bench->user.boxes().size();

    const auto unplug = [this] {
        m_bus.unplug(m_bench->id);
        QVERIFY(m_bench->waitForMode(0));
    };
    const bool asksForKey = isDecided && (name == "search"_L1 || name == "manual"_L1);
    if (asksForKey) {
        m_bench->user.setAction([&](QWidget& box) {
            QTest::keyClicks(box.findChild<QLineEdit*>(), u"key"_s);
            unplug();
            QVERIFY(!box.isVisible());
        });
        decide(name);
        QCOMPARE(m_bench->user.boxes().size(), boxes + 1);
        QVERIFY(m_bench->written().isEmpty());
    } else {
        if (isDecided) {
            decide(name);
        }
        unplug();
        QCOMPARE(m_bench->user.boxes().size(), boxes);
    }
    QCOMPARE(m_bench->modeOnShow(), 0);
    QVERIFY(!m_bench->page.isVisible());

    QSignalSpy sent(&m_bench->page, &ClWidgetBase::sigSendCommand);
    QVERIFY(m_bus.replug(m_bench->id));
    QVERIFY(QTest::qWaitFor([&] { return !sent.isEmpty(); }, PATIENCE_MS));
    // It is the page coming back that asks.
    QCOMPARE(m_bench->modeOnShow(), 2);
    QVERIFY(m_bench->page.isVisible());
}

const TestSubject registered = subjectOnBus<NetworkUnplugTest>();

#include "NetworkUnplugTest.moc"
