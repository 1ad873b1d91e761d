// SPDX-License-Identifier: MIT
#include "tests/cli/CliBench.h"
#include "tests/cli/CliFaults.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QTemporaryDir>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

/// A firmware update meets every fault at each of its transfers, those after the restart included:
/// what is told is what became of the camera, and the next run works.
class FirmwareFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theReportIsWhatBecameOfTheCamera_data() { addFaultRows(m_transfers); }
    void theReportIsWhatBecameOfTheCamera();

private:
    void bringBack(const Fault& fault, bool isTold);
    [[nodiscard]] bool hasImage() const {
        return *m_camera->firmware() == std::vector<std::uint8_t>(m_image.cbegin(), m_image.cend());
    }

    CliBench m_bench;
    std::shared_ptr<RecordingCamera> m_camera;
    QTemporaryDir m_folder;
    QByteArray m_image = QByteArray(100'000, 'i');  // two pieces, the last one short
    QStringList m_update;
    unsigned m_transfers = 0;
};

void FirmwareFaultsTest::initTestCase() {
    // The emulated bus gives up when it announces a camera to a program that is just ending: a run
    // that fails has ended by then.
    m_camera = m_bench.plug({.restartDelay = std::chrono::milliseconds(50)});
    QFile file(m_folder.filePath(u"image.bin"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(m_image), m_image.size());
    m_update = {u"firmware"_s, u"update"_s, file.fileName(), u"--yes"_s};
    QVERIFY(m_camera->set("firmware-next", "1.01"));
    const stRunResult run = CliBench::run(m_update);
    QVERIFY2(run.exit == 0, qPrintable(run.out + run.err));
    QVERIFY(hasImage());
    m_transfers = static_cast<unsigned>(m_bench.bus.log(m_bench.ids[0]).transferCount);
    QCOMPARE_GE(m_transfers, 16U);
}

/// A camera that was told to update itself may still be about to restart.
void FirmwareFaultsTest::bringBack(const Fault& fault, bool isTold) {
    const DeviceId id = m_bench.ids[0];
    m_bench.bus.clearFaults(id);
    if (makesCameraLeave(fault)) {
        QVERIFY(m_bench.bus.waitForPlugged(id, false, std::chrono::milliseconds(PATIENCE_MS)));
    }
    m_bench.bus.settle();
    if (isTold || fault.kind == FaultKind::Halt) {
        static_cast<void>(m_bench.bus.unplug(id));
    }
    static_cast<void>(m_bench.bus.replug(id));
}

void FirmwareFaultsTest::theReportIsWhatBecameOfTheCamera() {
    QFETCH(const Fault, fault);
    m_camera->setState({});
    QVERIFY(m_camera->set("firmware-next", "1.01"));
    static_cast<void>(m_camera->takeCodes());
    m_bench.bus.addFault(m_bench.ids[0], fault);
    stRunResult run;
    {
        const ShortTimeouts shortTimeouts;
        run = CliBench::run(m_update + QStringList{u"--wait-back=1"_s});
    }
    QVERIFY(makesCameraLeave(fault) || isLetGo(m_bench.bus, m_bench.ids[0]));
    const bool isTold = m_camera->takeCodes().contains("2002");
    bringBack(fault, isTold);

    const QByteArray what = run.out.toUtf8() + run.err.toUtf8();
    const bool isUpdated = m_camera->item("firmware-version") == u"1.01"_s;
    QVERIFY2((QList{0, 6, 7, 8}).contains(run.exit), what);
    QVERIFY2(run.out.contains(u"updated: firmware 1.00 -> 1.01"_s) == (run.exit == 0), what);
    QVERIFY2(run.exit != 0 || (isUpdated && hasImage()), what);
    QVERIFY2(run.exit != 7 || !isTold, what);
    QVERIFY2(run.exit != 8 || !run.out.contains(u"nothing was updated"_s), what);
    // The fault puts the refusal in the camera's mouth.
    QVERIFY2(!isTold || run.exit != 6 || fault.kind == FaultKind::CameraError, what);
    QVERIFY2(!isTold || hasImage(), what);

    const stRunResult next = CliBench::run({u"firmware"_s});
    QCOMPARE(next.exit, 0);
    QCOMPARE(next.out.trimmed(), m_camera->item("firmware-version"));
}

const TestSubject registered = subjectWithoutApplication<FirmwareFaultsTest>();
#include "FirmwareFaultsTest.moc"
