// SPDX-License-Identifier: MIT
#include "tests/app/SettledBench.h"

#include <QTest>

#include <optional>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

const QString UNKNOWN_ERROR = u"Exec failed, unknown error"_s;

}  // namespace

/// What the user sees of the camera state page when the camera or the link fails.
class CameraFailuresOnBusTest : public QObject {
    Q_OBJECT

public:
    explicit CameraFailuresOnBusTest(VirtualUsbBus& bus) : m_bus(bus) {}

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase() { m_bench.reset(); }
    void init();

    void aFailureIsShownOnceAndTheToolGoesOn_data();
    void aFailureIsShownOnceAndTheToolGoesOn();
    void aCameraErrorLeavesThePollingOn();
    void aFailedActionIsReported();

private:
    void finishRefresh() const;

    VirtualUsbBus& m_bus;
    std::optional<SettledBench> m_bench;
};

void CameraFailuresOnBusTest::initTestCase() {
    m_bench.emplace(m_bus);
    QVERIFY(m_bench->start());
}

void CameraFailuresOnBusTest::init() {
    QVERIFY(m_bench->startRow());
}

/// Leaves the page with one refresh behind it and none under way: answers to what was asked before
/// the help page go nowhere. A fault is then for what comes next.
void CameraFailuresOnBusTest::finishRefresh() const {
    QVERIFY(m_bench->visitHelp());
    m_bench->clickMode(1);
    TRY_COMPARE(m_bench->shown().freeSpace(), CARD_AT_START);
}

void CameraFailuresOnBusTest::aFailureIsShownOnceAndTheToolGoesOn_data() {
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("code");
    QTest::addColumn<unsigned>("nth");  // of the refresh's commands
    QTest::addColumn<QString>("text");
    QTest::newRow("no answer") << int(FaultKind::Timeout) << 0 << 1U << UNKNOWN_ERROR;
    QTest::newRow("no answer, second read") << int(FaultKind::Timeout) << 0 << 2U << UNKNOWN_ERROR;
    QTest::newRow("no answer, third read") << int(FaultKind::Timeout) << 0 << 3U << UNKNOWN_ERROR;
    QTest::newRow("refused parameter")
        << int(FaultKind::CameraError) << 0xFFFB << 1U << u"Parameter setting failed"_s;
    QTest::newRow("refused command, second read")
        << int(FaultKind::CameraError) << 0xFFFC << 2U << u"Command error, version up"_s;
    QTest::newRow("execution failed, third read")
        << int(FaultKind::CameraError) << 0xFFFA << 3U << u"Timeout error, please reset"_s;
}

void CameraFailuresOnBusTest::aFailureIsShownOnceAndTheToolGoesOn() {
    QFETCH(const int, kind);
    QFETCH(const int, code);
    QFETCH(const unsigned, nth);
    QFETCH(const QString, text);
    m_bus.addFault(m_bench->id, {.kind = FaultKind(kind),
                                 .argument = static_cast<std::uint32_t>(code),
                                 .unit = FaultUnit::Command,
                                 .nth = nth});
    m_bench->clickMode(1);
    TRY_COMPARE(m_bench->texts(), QStringList{text});
    QCOMPARE(m_bench->modeOnShow(), 1);

    m_bench->clickMode(1);
    TRY_COMPARE(m_bench->shown().freeSpace(), CARD_AT_START);
    QCOMPARE(m_bench->texts(), QStringList{text});
}

void CameraFailuresOnBusTest::aCameraErrorLeavesThePollingOn() {
    finishRefresh();
    m_bench->camera->forgetCodes();
    m_bus.addFault(
        m_bench->id,
        {.kind = FaultKind::CameraError, .argument = 0xFFF5, .unit = FaultUnit::Command});
    TRY_COMPARE(m_bench->texts(), QStringList{UNKNOWN_ERROR});
    // The chain ends where it fails; five seconds later comes the next one.
    QCOMPARE(m_bench->camera->codes(), QList<int>{REFRESH.first()});
    TRY_COMPARE(m_bench->camera->codes(), QList<int>{REFRESH.first()} + REFRESH);
    QCOMPARE(m_bench->texts().size(), 1);
}

void CameraFailuresOnBusTest::aFailedActionIsReported() {
    finishRefresh();
    m_bus.addFault(
        m_bench->id,
        {.kind = FaultKind::CameraError, .argument = 0xFFF6, .unit = FaultUnit::Command});
    m_bench->shown().click(u"SD card format"_s);
    TRY_COMPARE(m_bench->texts(), (QStringList{u"All data delete on SD card"_s, UNKNOWN_ERROR}));
}

const TestSubject registered = subjectOnBus<CameraFailuresOnBusTest>();

#include "CameraFailuresOnBusTest.moc"
