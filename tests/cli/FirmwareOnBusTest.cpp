// SPDX-License-Identifier: MIT
#include "tests/cli/CliBench.h"
#include "tests/support/TestSubject.h"

#include <QCryptographicHash>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using nubo::simulator::FaultKind;
using nubo::simulator::FaultUnit;

namespace {

constexpr std::uint16_t SEND_IMAGE = 0x2001;
constexpr qsizetype IMAGE_SIZE = 200'000;  // several pieces, the last one short

/// A transfer of the update that goes wrong, and how the run ends then.
struct stFaultRow {
    const char* name;
    FaultKind kind;
    std::uint32_t argument;
    unsigned int nth;  ///< command, from the start of the run: 4 the image, 5 the update
    int exit;
    bool hasImage;  ///< whether the camera has the image then
};

// clang-format off
constexpr std::array FAULTS{
    stFaultRow{"charge cannot be read", FaultKind::CameraError, 0xFFFA, 2, 6, false},
    // The camera takes the data that it has not heard announced for a command that it does not know.
    stFaultRow{"announcement lost",     FaultKind::Timeout,     0,      4, 6, false},
    stFaultRow{"image refused",         FaultKind::CameraError, 0xFFF8, 4, 6, true},
    stFaultRow{"battery low at update", FaultKind::CameraError, 0xFFF5, 5, 6, true},
    stFaultRow{"update lost",           FaultKind::Timeout,     0,      5, 8, true},
};
// clang-format on

QByteArray image() {
    QByteArray bytes(IMAGE_SIZE, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        bytes[i] = static_cast<char>(i * 7 + i / 256);
    }
    return bytes;
}

}  // namespace

/// Firmware updates of a simulated camera, behind the real libusb.
class FirmwareOnBusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void tellsTheVersion();
    void sendsTheImageAndWaitsForTheNewVersion();
    void tellsProgramsWhatItDid();
    void dryRunChecksAndSendsNothing();
    void needsFileAndAgreementBeforeAnythingIsSent();
    void refusesALowBattery();
    void refusesWhileARecordingRuns();
    void faultsAreToldAsWhatTheyLeave_data();
    void faultsAreToldAsWhatTheyLeave();
    void aCameraPulledInTheImageIsTold();
    void aCameraThatDoesNotRestartIsTold();
    void theFirstInterruptionIsRefused();

private:
    [[nodiscard]] QStringList update(const QStringList& more = {u"--yes"_s}) const {
        return QStringList{u"firmware"_s, u"update"_s, m_path} + more;
    }
    [[nodiscard]] bool hasImage() const {
        return *m_camera->firmware() == std::vector<std::uint8_t>(m_image.cbegin(), m_image.cend());
    }

    CliBench m_bench;
    std::shared_ptr<RecordingCamera> m_camera;
    QTemporaryDir m_folder;
    QString m_path = m_folder.filePath(u"image.bin"_s);
    QByteArray m_image = image();
};

void FirmwareOnBusTest::initTestCase() {
    nubo::simulator::DeviceOptions options;
    options.restartDelay = std::chrono::milliseconds(50);
    m_camera = m_bench.plug(options);
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(m_image), IMAGE_SIZE);
}

void FirmwareOnBusTest::init() {
    m_camera->setState({});
    QVERIFY(m_camera->set("firmware-next", "1.01"));
    static_cast<void>(m_camera->takeCodes());
}

void FirmwareOnBusTest::cleanup() {
    const nubo::simulator::DeviceId id = m_bench.ids.front();
    m_bench.bus.clearFaults(id);
    // One that was told to update itself, whatever it answered, may be about to restart.
    m_bench.bus.settle();
    static_cast<void>(m_bench.bus.unplug(id));
    static_cast<void>(m_bench.bus.replug(id));
    Interruption::reset();
}

void FirmwareOnBusTest::tellsTheVersion() {
    QCOMPARE(CliBench::run({u"firmware"_s}).out, u"1.00\n"_s);
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{"503a"});
}

void FirmwareOnBusTest::sendsTheImageAndWaitsForTheNewVersion() {
    const stRunResult result = CliBench::run(update());
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    QCOMPARE(m_camera->takeCodes(),
             (QByteArrayList{"503a", "5037", "5010",  // version, battery, recording
                             "2001", "2002",          // the image, the update
                             "503a", "4001"}));       // the camera is back
    QVERIFY(hasImage());
    QCOMPARE(m_camera->item("firmware-version"), u"1.01"_s);
    QVERIFY2(result.out.contains(u"updated: firmware 1.00 -> 1.01\n"_s), qPrintable(result.out));
}

void FirmwareOnBusTest::tellsProgramsWhatItDid() {
    const stRunResult result = CliBench::run(update({u"--yes"_s, u"--json"_s}));
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    const QJsonObject told =
        QJsonDocument::fromJson(result.out.toUtf8()).object()["firmware"_L1].toObject();
    const QByteArray sum = QCryptographicHash::hash(m_image, QCryptographicHash::Sha256).toHex();
    QCOMPARE(told, (QJsonObject{{u"image"_s, m_path},
                                {u"size"_s, IMAGE_SIZE},
                                {u"sha256"_s, QString::fromLatin1(sum)},
                                {u"before"_s, u"1.00"_s},
                                {u"after"_s, u"1.01"_s}}));
}

void FirmwareOnBusTest::dryRunChecksAndSendsNothing() {
    const stRunResult result = CliBench::run(update({u"--dry-run"_s}));
    QCOMPARE(result.exit, 0);
    QCOMPARE(m_camera->takeCodes(), (QByteArrayList{"503a", "5037", "5010"}));
    QVERIFY(m_camera->firmware()->empty());
}

void FirmwareOnBusTest::needsFileAndAgreementBeforeAnythingIsSent() {
    const QString empty = m_folder.filePath(u"empty"_s);
    QVERIFY(QFile(empty).open(QIODevice::WriteOnly));
    QCOMPARE(CliBench::run(update({})).exit, 2);
    QCOMPARE(CliBench::run({u"firmware"_s, u"update"_s}).exit, 2);
    QCOMPARE(CliBench::run({u"firmware"_s, u"update"_s, empty, u"--yes"_s}).exit, 2);
    QCOMPARE(
        CliBench::run({u"firmware"_s, u"update"_s, m_folder.filePath(u"no"_s), u"--yes"_s}).exit,
        9);
    QCOMPARE(m_camera->takeCodes(), QByteArrayList{});
}

void FirmwareOnBusTest::refusesALowBattery() {
    QVERIFY(m_camera->set("battery", "49"));
    const stRunResult result = CliBench::run(update());
    QCOMPARE(result.exit, 1);
    QVERIFY(result.err.contains(u"the battery is at 49 %, and an update needs 50 %"_s));
    QVERIFY(!m_camera->takeCodes().contains("2001"));
    QVERIFY(m_camera->set("battery", "50"));
    QCOMPARE(CliBench::run(update({u"--dry-run"_s})).exit, 0);
}

void FirmwareOnBusTest::refusesWhileARecordingRuns() {
    QVERIFY(m_camera->set("recording", "on"));
    const stRunResult result = CliBench::run(update());
    QCOMPARE(result.exit, 1);
    QVERIFY(result.err.contains(u"a recording runs"_s));
    QVERIFY(!m_camera->takeCodes().contains("2001"));
}

void FirmwareOnBusTest::faultsAreToldAsWhatTheyLeave_data() {
    QTest::addColumn<stFaultRow>("row");
    for (const stFaultRow& row : FAULTS) {
        QTest::addRow("%s", row.name) << row;
    }
}

void FirmwareOnBusTest::faultsAreToldAsWhatTheyLeave() {
    QFETCH(const stFaultRow, row);
    m_bench.bus.addFault(m_bench.ids.front(),
                         {row.kind, row.argument, FaultUnit::Command, row.nth, 1});
    const stRunResult result = CliBench::run(update());
    QVERIFY2(result.exit == row.exit, qPrintable(result.out + result.err));
    QVERIFY(!result.out.contains(u"updated"_s) || result.out.contains(u"nothing was updated"_s));
    QCOMPARE(hasImage(), row.hasImage);
}

void FirmwareOnBusTest::aCameraPulledInTheImageIsTold() {
    constexpr unsigned int SECOND_PIECE = 9;
    m_bench.bus.addFault(m_bench.ids.front(),
                         {FaultKind::UnplugBefore, 0, FaultUnit::Transfer, SECOND_PIECE, 1});
    const stRunResult result = CliBench::run(update());
    QVERIFY2(result.exit == 7, qPrintable(result.err));
    QVERIFY(result.err.contains(u"firmware image: the camera has gone"_s));
    QVERIFY(result.out.contains(u"nothing was updated"_s));
    QVERIFY(!m_camera->takeCodes().contains("2002"));
    QVERIFY(m_camera->firmware()->empty());
}

void FirmwareOnBusTest::aCameraThatDoesNotRestartIsTold() {
    QVERIFY(m_camera->set("firmware-next", ""));
    const stRunResult result = CliBench::run(update({u"--yes"_s, u"--wait-back=1"_s}));
    QCOMPARE(result.exit, 8);
    QVERIFY2(result.err.contains(u"has not restarted within 1 s"_s), qPrintable(result.err));
}

void FirmwareOnBusTest::theFirstInterruptionIsRefused() {
    m_camera->interruptAt(SEND_IMAGE);
    const stRunResult result = CliBench::run(update());
    m_camera->interruptAt(0);
    QVERIFY2(result.exit == 0, qPrintable(result.err));
    QVERIFY2(result.err.contains(u"the update goes on"_s), qPrintable(result.err));
    QCOMPARE(m_camera->item("firmware-version"), u"1.01"_s);
}

const TestSubject registered = subjectWithoutApplication<FirmwareOnBusTest>();
#include "FirmwareOnBusTest.moc"
