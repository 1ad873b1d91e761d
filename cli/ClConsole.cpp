// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"

#include "cli/Interruption.h"
#include "cli/WholeFiles.h"

#include <QDeadlineTimer>

#include <algorithm>

#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {

ClConsole::Sink writerTo(int descriptor) {
    return [descriptor](const QByteArray& bytes) { return writeAll(descriptor, bytes); };
}

/// Keeps what is typed from being shown.
class NoEcho {
public:
    NoEcho() {
        m_isChanged = tcgetattr(STDIN_FILENO, &m_before) == 0;
        if (m_isChanged) {
            termios silent = m_before;
            silent.c_lflag &= ~static_cast<tcflag_t>(ECHO);
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &silent);
        }
    }
    ~NoEcho() {
        if (m_isChanged) {
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &m_before);
        }
    }
    NoEcho(const NoEcho&) = delete;
    NoEcho& operator=(const NoEcho&) = delete;

private:
    termios m_before{};
    bool m_isChanged = false;
};

/// A line of standard input, byte by byte: what is behind it is not this question's.
std::optional<QString> readLine() {
    QByteArray line;
    char byte = 0;
    while (true) {
        if (!Interruption::waitForInput(STDIN_FILENO) || ::read(STDIN_FILENO, &byte, 1) <= 0) {
            return std::nullopt;
        }
        if (byte == '\n') {
            return QString::fromLocal8Bit(line);
        }
        line.append(byte);
    }
}

}  // namespace

ClConsole::ClConsole() : ClConsole(writerTo(STDOUT_FILENO), writerTo(STDERR_FILENO)) {
    m_isOfProcess = true;
    m_isTerminal = ::isatty(STDERR_FILENO) != 0;
    m_isInteractive = m_isTerminal && ::isatty(STDIN_FILENO) != 0;
}

ClConsole::ClConsole(Sink out, Sink err) : m_out(std::move(out)), m_err(std::move(err)) {}

bool ClConsole::print(const QString& text) {
    return printBytes(text.toUtf8());
}

bool ClConsole::printBytes(const QByteArray& bytes) {
    const std::lock_guard lock(m_mutex);
    if (!m_hasFailed && !m_out(bytes)) {
        m_hasFailed = true;
    }
    return !m_hasFailed;
}

bool ClConsole::pause(int milliseconds) {
    constexpr qint64 LOOK_MS = 250;
    const QDeadlineTimer end(milliseconds);
    bool goesOn = true;
    do {
        lookWhetherHeard();
        goesOn = !m_hasFailed &&
                 Interruption::sleep(static_cast<int>(std::min(end.remainingTime(), LOOK_MS)));
    } while (goesOn && !end.hasExpired());
    return goesOn;
}

// A pipe that nobody reads any more shows without being written to.
void ClConsole::lookWhetherHeard() {
    pollfd results{STDOUT_FILENO, 0, 0};
    if (m_isOfProcess && ::poll(&results, 1, 0) > 0) {
        m_hasFailed = true;
    }
}

void ClConsole::writeLine(const QString& text) {
    const std::lock_guard lock(m_mutex);
    QByteArray line = m_hasProgress ? QByteArray("\r\x1b[K") : QByteArray();
    m_hasProgress = false;
    line += "nuboctl: " + text.toUtf8() + '\n';
    m_err(line);
}

void ClConsole::error(const QString& text) {
    writeLine(text);
}

void ClConsole::warn(const QString& text) {
    if (m_verbosity != Verbosity::Quiet) {
        writeLine(text);
    }
}

void ClConsole::note(const QString& text) {
    if (m_verbosity >= Verbosity::Verbose) {
        writeLine(text);
    }
}

void ClConsole::trace(const QString& text) {
    if (isTracing()) {
        writeLine(text);
    }
}

void ClConsole::showProgress(const QString& text) {
    if (m_isTerminal && m_verbosity != Verbosity::Quiet) {
        const std::lock_guard lock(m_mutex);
        m_hasProgress = true;
        m_err("\r" + text.toUtf8() + "\x1b[K");
    }
}

void ClConsole::endProgress() {
    const std::lock_guard lock(m_mutex);
    if (m_hasProgress) {
        m_hasProgress = false;
        m_err("\r\x1b[K");
    }
}

bool ClConsole::confirm(const QString& question) {
    const std::lock_guard asking(m_asking);
    if (Interruption::isRequested()) {
        return false;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_err(question.toUtf8() + " [y/N] ");
    }
    const QString answer = readLine().value_or(QString()).trimmed().toLower();
    return answer == QLatin1String("y") || answer == QLatin1String("yes");
}

std::optional<QString> ClConsole::askSecret(const QString& prompt) {
    const NoEcho noEcho;
    m_err(prompt.toUtf8() + ": ");
    const std::optional<QString> line = readLine();
    m_err("\n");
    return line;
}

stFailure ClConsole::readInput(const QString& what, qint64 most, QByteArray& bytes) {
    if (m_isInputTaken) {
        return {ExitCode::WrongUse, QStringLiteral("standard input (-) can be read only once"), {}};
    }
    m_isInputTaken = true;
    return readWhole(STDIN_FILENO, QStringLiteral("standard input"), what, most, bytes);
}
