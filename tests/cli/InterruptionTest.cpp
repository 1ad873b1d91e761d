// SPDX-License-Identifier: MIT
#include "cli/ExitCode.h"
#include "tests/cli/CliBench.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

constexpr std::uint16_t SET_CONTRAST = 0x5849;
constexpr std::uint16_t REQUEST_PICTURE = 0x3001;
constexpr std::uint16_t GET_BATTERY = 0x5037;
constexpr std::uint16_t GET_CLOCK = 0x5031;

}  // namespace

/// Ctrl-C in the middle of a run: the transaction under way is finished, no other is begun, and
/// what was done and what not is told.
class InterruptionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { Interruption::reset(); }
    void cleanup() { Interruption::reset(); }

    void applyEndsAfterTheWriteUnderWay();
    void applyTellsProgramsWhatWasWritten();
    void applyToAllEndsOnEveryCamera();
    void aSeriesKeepsThePicturesThatItHas();
    void aWatchTellsWhatTheCameraRefuses();
    void aWatchTellsWhichCameraItIs();
    void updatesOfSeveralCamerasRefuseOneWish();
    void theDoctorSaysThatItWasInterrupted();

private:
    QTemporaryDir m_folder;
    QString m_profile;
};

void InterruptionTest::initTestCase() {
    m_profile = m_folder.filePath(u"three.nubo"_s);
    QFile file(m_profile);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("camera.name = Tern\nimage.contrast = 3\nlive.rtsp-port = 8554\n");
}

void InterruptionTest::applyEndsAfterTheWriteUnderWay() {
    CliBench bench;
    const auto camera = bench.plug();
    camera->interruptAt(SET_CONTRAST);
    const DeviceId id = bench.ids.front();
    const stRunResult run = CliBench::run({u"apply"_s, m_profile});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::Interrupted));
    QCOMPARE(run.out,
             u"camera.name: Gull -> Tern\n"
             "image.contrast: 2 -> 3 (written, and not read back)\n"
             "live.rtsp-port: 554 -> 8554 (not written)\n"_s);
    QVERIFY2(run.err.contains(u"image.contrast: interrupted before this"_s), qPrintable(run.err));
    QVERIFY2(run.err.contains(u"to go back: nuboctl set 'camera.name=Gull' 'image.contrast=2'\n"_s),
             qPrintable(run.err));
    QCOMPARE(camera->item("camera-name"), u"Tern"_s);
    QCOMPARE(camera->item("image-quality"), u"3"_s);
    QCOMPARE(camera->item("rtsp-port"), u"554"_s);
    QCOMPARE(camera->takeCodes().last(), QByteArray("5849"));
    TRY_COMPARE(bench.bus.log(id).openHandles, 0);
}

void InterruptionTest::applyTellsProgramsWhatWasWritten() {
    CliBench bench;
    bench.plug()->interruptAt(SET_CONTRAST);
    const stRunResult run = CliBench::run({u"apply"_s, m_profile, u"--json"_s});
    const QJsonObject told = QJsonDocument::fromJson(run.out.toUtf8()).object();
    QCOMPARE(told["error"_L1]["kind"_L1].toString(), u"interrupted"_s);
    QCOMPARE(told["error"_L1]["exit"_L1].toInt(), 130);
    QList<bool> written;
    QList<bool> verified;
    for (const QJsonValue& change : told["changes"_L1].toArray()) {
        written.append(change["written"_L1].toBool());
        verified.append(change["verified"_L1].toBool());
    }
    QCOMPARE(written, (QList<bool>{true, true, false}));
    QCOMPARE(verified, (QList<bool>{true, false, false}));
    QCOMPARE(told["undo"_L1].toString(), u"nuboctl set 'camera.name=Gull' 'image.contrast=2'"_s);
}

void InterruptionTest::applyToAllEndsOnEveryCamera() {
    CliBench bench;
    const auto camera = bench.plug();
    camera->interruptAt(SET_CONTRAST);
    bench.plug();
    const stRunResult run = CliBench::run({u"--all"_s, u"--json"_s, u"apply"_s, m_profile});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::Interrupted));
    QCOMPARE(run.out.split(u'\n', Qt::SkipEmptyParts).size(), 2);
    QCOMPARE(camera->item("rtsp-port"), u"554"_s);
    for (const DeviceId id : bench.ids) {
        TRY_COMPARE(bench.bus.log(id).openHandles, 0);
    }
}

void InterruptionTest::aSeriesKeepsThePicturesThatItHas() {
    CliBench bench;
    bench.plug()->interruptAt(REQUEST_PICTURE);
    const QString path = m_folder.filePath(u"a.jpg"_s);
    const stRunResult run =
        CliBench::run({u"picture"_s, path, u"--every"_s, u"0.01"_s, u"--count"_s, u"5"_s});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::Interrupted));
    QVERIFY2(run.err.contains(u"interrupted after 1"_s), qPrintable(run.err));
    QVERIFY(QFile::exists(m_folder.filePath(u"a-0001.jpg"_s)));
    QVERIFY(!QFile::exists(m_folder.filePath(u"a-0002.jpg"_s)));
}

void InterruptionTest::aWatchTellsWhatTheCameraRefuses() {
    constexpr std::uint32_t BUSY = 0xFFF9;
    CliBench bench;
    bench.plug()->interruptAt(GET_CLOCK);
    const DeviceId id = bench.ids.front();
    // The first value that a report tells.
    bench.bus.addFault(
        id,
        {.kind = FaultKind::CameraError, .argument = BUSY, .unit = FaultUnit::Command, .nth = 1});
    const stRunResult run = CliBench::run({u"status"_s, u"--watch=0.01"_s});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::Interrupted));
    QVERIFY2(run.err.contains(u"battery.charge: the camera refuses (NUBO_CMD_ERROR_BUSY"_s),
             qPrintable(run.err));
    QVERIFY2(run.out.contains(u"wifi.link         linked\n"_s), qPrintable(run.out));
}

void InterruptionTest::aWatchTellsWhichCameraItIs() {
    CliBench bench;
    bench.plug()->interruptAt(GET_CLOCK);
    const stRunResult run = CliBench::run({u"--all"_s, u"status"_s, u"--watch=0.01"_s});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::Interrupted));
    QVERIFY2(run.out.startsWith(u"# camera SIM0001 at "_s), qPrintable(run.out));
}

void InterruptionTest::updatesOfSeveralCamerasRefuseOneWish() {
    auto one = std::make_unique<Interruption::Refusal>();
    const Interruption::Refusal other;
    one.reset();
    Interruption::request();
    QVERIFY(!Interruption::isRequested());
    QVERIFY(Interruption::Refusal::takeRefused());
    QVERIFY(!Interruption::Refusal::takeRefused());
    Interruption::request();
    QVERIFY(Interruption::isRequested());
}

void InterruptionTest::theDoctorSaysThatItWasInterrupted() {
    CliBench bench;
    bench.plug()->interruptAt(GET_BATTERY);
    const stRunResult run = CliBench::run({u"doctor"_s});
    QCOMPARE(run.exit, static_cast<int>(ExitCode::Interrupted));
    QVERIFY2(run.out.contains(u"battery   85 %\n"_s), qPrintable(run.out));
    QVERIFY(run.out.contains(u"card      sd.total: interrupted before this"_s));
}

const TestSubject registered = subjectWithoutApplication<InterruptionTest>();
#include "InterruptionTest.moc"
