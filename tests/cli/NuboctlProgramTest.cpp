// SPDX-License-Identifier: MIT
#include "tests/simulator/SimulatorRun.h"
#include "tests/support/TestSubject.h"

#include <QRegularExpression>
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
    void takesASecretFromStandardInput();

private:
    /// @p line with "$N" for the program.
    static Run run(const QString& line) {
        return runSimulator(shell(u"N=" NUBOCTL_PROGRAM "; "_s + line));
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
        run(u"F=$(mktemp -u); mkfifo $F; "
            "$N status --watch=0.1 > $F & P=$!; "
            "exec 3< $F; read LINE <&3; kill -TERM $P; wait $P; echo \"exit $?\"; "
            "rm $F; $N get camera.name"_s);
    QCOMPARE(ended.exitCode, 0);
    QCOMPARE(ended.output, "exit 130\ncamera.name = Gull\n");
}

void NuboctlProgramTest::namesTheProgramThatHoldsTheCamera() {
    const Run second =
        run(u"F=$(mktemp -u); mkfifo $F; $N status --watch=0.1 > $F & P=$!; "
            "exec 3< $F; read LINE <&3; $N list; $N get; echo \"exit $?\"; "
            "kill $P; wait $P; rm $F"_s);
    QVERIFY2(second.output.contains("exit 4\n"), second.output + second.errors);
    const QRegularExpression holder(u"in use by nuboctl \\(pid \\d+\\)"_s);
    QVERIFY2(holder.match(QString::fromUtf8(second.output)).hasMatch(), second.output);
    QVERIFY2(holder.match(QString::fromUtf8(second.errors)).hasMatch(), second.errors);
}

void NuboctlProgramTest::waitsUntilTheCameraIsFree() {
    const Run second =
        run(u"F=$(mktemp -u); mkfifo $F; $N status --watch=0.1 > $F & P=$!; "
            "exec 3< $F; read LINE <&3; { sleep 1; kill $P; } & "
            "$N --wait get camera.name; rm $F"_s);
    QCOMPARE(second.output, "camera.name = Gull\n");
}

void NuboctlProgramTest::outlivesAClosedPipe() {
    const Run ended = run(u"{ $N status --watch=0.01; echo \"exit $?\" >&2; } | head -1"_s);
    QVERIFY(ended.output.startsWith("battery.charge"));
    QVERIFY2(ended.errors.contains("exit 9\n"), ended.errors);
}

void NuboctlProgramTest::takesASecretFromStandardInput() {
    const Run set =
        run(u"printf 'beacon\\n' | $N set live.password=- && "
            "$N get --show-secrets live.password"_s);
    QCOMPARE(set.output, "live.password: ******** -> ********\nlive.password = beacon\n");
    QVERIFY(set.errors.isEmpty());
}

const TestSubject registered = subjectWithoutScreen<NuboctlProgramTest>();
#include "NuboctlProgramTest.moc"
