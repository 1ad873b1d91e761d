// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"
#include "cli/ExitCode.h"
#include "cli/Nuboctl.h"
#include "simulator/RootHub.h"
#include "simulator/VirtualUsbBus.h"
#include "tests/endurance/HostileCamera.h"
#include "tests/endurance/HostileLimits.h"
#include "tests/support/TestSubject.h"

#include <QElapsedTimer>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace nubo::simulator;

namespace {

/// Commands that read a value, several packets, and data; and one that writes.
const QList<QStringList> COMMANDS{
    {u"get"_s, u"camera.name"_s}, {u"get"_s, u"identity.created"_s}, {u"status"_s},
    {u"wifi"_s, u"scan"_s},       {u"set"_s, u"camera.name=Gull"_s},
};
/// Of a command. A few of them may be needed.
constexpr qint64 MOST_TRANSACTIONS = 12;

}  // namespace

/// nuboctl with a camera that does what no camera should.
class HostileNuboctlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { plugRootHub(m_bus); }
    void cleanupTestCase() { m_bus.settle(); }

    void endsWithAResult_data();
    void endsWithAResult();

private:
    VirtualUsbBus m_bus;
};

void HostileNuboctlTest::endsWithAResult_data() {
    QTest::addColumn<eHostility>("hostility");
    QTest::addColumn<QStringList>("words");
    struct stRow {
        const char* name;
        eHostility hostility;
    };
    for (const stRow& row : {stRow{"random bytes", eHostility::RandomBytes},
                             stRow{"random lengths", eHostility::RandomLengths},
                             stRow{"error packets", eHostility::ErrorPackets},
                             stRow{"access points without end", eHostility::EndlessAccesspoints},
                             stRow{"long texts", eHostility::LongTexts},
                             stRow{"just in time", eHostility::JustInTime}}) {
        for (const QStringList& words : COMMANDS) {
            QTest::addRow("%s, %s", row.name, qPrintable(words.join(u' ')))
                << row.hostility << words;
        }
    }
    // Each of these waits for as long as a transaction may take.
    QTest::newRow("foreign ids") << eHostility::ForeignIds << COMMANDS.first();
    QTest::newRow("just too late") << eHostility::JustTooLate << COMMANDS.first();
}

void HostileNuboctlTest::endsWithAResult() {
    QFETCH(const eHostility, hostility);
    QFETCH(const QStringList, words);
    const DeviceId id = m_bus.plug(std::make_shared<HostileCamera>(hostility));
    const std::size_t before = memoryInUse();
    qsizetype told = 0;
    const auto count = [&told](const QByteArray& bytes) {
        told += bytes.size();
        return true;
    };
    ClConsole console(count, count);
    QElapsedTimer running;
    running.start();
    const int exit = static_cast<int>(runNuboctl(words, console));
    QVERIFY2(running.elapsed() <= LONGEST_TRANSACTION_MS * MOST_TRANSACTIONS,
             qPrintable(QString::number(running.elapsed())));
    QVERIFY(exit >= 0 && exit < 128);
    // Nothing fails without a word.
    QVERIFY(told > 0 || exit == 0);
    QVERIFY(memoryInUse() < before + MOST_MEMORY);
    m_bus.settle();
    QVERIFY(m_bus.waitForLog(
        id, [](const DeviceLog& log) { return log.openHandles == 0; }, std::chrono::seconds(20)));
    m_bus.unplug(id);
}

const TestSubject registered = subjectWithoutScreen<HostileNuboctlTest>();

#include "HostileNuboctlTest.moc"
