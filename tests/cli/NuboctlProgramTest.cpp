// SPDX-License-Identifier: MIT
#include "tests/simulator/SimulatorRun.h"
#include "tests/support/TestSubject.h"

#include <QRegularExpression>
#include <QTemporaryFile>
#include <QTest>

using namespace Qt::StringLiterals;

/// The program as a shell starts it, under the simulator.
class NuboctlProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void linksNeitherPicturesNorWidgets();
    void endsAfterCtrlCAndLetsTheCameraGo();
    void namesTheProgramThatHoldsTheCamera();
    void waitsUntilTheCameraIsFree();
    void outlivesAClosedPipe();
    void endsWhenNobodyHearsTheMonitor();
    void tellsOfASeriesAsItGoes();
    void endsAfterASignalWhileNobodyTakesThePicture();
    void endsAfterASignalWhileItReads();
    void readsAPipeToItsEnd();
    void takesASecretFromStandardInput();
    void takesOneSecretFromStandardInput();
    void keepsUsbAwayFromClosedDescriptors();

private:
    /// @p line with "$N" for the program, "$F" for a pipe, and "heeds PID", which waits until that
    /// process catches SIGHUP, SIGINT and SIGTERM.
    static Run run(const QString& line, const QStringList& options = {}) {
        return runSimulator(
            options +
            shell(u"N=" NUBOCTL_PROGRAM "; F=$(mktemp -u); mkfifo $F; "
                  "caught() { echo $((0x$(sed -n 's/^SigCgt:\t//p' /proc/$1/status) & 0x4003)); }; "
                  "heeds() { until [ $(caught $1) = 16387 ]; do sleep 0.01; done; }; "
                  "%1; rm $F"_s.arg(line)));
    }
};

void NuboctlProgramTest::linksNeitherPicturesNorWidgets() {
    QProcess ldd;
    ldd.start(u"ldd"_s, {QStringLiteral(NUBOCTL_PROGRAM)});
    QVERIFY(ldd.waitForFinished(PATIENCE_MS));
    const QByteArray libraries = ldd.readAllStandardOutput();
    QVERIFY(libraries.contains("libQt6Core"));
    QVERIFY2(!libraries.contains("libQt6Gui") && !libraries.contains("libQt6Widgets"), libraries);
}

void NuboctlProgramTest::endsAfterCtrlCAndLetsTheCameraGo() {
    // The first report shows that the watch runs; a shell's background job would ignore SIGINT.
    const Run ended =
        run(u"$N status --watch=0.1 > $F & P=$!; "
            "exec 3< $F; read LINE <&3; kill -TERM $P; wait $P; echo \"exit $?\"; "
            "$N get camera.name"_s);
    QCOMPARE(ended.exitCode, 0);
    QCOMPARE(ended.output, "exit 130\ncamera.name = Gull\n");
}

void NuboctlProgramTest::namesTheProgramThatHoldsTheCamera() {
    const Run second =
        run(u"$N status --watch=0.1 > $F & P=$!; "
            "exec 3< $F; read LINE <&3; $N list; $N get; echo \"exit $?\"; "
            "kill $P; wait $P"_s);
    QVERIFY2(second.output.contains("exit 4\n"), second.output + second.errors);
    const QRegularExpression holder(u"in use by nuboctl \\(pid \\d+\\)"_s);
    QVERIFY2(holder.match(QString::fromUtf8(second.output)).hasMatch(), second.output);
    QVERIFY2(holder.match(QString::fromUtf8(second.errors)).hasMatch(), second.errors);
}

void NuboctlProgramTest::waitsUntilTheCameraIsFree() {
    const Run second =
        run(u"$N status --watch=0.1 > $F & P=$!; "
            "exec 3< $F; read LINE <&3; { sleep 1; kill $P; } & "
            "$N --wait get camera.name"_s);
    QCOMPARE(second.output, "camera.name = Gull\n");
}

void NuboctlProgramTest::outlivesAClosedPipe() {
    const Run ended = run(u"{ $N status --watch=0.01; echo \"exit $?\" >&2; } | head -1"_s);
    QVERIFY(ended.output.startsWith("battery.charge"));
    QVERIFY2(ended.errors.contains("exit 9\n"), ended.errors);
}

void NuboctlProgramTest::readsAPipeToItsEnd() {
    const Run applied =
        run(u"{ echo camera.name = Tern; echo live.rtsp-port = 8554; } > $F & "
            "$N -q apply $F; $N get camera.name live.rtsp-port"_s);
    QVERIFY2(applied.output.endsWith("\ncamera.name = Tern\nlive.rtsp-port = 8554\n"),
             applied.output);
    QVERIFY2(applied.errors.isEmpty(), applied.errors);
}

void NuboctlProgramTest::takesASecretFromStandardInput() {
    const Run set =
        run(u"printf 'beacon\\n' | $N set live.password=- && "
            "$N get --show-secrets live.password"_s);
    QCOMPARE(set.output, "live.password: ******** -> ********\nlive.password = beacon\n");
    QVERIFY(set.errors.isEmpty());
}

void NuboctlProgramTest::takesOneSecretFromStandardInput() {
    const Run set =
        run(u"printf 'beacon\\n' | $N set live.password=- wifi.infrastructure.key=-; "
            "echo \"exit $?\"; $N get --show-secrets live.password wifi.infrastructure.key"_s);
    QCOMPARE(set.output, "exit 2\nlive.password = lantern\nwifi.infrastructure.key = breakwater\n");
    QCOMPARE(set.errors, "nuboctl: standard input (-) can be read only once\n");
}

void NuboctlProgramTest::endsWhenNobodyHearsTheMonitor() {
    // What it has to tell is told: only the pipe shows that nobody hears it.
    const Run ended =
        run(u"$N monitor > $F & P=$!; exec 3< $F; read PLUGGED <&3; read READY <&3; "
            "exec 3<&-; wait $P; echo \"exit $?\""_s);
    QCOMPARE(ended.output, "exit 9\n");
    QCOMPARE(ended.errors, "nuboctl: results could not be written\n");
}

void NuboctlProgramTest::tellsOfASeriesAsItGoes() {
    const Run ended =
        run(u"$N picture --every=86400 $F.jpg > $F & P=$!; exec 3< $F; read LINE <&3; "
            "kill $P; wait $P; "
            "echo \"exit $?\"; echo \"${LINE##*-}\"; rm $F-0001.jpg"_s);
    QCOMPARE(ended.output, "exit 130\n0001.jpg: 12959 bytes\n");
}

void NuboctlProgramTest::endsAfterASignalWhileNobodyTakesThePicture() {
    QTemporaryFile script;
    QVERIFY(script.open() && script.write("set picture-size 1000000\n") > 0 && script.flush());
    // The pipe is full as soon as its first byte can be read.
    const Run ended =
        run(u"$N picture - > $F & P=$!; exec 3< $F; head -c 1 <&3 > /dev/null; "
            "kill $P; wait $P; echo \"exit $?\"; $N get camera.name"_s,
            {u"--script"_s, script.fileName()});
    QCOMPARE(ended.output, "exit 130\ncamera.name = Gull\n");
}

void NuboctlProgramTest::endsAfterASignalWhileItReads() {
    const Run ended =
        run(u"$N apply - < $F & P=$!; exec 3<> $F; heeds $P; kill $P; wait $P; "
            "echo \"exit $?\"; exec 3>&-"_s);
    QCOMPARE(ended.output, "exit 130\n");
    QCOMPARE(ended.errors, "nuboctl: standard input: interrupted\n");
}

void NuboctlProgramTest::keepsUsbAwayFromClosedDescriptors() {
    const Run looked =
        run(u"$N -c none --wait get <&- >&- 2>&- & P=$!; heeds $P; "
            "until ls -l /proc/$P/fd | grep -q eventfd; do sleep 0.01; done; "
            "readlink /proc/$P/fd/0 /proc/$P/fd/1 /proc/$P/fd/2; "
            "kill $P; wait $P; echo \"exit $?\"; $N get >&-; echo \"exit $?\""_s);
    QCOMPARE(looked.output, "/\n/\n/\nexit 130\nexit 9\n");
    QCOMPARE(looked.errors, "nuboctl: results could not be written\n");
}

const TestSubject registered = subjectWithoutScreen<NuboctlProgramTest>();
#include "NuboctlProgramTest.moc"
