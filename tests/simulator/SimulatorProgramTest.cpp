// SPDX-License-Identifier: MIT
#include "tests/simulator/SimulatorRun.h"
#include "tests/support/TestSubject.h"

#include <QProcess>
#include <QProcessEnvironment>
#include <QTest>

#include <signal.h>

using namespace Qt::StringLiterals;

/// The program as its command line shows it: help, errors, and how it starts and ends its command.
class SimulatorProgramTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void helpNamesEveryOptionLineItemAndFault();
    void versionIsShown();
    void missingLibraryNamesItsPackage();
    void wrongArgumentIsAOneLineError_data();
    void wrongArgumentIsAOneLineError();
    void exitCodeIsThatOfTheCommand_data();
    void exitCodeIsThatOfTheCommand();
    void missingScriptIsAnError();
    void askedToEndItEndsItsCommandFirst_data();
    void askedToEndItEndsItsCommandFirst();
};

void SimulatorProgramTest::helpNamesEveryOptionLineItemAndFault() {
    const Run run = runSimulator({u"--help"_s});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.errors, QByteArray());
    for (const char* const word : {"--cameras N",
                                   "--unplugged",
                                   "--control PATH",
                                   "--script FILE",
                                   "--restart-delay MS",
                                   "--answer-delay MS",
                                   "--as-user",
                                   "--gadget",
                                   "--udc NAME",
                                   "--version",
                                   "picture FILE",
                                   "save-firmware FILE",
                                   "busy on|off",
                                   "access allowed|denied|missing",
                                   "commands",
                                   "quit",
                                   "a number from 0 to 100: charge in percent",
                                   "plug [K]",
                                   "unplug [K]",
                                   "set ITEM VALUE",
                                   "get ITEM",
                                   "fault KIND",
                                   "clear-faults",
                                   "status",
                                   "help",
                                   "wait MS",
                                   "battery",
                                   "wifi-ssid",
                                   "sd-filesystem",
                                   "timeout",
                                   "camera-error ARG",
                                   "unplug-before"}) {
        QVERIFY2(run.output.contains(word), word);
    }
}

void SimulatorProgramTest::versionIsShown() {
    const Run run = runSimulator({u"--version"_s});
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output, QByteArray("nubo-camera-simulator " SIMULATOR_VERSION "\n"));
    QCOMPARE(run.errors, QByteArray());
}

void SimulatorProgramTest::missingLibraryNamesItsPackage() {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"LD_PRELOAD"_s, u"/nowhere/libumockdev-preload.so.0"_s);
    process.setProcessEnvironment(environment);
    process.start(program(), {u"--"_s, u"true"_s});
    QVERIFY(process.waitForFinished(PATIENCE_MS));
    QCOMPARE(process.exitCode(), 127);
    QVERIFY(process.readAllStandardError().endsWith(
        "nubo-camera-simulator: libumockdev-preload.so.0 cannot be loaded: install the Debian "
        "package umockdev\n"));
}

void SimulatorProgramTest::wrongArgumentIsAOneLineError_data() {
    QTest::addColumn<QStringList>("arguments");
    QTest::newRow("nothing") << QStringList();
    QTest::newRow("no command") << QStringList{u"--cameras"_s, u"1"_s, u"--"_s};
    QTest::newRow("unknown option") << QStringList{u"--camera"_s, u"--"_s, u"true"_s};
    QTest::newRow("no number") << QStringList{u"--cameras"_s, u"many"_s, u"--"_s, u"true"_s};
    QTest::newRow("no camera") << QStringList{u"--cameras"_s, u"0"_s, u"--"_s, u"true"_s};
    QTest::newRow("value missing") << QStringList{u"--control"_s};
    QTest::newRow("value empty") << QStringList{u"--script"_s, QString(), u"--"_s, u"true"_s};
    QTest::newRow("two gadgets") << QStringList{u"--gadget"_s, u"--cameras"_s, u"2"_s};
    QTest::newRow("controller of no gadget")
        << QStringList{u"--udc"_s, u"a.usb"_s, u"--"_s, u"true"_s};
    QTest::newRow("negative delay")
        << QStringList{u"--restart-delay"_s, u"-1"_s, u"--"_s, u"true"_s};
    QTest::newRow("socket path too long")
        << QStringList{u"--control"_s, QString(200, u'x'), u"--"_s, u"true"_s};
    QTest::newRow("socket in no folder")
        << QStringList{u"--control"_s, u"/nowhere/at/all"_s, u"--"_s, u"true"_s};
}

void SimulatorProgramTest::wrongArgumentIsAOneLineError() {
    QFETCH(QStringList, arguments);
    const Run run = runSimulator(arguments);
    QCOMPARE(run.exitCode, 2);
    QCOMPARE(run.output, QByteArray());
    QVERIFY2(run.errors.startsWith("nubo-camera-simulator: "), run.errors.constData());
    QCOMPARE(run.errors.count('\n'), 1);
}

void SimulatorProgramTest::exitCodeIsThatOfTheCommand_data() {
    QTest::addColumn<QStringList>("command");
    QTest::addColumn<int>("exitCode");
    QTest::newRow("success") << shell(u"exit 0"_s) << 0;
    QTest::newRow("failure") << shell(u"exit 42"_s) << 42;
    QTest::newRow("without dashes") << QStringList{u"false"_s} << 1;
    QTest::newRow("killed") << shell(u"kill -9 $$"_s) << 128 + SIGKILL;
    QTest::newRow("not there") << QStringList{u"--"_s, u"/no/such/program"_s} << 127;
}

void SimulatorProgramTest::exitCodeIsThatOfTheCommand() {
    QFETCH(QStringList, command);
    QFETCH(int, exitCode);
    QCOMPARE(runSimulator(command).exitCode, exitCode);
}

void SimulatorProgramTest::missingScriptIsAnError() {
    const Run run = runSimulator({u"--script"_s, u"/nowhere/script"_s, u"--"_s, u"true"_s});
    QCOMPARE(run.exitCode, 2);
    QVERIFY(run.errors.contains("No such file"));
}

void SimulatorProgramTest::askedToEndItEndsItsCommandFirst_data() {
    QTest::addColumn<int>("signal");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
    QTest::newRow("SIGHUP") << SIGHUP;
}

void SimulatorProgramTest::askedToEndItEndsItsCommandFirst() {
    QFETCH(int, signal);
    QProcess process;
    process.start(program(),
                  shell(u"trap 'echo ended; exit 7' TERM; echo ready; while :; do sleep 0.01; "
                        "done"_s));
    TRY_VERIFY(process.canReadLine());
    QCOMPARE(process.readLine(), QByteArray("ready\n"));
    ::kill(static_cast<pid_t>(process.processId()), signal);
    QVERIFY(process.waitForFinished(PATIENCE_MS));
    QCOMPARE(process.exitCode(), 7);
    QCOMPARE(process.readAllStandardOutput(), QByteArray("ended\n"));
}

const TestSubject registered = subjectWithoutScreen<SimulatorProgramTest>();
#include "SimulatorProgramTest.moc"
