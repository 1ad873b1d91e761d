// SPDX-License-Identifier: MIT
#include "tests/simulator/SimulatorRun.h"
#include "tests/support/TestSubject.h"

#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

/// The user's end of a terminal that programs can be started in.
class Terminal {
public:
    Terminal() : m_file(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        ::grantpt(m_file);
        ::unlockpt(m_file);
        m_name = ::ptsname(m_file);
    }
    ~Terminal() { ::close(m_file); }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    bool type(const QByteArray& keys) const {
        return ::write(m_file, keys.constData(), static_cast<std::size_t>(keys.size())) ==
               keys.size();
    }

    /// From its start on, @p process has the terminal as its input, alone, and with @p shows as its
    /// output too.
    void lendTo(QProcess& process, bool shows = false) const {
        process.setChildProcessModifier([name = m_name, shows] {
            ::setsid();
            const int terminal = ::open(name.constData(), O_RDWR);
            ::dup2(terminal, STDIN_FILENO);
            if (shows) {
                ::dup2(terminal, STDOUT_FILENO);
            }
        });
    }

    /// What has been shown since the last call.
    QByteArray shown() const {
        QByteArray bytes;
        pollfd waiting{m_file, POLLIN, 0};
        while (::poll(&waiting, 1, 0) > 0 && (waiting.revents & POLLIN) != 0) {
            std::array<char, 4096> room{};
            bytes.append(room.data(),
                         std::max<ssize_t>(::read(m_file, room.data(), room.size()), 0));
        }
        return bytes;
    }

private:
    int m_file;
    QByteArray m_name;
};

}  // namespace

/// The program as a job of a shell.
class SimulatorTerminalTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void somebodyAtATerminalIsGreeted();
    void aJobInTheBackgroundGoesOnAndReadsInTheForeground();
};

void SimulatorTerminalTest::somebodyAtATerminalIsGreeted() {
    const Terminal terminal;
    QProcess process;
    terminal.lendTo(process, true);
    process.start(program(), {u"--interactive"_s, u"--"_s, u"sleep"_s, u"60"_s});
    QByteArray shown;
    const auto shows = [&](const char* text) {
        shown += terminal.shown();
        return shown.contains(text);
    };
    TRY_VERIFY(shows("\"help\" lists all, \"quit\" ends."));
    QVERIFY(terminal.type("quit\n"));
    QVERIFY(process.waitForFinished(PATIENCE_MS));
    TRY_VERIFY(shows("ok\r\n"));
}

void SimulatorTerminalTest::aJobInTheBackgroundGoesOnAndReadsInTheForeground() {
    const QTemporaryDir folder;
    const QString socket = folder.filePath(u"c"_s);
    const QString sign = folder.filePath(u"foreground"_s);
    const Terminal terminal;
    QProcess process;
    terminal.lendTo(process);
    process.start(u"sh"_s, {u"-mc"_s,
                            u"\"$0\" --interactive --control \"$1\" -- sleep 60 &\n"
                            "until [ -e \"$2\" ]; do sleep 0.05; done\n"
                            "fg >/dev/null"_s,
                            program(), socket, sign});
    QLocalSocket control;
    const auto connects = [&] {
        if (control.state() == QLocalSocket::UnconnectedState) {
            control.connectToServer(socket);
        }
        return control.state() == QLocalSocket::ConnectedState;
    };
    TRY_VERIFY(connects());

    QVERIFY(terminal.type("get battery\n"));
    // By the second answer the program has seen what was typed.
    for (const QByteArray& charge : {QByteArray("11"), QByteArray("22")}) {
        control.write("set battery " + charge + '\n');
        TRY_VERIFY(control.canReadLine());
        QCOMPARE(control.readLine(), QByteArray("ok\n"));
    }
    QCOMPARE(process.readAllStandardOutput(), QByteArray());

    QVERIFY(QFile(sign).open(QIODevice::WriteOnly));
    TRY_VERIFY(process.canReadLine());
    QCOMPARE(process.readLine(), QByteArray("ok 22\n"));
    QVERIFY(terminal.type("\x03"));  // Ctrl+C
    QVERIFY(process.waitForFinished(PATIENCE_MS));
}

const TestSubject registered = subjectWithoutScreen<SimulatorTerminalTest>();
#include "SimulatorTerminalTest.moc"
