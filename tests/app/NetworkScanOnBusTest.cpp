// SPDX-License-Identifier: MIT
#include "tests/app/NetworkOnBusBench.h"

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

constexpr int SET_INFRA_SSID = 0x583B;
constexpr int SCAN = 0x5002;

}  // namespace

/// What the camera finds around it, with the USB side, libusb and a simulated camera behind the
/// list. One window and one camera for all.
class NetworkScanOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit NetworkScanOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void init() { QVERIFY(m_bench->enter()); }
    void cleanupTestCase() { m_bench.reset(); }

    void showsWhatTheCameraTells();
    void listsAllThatIsFound_data();
    void listsAllThatIsFound();
    void aScanThatFailsHalfWayLeavesTheList_data();
    void aScanThatFailsHalfWayLeavesTheList();
    void anSsidIsWrittenAsItCame_data();
    void anSsidIsWrittenAsItCame();

private:
    /// Puts access points around the camera; all are open.
    void surroundWith(const std::vector<std::string>& ssids) const;
    void research();

    VirtualUsbBus& m_bus;
    std::optional<NetworkOnBusBench> m_bench;
};

void NetworkScanOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void NetworkScanOnBusTest::surroundWith(const std::vector<std::string>& ssids) const {
    CameraState state = m_bench->camera->state();
    state.accessPoints.clear();
    for (const std::string& ssid : ssids) {
        state.accessPoints.push_back({ssid, 6, 0, 72});
    }
    m_bench->camera->setState(state);
}

void NetworkScanOnBusTest::research() {
    m_bench->forget();
    m_bench->network.click(u"Research"_s);
}

void NetworkScanOnBusTest::showsWhatTheCameraTells() {
    QVERIFY(m_bench->openSearch());
    QStringList shown;
    for (const ClWidgetApInfo* row : m_bench->rows()) {
        shown.append(row->accessibleName());
    }
    // The one without a name has no row; a name is its bytes, so that it is written back unchanged.
    QCOMPARE(m_bench->camera->state().accessPoints.at(4).ssid, "");
    QCOMPARE(shown, (QStringList{
                        u"Harbour, Linked, AES, Signal strength 72"_s,
                        u"Workshop, TKIP, Signal strength 48"_s,
                        u"Guest, Signal strength 23"_s,
                        u"Old radio, WEP, Signal strength 35"_s,
                        u"Lighthouse-Keeper-Upper-Deck-2G4, AES, Signal strength 64"_s,
                        u"Caf\u00E9 am Gro\u00DFmarkt, AES, Signal strength 30"_s,
                    }));
}

void NetworkScanOnBusTest::listsAllThatIsFound_data() {
    QTest::addColumn<int>("count");
    for (const int count : {0, 1, 4, 64, 500}) {
        QTest::addRow("%d", count) << count;
    }
}

void NetworkScanOnBusTest::listsAllThatIsFound() {
    QFETCH(const int, count);
    std::vector<std::string> ssids;
    QStringList expected;
    for (int number = 0; number < count; ++number) {
        expected.append(u"AP %1"_s.arg(number));
        ssids.push_back(expected.last().toStdString());
    }
    surroundWith(ssids);
    QVERIFY(m_bench->openSearch());
    QCOMPARE(m_bench->listed(), expected);
}

void NetworkScanOnBusTest::aScanThatFailsHalfWayLeavesTheList_data() {
    QTest::addColumn<unsigned int>("packet");
    QTest::newRow("the count") << 1U;
    QTest::newRow("the first name") << 2U;
    QTest::newRow("the first numbers") << 3U;
    QTest::newRow("the second name") << 4U;
    QTest::newRow("the last numbers") << 7U;
}

void NetworkScanOnBusTest::aScanThatFailsHalfWayLeavesTheList() {
    QFETCH(const unsigned int, packet);
    surroundWith({"Harbour", "Workshop"});
    QVERIFY(m_bench->openSearch());
    const QWidget* list = m_bench->area().widget();

    surroundWith({"Quay", "Pier", "Mole"});
    // The command itself is a transfer, too. A packet is read three times.
    m_bus.addFault(m_bench->id, {.kind = FaultKind::Stall, .nth = packet + 1, .count = 3});
    const qsizetype boxes = m_bench->user.boxes().size();
    research();
    TRY_COMPARE(m_bench->user.boxes().size(), boxes + 1);
    QCOMPARE(m_bench->user.texts().last(), u"Exec failed, unknown error"_s);
    QCOMPARE(m_bench->area().widget(), list);
    QCOMPARE(m_bench->listed(), (QStringList{u"Harbour"_s, u"Workshop"_s}));
    QCOMPARE(m_bench->camera->codes(), QList<int>{SCAN});

    // What is left of the answer does not get in the way of the next one.
    research();
    TRY_COMPARE(m_bench->listed(), (QStringList{u"Quay"_s, u"Pier"_s, u"Mole"_s}));
    QCOMPARE(m_bench->user.boxes().size(), boxes + 1);
}

void NetworkScanOnBusTest::anSsidIsWrittenAsItCame_data() {
    QTest::addColumn<QByteArray>("ssid");
    QByteArray printable;
    for (char character = ' '; character <= '~'; ++character) {
        printable.append(character);
    }
    QTest::newRow("signs and digits") << printable.first(32);
    QTest::newRow("capitals") << printable.mid(32, 32);
    QTest::newRow("small letters") << printable.mid(64);
    QTest::newRow("UTF-8") << QByteArray("Caf\xC3\xA9 am Gro\xC3\x9Fmarkt");
    QTest::newRow("Japanese") << QByteArray("\xE6\xB8\xAF\xE3\x81\xAE\xE8\xA6\x8B");
    QTest::newRow("markup") << QByteArray("<b>Quay</b>&nbsp;<img src=x>");
    QTest::newRow("blanks around it") << QByteArray("  Quay  ");
}

void NetworkScanOnBusTest::anSsidIsWrittenAsItCame() {
    QFETCH(const QByteArray, ssid);
    surroundWith({"Harbour", ssid.toStdString()});
    QVERIFY(m_bench->openSearch());
    const QString shown = QString::fromLatin1(ssid);
    QCOMPARE(m_bench->listed().last(), shown);
    m_bench->forget();
    m_bench->select(shown);
    QVERIFY(m_bench->waitForAccesspoint(shown));
    const stReceivedCommand command = m_bench->camera->commands().first();
    QCOMPARE(command.code, SET_INFRA_SSID);
    const QByteArray length(1, static_cast<char>(ssid.size()));
    QCOMPARE(command.arguments.first(4 + ssid.size()), length + QByteArray(3, '\0') + ssid);
    QCOMPARE(m_bench->camera->state().settings.infraSsid, ssid.toStdString());
}

const TestSubject registered = subjectOnBus<NetworkScanOnBusTest>();

#include "NetworkScanOnBusTest.moc"
