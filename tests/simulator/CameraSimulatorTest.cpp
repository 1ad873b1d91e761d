// SPDX-License-Identifier: MIT
#include "tests/simulator/SimulatorRun.h"
#include "tests/support/TestSubject.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QProcess>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>

#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

/// Plays cable and camera while the program runs. Its command is a probe that asks the cameras by
/// libusb.
class CameraSimulatorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void commandSeesTheCameras_data();
    void commandSeesTheCameras();
    void everyCameraHasAnIdentityOfItsOwn();
    void linesAreAnswered_data();
    void linesAreAnswered();
    void helpListsLinesItemsAndFaults();
    void pictureOfAFileIsSent();
    void firmwareIsKeptAndTheNextVersionComesBack();
    void commandsAreListedOnce();
    void busyInterfaceCannotBeClaimed();
    void deniedAndMissingNodesCannotBeOpened();
    void rootCannotBeDeniedUnlessAskedFor();
    void answersOfSixteenCamerasAreDelayedSideBySide();
    void quitEndsTheCommand();
    void commandReadsWhatIsSet();
    void cameraIsPluggedAndUnplugged();
    void cameraRestarts();
    void faultsStrikeTheCommand();
    void camerasAreNamedByNumber();
    void statusTellsWhatHappened();
    void severalClientsAreServed();
    void lineWithoutEndIsAnswered();
    void endlessLineIsRefused();
    void scriptRunsInOrderAndReports();
    void typedLinesAreAnsweredOnTheTerminal();
    void leftOverSocketIsReplacedAndOtherFilesAreKept();

private:
    void start(const QStringList& options = {});
    QByteArray control(const QByteArray& line);
    QByteArray probe(const QByteArray& line);
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QProcess> m_process;
    std::unique_ptr<QLocalSocket> m_control;
};

void CameraSimulatorTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_process = std::make_unique<QProcess>();
    m_control = std::make_unique<QLocalSocket>();
}

void CameraSimulatorTest::cleanup() {
    m_control.reset();
    m_process->closeWriteChannel();
    if (m_process->state() != QProcess::NotRunning) {
        QVERIFY(m_process->waitForFinished(PATIENCE_MS));
    }
    m_process.reset();
}

/// Starts the simulator with the probe and connects to its control socket.
void CameraSimulatorTest::start(const QStringList& options) {
    const QString socket = path(u"c"_s);
    m_process->start(program(), options + QStringList{u"--control"_s, socket, u"--"_s,
                                                      QStringLiteral(PROBE_PROGRAM)});
    const auto connects = [&] {
        if (m_control->state() == QLocalSocket::UnconnectedState) {
            m_control->connectToServer(socket);
        }
        return m_control->state() == QLocalSocket::ConnectedState;
    };
    TRY_VERIFY(connects());
}

QByteArray CameraSimulatorTest::control(const QByteArray& line) {
    m_control->write(line + '\n');
    while (!m_control->canReadLine() && m_control->waitForReadyRead(PATIENCE_MS)) {
    }
    return m_control->readLine().trimmed();
}

QByteArray CameraSimulatorTest::probe(const QByteArray& line) {
    m_process->write(line + '\n');
    while (!m_process->canReadLine() && m_process->waitForReadyRead(PATIENCE_MS)) {
    }
    return m_process->readLine().trimmed();
}

void CameraSimulatorTest::commandSeesTheCameras_data() {
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QByteArray>("count");
    QTest::newRow("one") << QStringList() << QByteArray("1");
    QTest::newRow("three") << QStringList{u"--cameras"_s, u"3"_s} << QByteArray("3");
    QTest::newRow("none") << QStringList{u"--unplugged"_s} << QByteArray("0");
}

void CameraSimulatorTest::commandSeesTheCameras() {
    QFETCH(QStringList, options);
    QFETCH(QByteArray, count);
    start(options);
    QCOMPARE(probe("count"), count);
}

void CameraSimulatorTest::everyCameraHasAnIdentityOfItsOwn() {
    start({u"--cameras"_s, u"16"_s});
    for (const char* const item : {"serial-number", "machine-name", "mac-address", "ssid"}) {
        QSet<QByteArray> values;
        for (int number = 1; number <= 16; ++number) {
            values.insert(control('@' + QByteArray::number(number) + " get " + item));
        }
        QCOMPARE(values.size(), 16);
    }
    QCOMPARE(control("@1 get serial-number"), QByteArray("ok SIM0001"));
    QCOMPARE(control("@16 get mac-address"), QByteArray("ok 02:00:5E:10:00:10"));
    QCOMPARE(control("@2 set serial-number Tern 7"), QByteArray("ok"));
    QCOMPARE(control("unplug 2"), QByteArray("ok"));
    QCOMPARE(control("plug 2"), QByteArray("ok"));
    const auto told = [&] { return probe("serials").split(','); };
    TRY_VERIFY(told().contains("Tern 7"));
    QVERIFY(told().contains("SIM0001"));
    QVERIFY(told().contains("SIM0016"));
    QVERIFY(!told().contains("SIM0002"));
}

void CameraSimulatorTest::linesAreAnswered_data() {
    QTest::addColumn<QByteArray>("line");
    QTest::addColumn<QByteArray>("answer");
    const auto row = [](const char* line, const char* answer) {
        QTest::newRow(*line == '\0' ? "empty line" : line)
            << QByteArray(line) << QByteArray(answer);
    };
    row("", "error: no command \"\", try \"help\"");
    row("  get \t battery  ", "ok 85");
    row("dance", "error: no command \"dance\", try \"help\"");
    row("plug", "error: the camera is plugged in already");
    row("plug 3", "error: no camera \"3\"");
    row("plug 0", "error: no camera \"0\"");
    row("plug one", "error: no camera \"one\"");
    row("plug 1 2", "error: too many words");
    row("unplug 1", "ok");
    row("set battery 12", "ok");
    row("set battery", "error: battery is a number from 0 to 100, not \"\" (charge in percent)");
    row("set battery 200",
        "error: battery is a number from 0 to 100, not \"200\" (charge in percent)");
    row("set wifi-mode 3",
        "error: wifi-mode is a number from 1 to 2, not \"3\" (1 infrastructure, 2 ad hoc)");
    row("set wifi-encryption 3",
        "error: wifi-encryption is one of 0 1 2 4, not \"3\" (0 none, 1 WEP, 2 TKIP, 4 AES)");
    row("set led blue", "error: led is on or off, not \"blue\" (LED)");
    row("set infra-ssid 123456789012345678901234567890123",
        "error: infra-ssid is text of 0 to 32 bytes, not \"123456789012345678901234567890123\" "
        "(network to link to)");
    row("set firmware 1",
        "error: firmware is only told (size and checksum of the image that came last)");
    row("set charge 12", "error: no item \"charge\", try \"help\"");
    row("set wifi-ssid two words", "ok");
    row("get", "error: no item \"\", try \"help\"");
    row("picture /nowhere/at/all", "error: /nowhere/at/all: No such file or directory");
    row("picture /", "error: /: Is a directory");
    row("picture /dev/null", "error: /dev/null is empty");
    row("save-firmware /nowhere/at/all", "error: no image has come");
    row("commands", "ok");
    row("busy", "error: busy is on or off, not \"\"");
    row("access free", "error: access is allowed, denied or missing, not \"free\"");
    row("quit now", "error: too many words");
    row("get wifi-ssid", "ok Harbour");
    row("get battery now", "error: too many words");
    row("fault", "error: no fault \"\"");
    row("fault fire 1", "error: no fault \"fire\"");
    row("fault stall 1", "ok");
    row("fault stall transfer 2 x3", "ok");
    row("fault stall command 2 forever", "ok");
    row("fault delay 20 command 1 once", "ok");
    row("fault camera-error 0xFFF9 1", "ok");
    row("fault camera-error 0x10000 1", "error: no argument for camera-error: \"0x10000\"");
    row("fault delay command 1", "error: no argument for delay: \"command\"");
    row("fault stall", "error: which one is to be struck, counted from 1, not \"\"");
    row("fault stall 0", "error: which one is to be struck, counted from 1, not \"0\"");
    row("fault stall 1 x0", "error: how often is once, forever or xCOUNT, not \"x0\"");
    row("fault stall 1 twice", "error: how often is once, forever or xCOUNT, not \"twice\"");
    row("fault stall 1 once more", "error: how often is once, forever or xCOUNT, not \"once\"");
    row("clear-faults", "ok");
    row("clear-faults all", "error: too many words");
    row("status", "ok camera 1: device 2, open 0, transfers 0, commands 0");
    row("status please", "error: too many words");
    row("help battery", "ok battery: a number from 0 to 100 (charge in percent)");
    row("help sd-free", "ok sd-free: only told (KiB; what is left of sd-total)");
    row("help busy",
        "ok busy on|off: claiming the interface is refused, as if another program "
        "held it");
    row("help camera-error", "ok camera-error ARG: the answer carries this result code, as 0xFFF9");
    row("help charge", "error: no line, item or fault \"charge\"");
    row("@1 get battery", "ok 85");
    row("@2 get battery", "error: no camera \"2\"");
}

void CameraSimulatorTest::linesAreAnswered() {
    QFETCH(QByteArray, line);
    QFETCH(QByteArray, answer);
    start();
    QCOMPARE(control(line), answer);
}

void CameraSimulatorTest::helpListsLinesItemsAndFaults() {
    start();
    const QByteArray help = control("help");
    QVERIFY(help.startsWith("ok plug [K]; unplug [K]; set ITEM VALUE; get ITEM; picture FILE; "));
    QVERIFY(help.contains("; items: battery battery-state wifi-state "));
    QVERIFY(help.contains(" firmware-version adjust-flag; faults: timeout device-gone "));
    QVERIFY(help.contains(" unplug-before"));
}

void CameraSimulatorTest::pictureOfAFileIsSent() {
    QFile file(path(u"a picture"_s));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("\xFF\xD8 12345");
    file.close();
    start();
    QCOMPARE(control("picture " + file.fileName().toLatin1()), QByteArray("ok 8 bytes"));
    QCOMPARE(control("get picture-size"), QByteArray("ok 8"));
    QCOMPARE(probe("picture"), QByteArray("ffd8203132333435"));
}

void CameraSimulatorTest::firmwareIsKeptAndTheNextVersionComesBack() {
    start({u"--restart-delay"_s, u"50"_s});
    QCOMPARE(control("set firmware-next 2.10"), QByteArray("ok"));
    QCOMPARE(probe("update"), QByteArray("0"));
    QFile file(path(u"image"_s));
    QCOMPARE(control("save-firmware " + file.fileName().toLatin1()), QByteArray("ok 3 bytes"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("ABC"));
    QVERIFY(control("get firmware").startsWith("ok 3 "));
    const auto isBack = [&] { return control("status").contains("device 3"); };
    TRY_VERIFY(isBack());
    QCOMPARE(control("get firmware-version"), QByteArray("ok 2.10"));
    QVERIFY(control("save-firmware /nowhere/at/all").startsWith("error: /nowhere/at/all: No such"));
}

void CameraSimulatorTest::commandsAreListedOnce() {
    start();
    QCOMPARE(probe("battery"), QByteArray("85"));
    QCOMPARE(probe("restart"), QByteArray("0"));
    QCOMPARE(control("commands"), QByteArray("ok 0x5037 0x6802"));
    QCOMPARE(control("commands"), QByteArray("ok"));
}

void CameraSimulatorTest::busyInterfaceCannotBeClaimed() {
    start();
    QCOMPARE(control("busy on"), QByteArray("ok"));
    QCOMPARE(probe("battery"), QByteArray("-6"));
    QCOMPARE(control("busy off"), QByteArray("ok"));
    QCOMPARE(probe("battery"), QByteArray("85"));
}

void CameraSimulatorTest::deniedAndMissingNodesCannotBeOpened() {
    start({u"--as-user"_s});
    QCOMPARE(probe("open"), QByteArray("0"));
    QCOMPARE(control("access denied"), QByteArray("ok"));
    QCOMPARE(probe("open"), QByteArray("-3"));
    QCOMPARE(control("access allowed"), QByteArray("ok"));
    QCOMPARE(probe("open"), QByteArray("0"));
    QCOMPARE(control("access missing"), QByteArray("ok"));
    QCOMPARE(probe("open"), QByteArray("-4"));
}

void CameraSimulatorTest::rootCannotBeDeniedUnlessAskedFor() {
    start();
    const QByteArray expected =
        ::geteuid() == 0
            ? QByteArray("error: root may open every node: start the simulator with --as-user")
            : QByteArray("ok");
    QCOMPARE(control("access denied"), expected);
}

void CameraSimulatorTest::answersOfSixteenCamerasAreDelayedSideBySide() {
    // One after the other they would take 16 times as long.
    constexpr int DELAY_MS = 2000;
    start({u"--cameras"_s, u"16"_s, u"--answer-delay"_s, QString::number(DELAY_MS)});
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(probe("all"), QByteArray("16"));
    QVERIFY(timer.elapsed() >= DELAY_MS);
    QVERIFY(timer.elapsed() < 16 * DELAY_MS);
}

void CameraSimulatorTest::quitEndsTheCommand() {
    start();
    QCOMPARE(control("quit"), QByteArray("ok"));
    QVERIFY(m_process->waitForFinished(PATIENCE_MS));
    QCOMPARE(m_process->exitCode(), 128 + SIGTERM);
}

void CameraSimulatorTest::commandReadsWhatIsSet() {
    start();
    QCOMPARE(probe("battery"), QByteArray("85"));
    QCOMPARE(control("set battery 17"), QByteArray("ok"));
    QCOMPARE(probe("battery"), QByteArray("17"));
}

void CameraSimulatorTest::cameraIsPluggedAndUnplugged() {
    start({u"--unplugged"_s});
    QCOMPARE(control("fault stall 1"), QByteArray("error: the camera has never been plugged in"));
    QCOMPARE(control("unplug"), QByteArray("error: the camera is not plugged in"));
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(control("plug"), QByteArray("ok"));
        TRY_COMPARE(probe("count"), QByteArray("1"));
        QCOMPARE(control("unplug"), QByteArray("ok"));
        TRY_COMPARE(probe("count"), QByteArray("0"));
    }
}

void CameraSimulatorTest::cameraRestarts() {
    start({u"--restart-delay"_s, u"50"_s});
    QCOMPARE(probe("restart"), QByteArray("0"));
    const auto isBack = [&] { return control("status").contains("device 3"); };
    TRY_VERIFY(isBack());
    TRY_COMPARE(probe("battery"), QByteArray("85"));
}

void CameraSimulatorTest::faultsStrikeTheCommand() {
    start();
    QCOMPARE(control("fault stall command 2"), QByteArray("ok"));
    QCOMPARE(probe("battery"), QByteArray("85"));
    QCOMPARE(probe("battery"), QByteArray("-9"));
    QCOMPARE(control("fault stall transfer 1 forever"), QByteArray("ok"));
    QCOMPARE(probe("battery"), QByteArray("-9"));
    QCOMPARE(control("clear-faults"), QByteArray("ok"));
    const auto succeeds = [&] { return probe("battery") == "85"; };
    TRY_VERIFY(succeeds());
}

void CameraSimulatorTest::camerasAreNamedByNumber() {
    start({u"--cameras"_s, u"2"_s});
    QCOMPARE(control("@2 set battery 5"), QByteArray("ok"));
    QCOMPARE(control("get battery"), QByteArray("ok 85"));
    QCOMPARE(control("@2 get battery"), QByteArray("ok 5"));
    QCOMPARE(control("unplug 2"), QByteArray("ok"));
    QCOMPARE(control("@2 plug"), QByteArray("ok"));
}

void CameraSimulatorTest::statusTellsWhatHappened() {
    start({u"--cameras"_s, u"2"_s});
    QCOMPARE(control("unplug 2"), QByteArray("ok"));
    // The probe may still see the camera that has just gone. Each success counts as a transfer.
    QVERIFY(QTest::qWaitFor([&] { return probe("battery") == "85"; }, PATIENCE_MS));
    const QByteArray expected =
        "ok camera 1: device 2, open 0, transfers 2, commands 1; "
        "camera 2: unplugged, open 0, transfers 0, commands 0";
    TRY_COMPARE(control("status"), expected);
}

void CameraSimulatorTest::severalClientsAreServed() {
    start();
    QLocalSocket second;
    second.connectToServer(path(u"c"_s));
    QVERIFY(second.waitForConnected(PATIENCE_MS));
    second.write("set battery 3\nget battery\n");
    TRY_COMPARE(second.bytesAvailable(), 8);
    QCOMPARE(second.readAll(), QByteArray("ok\nok 3\n"));
    QCOMPARE(control("get battery"), QByteArray("ok 3"));
}

void CameraSimulatorTest::lineWithoutEndIsAnswered() {
    start();
    m_control->write("get battery");
    QVERIFY(m_control->waitForBytesWritten(PATIENCE_MS));
    QCOMPARE(::shutdown(static_cast<int>(m_control->socketDescriptor()), SHUT_WR), 0);
    TRY_VERIFY(m_control->canReadLine());
    QCOMPARE(m_control->readLine(), QByteArray("ok 85\n"));
}

void CameraSimulatorTest::endlessLineIsRefused() {
    start();
    m_control->write(QByteArray(10000, 'x'));
    TRY_VERIFY(m_control->canReadLine());
    QCOMPARE(m_control->readLine(), QByteArray("error: the line is too long\n"));
    TRY_COMPARE(m_control->state(), QLocalSocket::UnconnectedState);
}

void CameraSimulatorTest::scriptRunsInOrderAndReports() {
    QFile script(path(u"s"_s));
    QVERIFY(script.open(QIODevice::WriteOnly));
    script.write("# a comment\n\nset battery 9\nwait 60\nget battery\nwait soon\nunplug\n");
    script.close();
    QElapsedTimer timer;
    timer.start();
    m_process->start(program(),
                     {u"--script"_s, script.fileName(), u"--"_s, QStringLiteral(PROBE_PROGRAM)});
    TRY_COMPARE(probe("count"), QByteArray("0"));
    QVERIFY(timer.elapsed() >= 60);
    m_process->closeWriteChannel();
    QVERIFY(m_process->waitForFinished(PATIENCE_MS));
    const QByteArray where = script.fileName().toLatin1();
    QCOMPARE(m_process->readAllStandardError(),
             where + ":3: ok\n" + where + ":4: ok\n" + where + ":5: ok 9\n" + where +
                 ":6: error: no number of milliseconds: \"soon\"\n" + where + ":7: ok\n");
}

void CameraSimulatorTest::typedLinesAreAnsweredOnTheTerminal() {
    m_process->start(program(), {u"--interactive"_s, u"--"_s, u"sleep"_s, u"60"_s});
    QCOMPARE(probe("get battery"), QByteArray("ok 85"));
    QCOMPARE(probe("dance"), QByteArray("error: no command \"dance\", try \"help\""));
    m_process->closeWriteChannel();
    m_process->terminate();
    QVERIFY(m_process->waitForFinished(PATIENCE_MS));
    QCOMPARE(m_process->exitCode(), 128 + SIGTERM);
}

void CameraSimulatorTest::leftOverSocketIsReplacedAndOtherFilesAreKept() {
    const QString file = path(u"file"_s);
    QVERIFY(QFile(file).open(QIODevice::WriteOnly));
    QCOMPARE(runSimulator({u"--control"_s, file, u"--"_s, u"true"_s}).exitCode, 2);
    QVERIFY(QFile::exists(file));

    start();
    QCOMPARE(runSimulator({u"--control"_s, path(u"c"_s), u"--"_s, u"true"_s}).exitCode, 2);
    QCOMPARE(control("get battery"), QByteArray("ok 85"));
    m_process->kill();
    QVERIFY(m_process->waitForFinished(PATIENCE_MS));
    QVERIFY(QFile::exists(path(u"c"_s)));
    m_control = std::make_unique<QLocalSocket>();
    start();
    QCOMPARE(control("get battery"), QByteArray("ok 85"));
}

const TestSubject registered = subjectWithoutScreen<CameraSimulatorTest>();
#include "CameraSimulatorTest.moc"
