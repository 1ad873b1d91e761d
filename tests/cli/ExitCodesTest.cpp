// SPDX-License-Identifier: MIT
#include "cli/ExitCode.h"
#include "tests/cli/CliBench.h"
#include "tests/support/Patience.h"
#include "tests/support/TestSubject.h"
#include "tests/support/WithoutFileOverride.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTest>

using namespace nubo::simulator;
using namespace Qt::StringLiterals;

namespace {

/// Says yes to a new name, and keeps the old one.
class ForgetfulCamera : public RecordingCamera {
public:
    void receive(std::span<const std::uint8_t> packet) override {
        RecordingCamera::receive(packet);
        set("camera-name", "Gull");
    }
};

/// Takes any contrast for one out of range.
class StubbornCamera : public RecordingCamera {
public:
    void receive(std::span<const std::uint8_t> packet) override {
        constexpr std::uint16_t SET_CONTRAST = 0x5849;
        ByteVector heard(packet.begin(), packet.end());
        if (readU16(packet, CODE_OFFSET) == SET_CONTRAST) {
            writeU32(heard, HEADER_SIZE, 5);
        }
        RecordingCamera::receive(heard);
    }
};

int codeOf(ExitCode exit) {
    return static_cast<int>(exit);
}

QJsonObject errorOf(const stRunResult& run) {
    return QJsonDocument::fromJson(run.out.toUtf8()).object()["error"_L1].toObject();
}

}  // namespace

/// Every exit code, as scripts get it, and what goes with it.
class ExitCodesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { Interruption::reset(); }

    void doneWithTheValueThatWasAskedFor();
    void noWhenAValueIsReadBackDifferently();
    void wrongUseSendsNothing_data();
    void wrongUseSendsNothing();
    void noCameraWithoutOne();
    void noCameraWhenSeveralAndNoneChosen();
    void inUseNamesThatSomebodyHoldsIt();
    void accessDeniedToAnOrdinaryUser();
    void aRefusalCarriesItsCodeAndName();
    void theLinkFailedWhenTheCameraGoes();
    void partlyDoneTellsWhatWasWrittenAndWhatNot();
    void aMissingFileIsOfThisComputer();
    void interruptedBeforeTheNextTransaction();
    void resultsThatCannotBeWrittenAreOfThisComputer();
};

void ExitCodesTest::doneWithTheValueThatWasAskedFor() {
    CliBench bench;
    bench.plug();
    const stRunResult run = CliBench::run({u"get"_s, u"camera.name"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::Done));
    QCOMPARE(run.out, u"camera.name = Gull\n"_s);
    QVERIFY(run.err.isEmpty());
}

void ExitCodesTest::noWhenAValueIsReadBackDifferently() {
    CliBench bench;
    bench.bus.plug(std::make_shared<ForgetfulCamera>());
    const stRunResult run = CliBench::run({u"set"_s, u"camera.name=Tern"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::No));
    QVERIFY(run.err.contains(u"camera.name: written as Tern, read back as Gull"_s));
}

void ExitCodesTest::wrongUseSendsNothing_data() {
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("complaint");
    QTest::newRow("nothing") << QStringList{} << u"no verb"_s;
    QTest::newRow("verb") << QStringList{u"gett"_s} << u"did you mean get?"_s;
    QTest::newRow("option") << QStringList{u"get"_s, u"--jason"_s} << u"no option --jason"_s;
    QTest::newRow("key") << QStringList{u"get"_s, u"gps.enable"_s}
                         << u"did you mean gps.enabled?"_s;
    QTest::newRow("value") << QStringList{u"set"_s, u"live.frame-rate=5"_s}
                           << u"live.frame-rate: 5 is not one of 30, 15, 10, 6, 1"_s;
    QTest::newRow("twice") << QStringList{u"set"_s, u"camera.name=A"_s, u"camera.name=B"_s}
                           << u"camera.name stands twice"_s;
    QTest::newRow("both") << QStringList{u"--all"_s, u"-c"_s, u"1-1"_s, u"get"_s}
                          << u"exclude each other"_s;
    QTest::newRow("camera of no name")
        << QStringList{u"-c"_s, u""_s, u"get"_s} << u"--camera names no camera"_s;
    QTest::newRow("option behind --") << QStringList{u"--"_s, u"--json"_s} << u"no option --json"_s;
    QTest::newRow("count") << QStringList{u"picture"_s, u"--count=2.5"_s}
                           << u"2.5 is not a whole number"_s;
    QTest::newRow("too few") << QStringList{u"set"_s} << u"set needs KEY=VALUE..."_s;
    QTest::newRow("wait") << QStringList{u"--wait=soon"_s, u"get"_s}
                          << u"not a number of seconds"_s;
    for (const QString& seconds : {u"nan"_s, u"inf"_s, u"1e300"_s}) {
        QTest::addRow("wait %s", qPrintable(seconds))
            << QStringList{u"--wait="_s + seconds, u"get"_s} << u"not a number of seconds"_s;
    }
    QTest::newRow("watch") << QStringList{u"status"_s, u"--watch=nan"_s}
                           << u"not a number of seconds"_s;
    QTest::newRow("every") << QStringList{u"monitor"_s, u"--every=nan"_s} << u"is not a number"_s;
}

void ExitCodesTest::wrongUseSendsNothing() {
    CliBench bench;
    bench.plug();
    QFETCH(const QStringList, words);
    const stRunResult run = CliBench::run(words);
    QCOMPARE(run.exit, codeOf(ExitCode::WrongUse));
    QFETCH(const QString, complaint);
    QVERIFY2(run.err.contains(complaint), qPrintable(run.err));
    QVERIFY(run.out.isEmpty());
    QCOMPARE(bench.bus.log(bench.ids[0]).timesOpened, 0);
}

void ExitCodesTest::noCameraWithoutOne() {
    CliBench bench;
    for (const QString& verb : {u"get"_s, u"list"_s, u"status"_s}) {
        const stRunResult run = CliBench::run({u"--json"_s, verb});
        QCOMPARE(run.exit, codeOf(ExitCode::NoCamera));
        QCOMPARE(errorOf(run)["kind"_L1].toString(), u"no-camera"_s);
        QVERIFY(run.err.contains(u"no camera is plugged in"_s));
    }
}

void ExitCodesTest::noCameraWhenSeveralAndNoneChosen() {
    CliBench bench;
    QVERIFY(bench.plug()->set("serial-number", "SIM0001"));
    QVERIFY(bench.plug()->set("serial-number", "SIM0002"));
    const stRunResult run = CliBench::run({u"get"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::NoCamera));
    QVERIFY2(run.err.contains(u"2 cameras, choose one"_s), qPrintable(run.err));
    QCOMPARE(CliBench::run({u"-c"_s, u"no such"_s, u"get"_s}).exit, codeOf(ExitCode::NoCamera));
}

void ExitCodesTest::inUseNamesThatSomebodyHoldsIt() {
    CliBench bench;
    bench.plug({.busyInterfaces = {0}});
    const stRunResult run = CliBench::run({u"get"_s, u"--json"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::InUse));
    QCOMPARE(errorOf(run)["kind"_L1].toString(), u"in-use"_s);
    QVERIFY(run.err.contains(u"is in use by"_s) && run.err.contains(u"--wait"_s));
    const stRunResult list = CliBench::run({u"list"_s});
    QCOMPARE(list.exit, codeOf(ExitCode::Done));
    QVERIFY(list.out.contains(u"in use"_s));
}

void ExitCodesTest::accessDeniedToAnOrdinaryUser() {
    CliBench bench;
    bench.plug({.access = NodeAccess::Denied});
    const WithoutFileOverride asAnyUser;
    const stRunResult run = CliBench::run({u"get"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::AccessDenied));
    QVERIFY(run.err.contains(u"access denied"_s));
    QVERIFY(CliBench::run({u"list"_s}).out.contains(u"access denied"_s));
}

void ExitCodesTest::aRefusalCarriesItsCodeAndName() {
    CliBench bench;
    bench.plug();
    bench.bus.addFault(
        bench.ids[0],
        {.kind = FaultKind::CameraError, .argument = 0xFFF9, .unit = FaultUnit::Command});
    const stRunResult run = CliBench::run({u"get"_s, u"camera.name"_s, u"camera.led"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::Refused));
    QVERIFY2(run.err.contains(u"camera.name: the camera refuses (NUBO_CMD_ERROR_BUSY, 0xFFF9)"_s),
             qPrintable(run.err));
    QCOMPARE(run.out, u"camera.led = on\n"_s);
}

void ExitCodesTest::theLinkFailedWhenTheCameraGoes() {
    CliBench bench;
    bench.plug();
    bench.bus.addFault(bench.ids[0], {.kind = FaultKind::DeviceGone, .nth = 3});
    const stRunResult run = CliBench::run({u"get"_s, u"camera.name"_s, u"camera.led"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::LinkFailed));
    QCOMPARE(run.out, u"camera.name = Gull\n"_s);
    QVERIFY(run.err.contains(u"camera.led: the camera has gone"_s));
}

void ExitCodesTest::partlyDoneTellsWhatWasWrittenAndWhatNot() {
    CliBench bench;
    const auto camera = std::make_shared<StubbornCamera>();
    bench.bus.plug(camera);
    const stRunResult run = CliBench::run(
        {u"set"_s, u"camera.name=Tern"_s, u"image.contrast=3"_s, u"live.rtsp-port=8554"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::PartlyDone));
    QCOMPARE(run.out,
             u"camera.name: Gull -> Tern\n"
             "image.contrast: 2 -> 3 (not written)\n"
             "live.rtsp-port: 554 -> 8554 (not written)\n"_s);
    QCOMPARE(camera->item("camera-name"), u"Tern"_s);
    QCOMPARE(camera->item("rtsp-port"), u"554"_s);
    QVERIFY(run.err.contains(u"image.contrast: the camera refuses (NUBO_CMD_ERROR_PARAM"_s));
}

void ExitCodesTest::aMissingFileIsOfThisComputer() {
    CliBench bench;
    bench.plug();
    const stRunResult run = CliBench::run({u"set"_s, u"live.password=@/no/such/file"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::Computer));
    QVERIFY(run.err.contains(u"/no/such/file"_s));
    QCOMPARE(CliBench::run({u"apply"_s, u"/no/such/file"_s}).exit, codeOf(ExitCode::Computer));
    QCOMPARE(bench.bus.log(bench.ids[0]).timesOpened, 0);
}

void ExitCodesTest::interruptedBeforeTheNextTransaction() {
    CliBench bench;
    const auto camera = bench.plug();
    Interruption::request();
    const stRunResult run = CliBench::run({u"set"_s, u"camera.name=Tern"_s});
    QCOMPARE(run.exit, codeOf(ExitCode::Interrupted));
    QVERIFY(camera->takeCodes().isEmpty());
    // The bus notices a little later that the handle is closed.
    TRY_COMPARE(bench.bus.log(bench.ids[0]).openHandles, 0);
}

void ExitCodesTest::resultsThatCannotBeWrittenAreOfThisComputer() {
    CliBench bench;
    bench.plug();
    ClConsole console([](const QByteArray&) { return false; },
                      [](const QByteArray&) { return true; });
    QCOMPARE(runNuboctl({u"get"_s}, console), ExitCode::Computer);
}

const TestSubject registered = subjectWithoutApplication<ExitCodesTest>();
#include "ExitCodesTest.moc"
