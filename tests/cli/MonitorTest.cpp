// SPDX-License-Identifier: MIT
#include "cli/ExitCode.h"
#include "tests/cli/CliBench.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>
#include <condition_variable>
#include <thread>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

constexpr std::chrono::seconds PATIENCE{60};

/// A run of "monitor" on a thread of its own, until Ctrl-C or a closed pipe.
class MonitorRun {
public:
    explicit MonitorRun(const QStringList& options = {u"--json"_s}) {
        Interruption::reset();
        m_thread = std::thread([this, options] {
            ClConsole console([this](const QByteArray& bytes) { return take(bytes); },
                              [](const QByteArray&) { return true; });
            m_exit =
                runNuboctl(QStringList{u"monitor"_s, u"--every"_s, u"0.1"_s} + options, console);
        });
    }
    ~MonitorRun() { end(); }
    MonitorRun(const MonitorRun&) = delete;
    MonitorRun& operator=(const MonitorRun&) = delete;

    /// Waits until so many lines of @p event were told.
    [[nodiscard]] bool waitFor(const QString& event, qsizetype count = 1) {
        std::unique_lock lock(m_mutex);
        return m_told.wait_for(lock, PATIENCE, [&] { return told(event).size() >= count; });
    }
    [[nodiscard]] QList<QJsonObject> events(const QString& event) {
        const std::lock_guard lock(m_mutex);
        return told(event);
    }
    [[nodiscard]] QStringList lines() {
        const std::lock_guard lock(m_mutex);
        return m_lines;
    }
    /// Whoever reads the lines goes away before the next one.
    void closePipe() {
        const std::lock_guard lock(m_mutex);
        m_isClosed = true;
    }
    /// The end without a Ctrl-C.
    ExitCode waitForEnd() {
        m_thread.join();
        return m_exit;
    }
    /// Ctrl-C.
    ExitCode end() {
        if (m_thread.joinable()) {
            Interruption::request();
            m_thread.join();
            Interruption::reset();
        }
        return m_exit;
    }

private:
    bool take(const QByteArray& bytes) {
        const std::lock_guard lock(m_mutex);
        m_lines.append(QString::fromUtf8(bytes).trimmed());
        m_told.notify_all();
        return !m_isClosed;
    }
    [[nodiscard]] QList<QJsonObject> told(const QString& event) const {
        QList<QJsonObject> found;
        for (const QString& line : m_lines) {
            const QJsonObject object = QJsonDocument::fromJson(line.toUtf8()).object();
            if (object["event"_L1] == event) {
                found.append(object);
            }
        }
        return found;
    }

    std::mutex m_mutex;
    std::condition_variable m_told;
    QStringList m_lines;
    bool m_isClosed = false;
    ExitCode m_exit = ExitCode::Done;
    std::thread m_thread;
};

}  // namespace

/// The events that monitor tells.
class MonitorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aCameraComesAndGoes();
    void aChangedValueIsALine();
    void whatChangesByItselfAndWhatIsSecretIsNoEvent();
    void aCameraThatSomebodyElseHasIsToldOnce();
    void eachOfSeveralCamerasHasItsEvents();
    void linesAreForPeopleWithoutJson();
    void aClosedPipeEndsIt();
    void ctrlCEndsItAndLetsTheCameraGo();

private:
    /// Waits until the camera has been read, and let go, since it was opened @p times times.
    static bool isRead(const CliBench& bench, DeviceId id, int times = 1) {
        return bench.bus.waitForLog(
            id,
            [times](const DeviceLog& log) {
                return log.timesOpened >= times && log.openHandles == 0;
            },
            PATIENCE);
    }
    /// The same of the first camera, which is read two more times.
    static bool isReadTwiceMore(const CliBench& bench) {
        const DeviceId id = bench.ids.front();
        return isRead(bench, id, bench.bus.log(id).timesOpened + 2);
    }
    static QString serialOf(const QJsonObject& event) {
        return event["camera"_L1]["serial"_L1].toString();
    }
};

void MonitorTest::aCameraComesAndGoes() {
    CliBench bench;
    MonitorRun monitor;
    bench.plug();
    QVERIFY(monitor.waitFor(u"ready"_s));
    QCOMPARE(monitor.events(u"plugged"_s).size(), 1);
    QCOMPARE(serialOf(monitor.events(u"plugged"_s).first()), QString());
    QCOMPARE(serialOf(monitor.events(u"ready"_s).first()), u"SIM0001"_s);
    QVERIFY(bench.bus.unplug(bench.ids.front()));
    QVERIFY(monitor.waitFor(u"gone"_s));
    QCOMPARE(serialOf(monitor.events(u"gone"_s).first()), u"SIM0001"_s);
    QVERIFY(bench.bus.replug(bench.ids.front()));
    QVERIFY(monitor.waitFor(u"ready"_s, 2));
    QCOMPARE(monitor.events(u"plugged"_s).size(), 2);
    QCOMPARE(monitor.events(u"gone"_s).size(), 1);
}

void MonitorTest::aChangedValueIsALine() {
    CliBench bench;
    const auto camera = bench.plug();
    MonitorRun monitor;
    QVERIFY(monitor.waitFor(u"ready"_s));
    QVERIFY(isRead(bench, bench.ids.front()));
    QVERIFY(camera->set("battery", "42"));
    QVERIFY(monitor.waitFor(u"changed"_s));
    const QJsonObject event = monitor.events(u"changed"_s).first();
    QCOMPARE(event["key"_L1].toString(), u"battery.charge"_s);
    QCOMPARE(event["old"_L1].toInt(), 85);
    QCOMPARE(event["new"_L1].toInt(), 42);
    QCOMPARE(serialOf(event), u"SIM0001"_s);
    // Several readings later there is one line a change still.
    QVERIFY(camera->set("recording", "on"));
    QVERIFY(monitor.waitFor(u"changed"_s, 2));
    QVERIFY(isReadTwiceMore(bench));
    QCOMPARE(monitor.events(u"changed"_s).size(), 2);
    QCOMPARE(monitor.events(u"changed"_s)[1]["new"_L1].toString(), u"running"_s);
}

void MonitorTest::whatChangesByItselfAndWhatIsSecretIsNoEvent() {
    CliBench bench;
    const auto camera = bench.plug();
    MonitorRun monitor;
    QVERIFY(monitor.waitFor(u"ready"_s));
    QVERIFY(isRead(bench, bench.ids.front()));
    QVERIFY(camera->set("time", "2014/03/09 07:05:01"));
    QVERIFY(camera->set("stream-password", "beacon"));
    QVERIFY(isReadTwiceMore(bench));
    QVERIFY(camera->set("camera-name", "Tern"));
    QVERIFY(monitor.waitFor(u"changed"_s));
    QCOMPARE(monitor.events(u"changed"_s).size(), 1);
    QVERIFY(!monitor.lines().join(u' ').contains(u"beacon"_s));
}

void MonitorTest::aCameraThatSomebodyElseHasIsToldOnce() {
    CliBench bench;
    bench.plug({.busyInterfaces = {0}});
    MonitorRun monitor;
    QVERIFY(monitor.waitFor(u"unavailable"_s));
    QVERIFY(monitor.events(u"unavailable"_s)
                .first()["message"_L1]
                .toString()
                .contains(u"is in use by"_s));
    QVERIFY(isReadTwiceMore(bench));
    QCOMPARE(monitor.events(u"unavailable"_s).size(), 1);
    bench.bus.setBusyInterfaces(bench.ids.front(), {});
    QVERIFY(monitor.waitFor(u"ready"_s));
}

void MonitorTest::eachOfSeveralCamerasHasItsEvents() {
    CliBench bench;
    const auto first = bench.plug();
    const auto second = bench.plug();
    QVERIFY(second->set("serial-number", "SIM0002"));
    MonitorRun monitor;
    QVERIFY(monitor.waitFor(u"ready"_s, 2));
    QVERIFY(isRead(bench, bench.ids[0]) && isRead(bench, bench.ids[1]));
    QVERIFY(second->set("battery", "42"));
    QVERIFY(monitor.waitFor(u"changed"_s));
    QCOMPARE(serialOf(monitor.events(u"changed"_s).first()), u"SIM0002"_s);
    QVERIFY(bench.bus.unplug(bench.ids[0]));
    QVERIFY(monitor.waitFor(u"gone"_s));
    QCOMPARE(serialOf(monitor.events(u"gone"_s).first()), u"SIM0001"_s);
    QVERIFY(second->set("battery", "41"));
    QVERIFY(monitor.waitFor(u"changed"_s, 2));
}

void MonitorTest::linesAreForPeopleWithoutJson() {
    CliBench bench;
    const auto camera = bench.plug();
    MonitorRun monitor(QStringList{});
    QVERIFY(isRead(bench, bench.ids.front()));
    QVERIFY(camera->set("battery", "42"));
    QVERIFY(isReadTwiceMore(bench));
    QCOMPARE(monitor.end(), ExitCode::Interrupted);
    const QStringList lines = monitor.lines();
    const QString time = u"^\\d\\d:\\d\\d:\\d\\d  1-2     "_s;
    QCOMPARE(lines.size(), 3);
    QVERIFY(QRegularExpression(time + u"-           plugged$"_s).match(lines[0]).hasMatch());
    QVERIFY(QRegularExpression(time + u"SIM0001     ready$"_s).match(lines[1]).hasMatch());
    QVERIFY2(QRegularExpression(time + u"SIM0001     changed  battery.charge: 85 -> 42$"_s)
                 .match(lines[2])
                 .hasMatch(),
             qPrintable(lines[2]));
}

void MonitorTest::aClosedPipeEndsIt() {
    CliBench bench;
    const auto camera = bench.plug();
    MonitorRun monitor;
    QVERIFY(monitor.waitFor(u"ready"_s));
    QVERIFY(isRead(bench, bench.ids.front()));
    monitor.closePipe();
    QVERIFY(camera->set("battery", "42"));
    QCOMPARE(monitor.waitForEnd(), ExitCode::Computer);
}

void MonitorTest::ctrlCEndsItAndLetsTheCameraGo() {
    CliBench bench;
    bench.plug();
    MonitorRun monitor;
    QVERIFY(monitor.waitFor(u"ready"_s));
    QCOMPARE(monitor.end(), ExitCode::Interrupted);
    TRY_COMPARE(bench.bus.log(bench.ids.front()).openHandles, 0);
    QVERIFY(monitor.lines().last().contains(u"\"kind\":\"interrupted\""_s));
}

const TestSubject registered = subjectWithoutApplication<MonitorTest>();
#include "MonitorTest.moc"
