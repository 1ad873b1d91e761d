// SPDX-License-Identifier: MIT
#include "simulator/CameraItems.h"
#include "tests/cli/CliBench.h"
#include "tests/cli/CliFaults.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>

#include <algorithm>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

/// What the profile changes: as nuboctl and as the camera name it.
struct stChanged {
    const char* key;
    const char* item;
    const char* text;  ///< in the profile
    QString before;    ///< in the camera, both
    QString after;
};

// A cut packet reads as 0: several of the values wanted are.
const std::array CHANGED{
    stChanged{"camera.name", "camera-name", "Tern", u"Gull"_s, u"Tern"_s},
    stChanged{"image.contrast", "image-quality", "0", u"2"_s, u"0"_s},
    stChanged{"interval.enabled", "interval", "on", u"off"_s, u"on"_s},
    stChanged{"interval.delay", "interval-delay", "30s", u"10"_s, u"30"_s},
    stChanged{"wifi.enabled", "wifi", "off", u"on"_s, u"off"_s},
};

bool isChanged(std::string_view item) {
    return std::ranges::find(CHANGED, item, &stChanged::item) != CHANGED.end();
}

/// All that the profile leaves alone, and that does not change by itself.
QByteArray restOf(const RecordingCamera& camera) {
    QByteArray text;
    for (const CameraItem& item : cameraItems()) {
        if (!isChanged(item.name) && item.name != "time") {
            text += QByteArray::fromStdString(std::string(item.name) + "=" +
                                              camera.get(item.name).value_or("") + "\n");
        }
    }
    return text;
}

QJsonObject changeOf(const QJsonObject& report, const char* key) {
    for (const QJsonValue& change : report["changes"_L1].toArray()) {
        if (change["key"_L1].toString() == QLatin1String(key)) {
            return change.toObject();
        }
    }
    return {};
}

}  // namespace

/// A profile is applied, and each of its transfers meets every fault: what is told is what the
/// camera holds then, and the next run does the rest.
class ApplyFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theReportIsWhatTheCameraHolds_data() { addFaultRows(m_transfers); }
    void theReportIsWhatTheCameraHolds() { meetFault({}); }
    void goingOnTellsTheTruthToo_data();
    void goingOnTellsTheTruthToo() { meetFault({u"--keep-going"_s}); }

private:
    void meetFault(const QStringList& more);
    void checkReport(const stRunResult& run) const;
    void checkNextRun();

    CliBench m_bench;
    std::shared_ptr<RecordingCamera> m_camera;
    QTemporaryDir m_folder;
    QStringList m_apply;
    QByteArray m_rest;
    unsigned m_transfers = 0;
};

void ApplyFaultsTest::initTestCase() {
    m_camera = m_bench.plug();
    m_rest = restOf(*m_camera);
    QFile profile(m_folder.filePath(u"profile.nubo"_s));
    QVERIFY(profile.open(QIODevice::WriteOnly));
    for (const stChanged& row : CHANGED) {
        profile.write(QByteArray(row.key) + " = " + row.text + '\n');
    }
    profile.close();
    m_apply = {u"--json"_s, u"apply"_s, profile.fileName()};
    checkNextRun();
    m_transfers = static_cast<unsigned>(m_bench.bus.log(m_bench.ids[0]).transferCount);
    QCOMPARE_GE(m_transfers, 28U);
}

/// Only a camera that refuses is gone on with.
void ApplyFaultsTest::goingOnTellsTheTruthToo_data() {
    QTest::addColumn<Fault>("fault");
    for (unsigned transfer = 1; transfer <= m_transfers; ++transfer) {
        QTest::addRow("transfer %u", transfer)
            << Fault{.kind = FaultKind::CameraError, .argument = 0xFFF9, .nth = transfer};
    }
}

void ApplyFaultsTest::meetFault(const QStringList& more) {
    QFETCH(const Fault, fault);
    const DeviceId id = m_bench.ids[0];
    m_camera->setState({});
    m_bench.bus.addFault(id, fault);
    stRunResult run;
    {
        const ShortTimeouts shortTimeouts;
        run = CliBench::run(m_apply + more);
    }
    m_bench.bus.clearFaults(id);
    checkReport(run);
    QCOMPARE(restOf(*m_camera), m_rest);
    QVERIFY(makesCameraLeave(fault) || isLetGo(m_bench.bus, id));
    if (makesCameraLeave(fault)) {
        QCOMPARE(run.exit == 7 || run.exit == 8, true);
        QVERIFY(m_bench.bus.waitForPlugged(id, false, std::chrono::milliseconds(PATIENCE_MS)));
        QVERIFY(m_bench.bus.replug(id));
    } else if (fault.kind == FaultKind::Halt) {
        QVERIFY(m_bench.bus.unplug(id) && m_bench.bus.replug(id));
    }
    checkNextRun();
}

void ApplyFaultsTest::checkReport(const stRunResult& run) const {
    const QByteArray what = run.out.toUtf8() + run.err.toUtf8();
    const QJsonObject report = QJsonDocument::fromJson(run.out.toUtf8()).object();
    QVERIFY2(!report.isEmpty(), what);
    QCOMPARE(report["error"_L1]["exit"_L1].toInt(), run.exit);
    bool isAllDone = true;
    bool mayHaveActed = false;
    for (const stChanged& row : CHANGED) {
        const QString value = m_camera->item(row.item);
        const QJsonObject change = changeOf(report, row.key);
        const QJsonValue written = change["written"_L1];
        isAllDone = isAllDone && value == row.after;
        mayHaveActed = mayHaveActed || (!change.isEmpty() && written != false);
        QVERIFY2(value == row.before || value == row.after, what);
        if (change.isEmpty() || written == false) {
            QVERIFY2(value == row.before, what + row.key);
        } else if (written == true) {
            QVERIFY2(value == row.after, what + row.key);
        } else {
            QVERIFY2(written.isNull(), what);
        }
        QVERIFY2(change["verified"_L1] != true || value == row.after, what + row.key);
    }
    const QList<int> ends = mayHaveActed ? QList{0, 8} : QList{6, 7};
    QVERIFY2(ends.contains(run.exit), what);
    QVERIFY2(run.exit != 0 || isAllDone, what);
}

void ApplyFaultsTest::checkNextRun() {
    const stRunResult next = CliBench::run(m_apply);
    QVERIFY2(next.exit == 0, qPrintable(next.out + next.err));
    for (const stChanged& row : CHANGED) {
        QCOMPARE(m_camera->item(row.item), row.after);
    }
    QCOMPARE(restOf(*m_camera), m_rest);
    QVERIFY(isLetGo(m_bench.bus, m_bench.ids[0]));
}

const TestSubject registered = subjectWithoutApplication<ApplyFaultsTest>();
#include "ApplyFaultsTest.moc"
