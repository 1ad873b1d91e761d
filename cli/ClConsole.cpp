// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"

#include <QFile>

#include <cerrno>
#include <iostream>
#include <string>

#include <termios.h>
#include <unistd.h>

namespace {

ClConsole::Sink writerTo(int descriptor) {
    return [descriptor](const QByteArray& bytes) {
        qsizetype written = 0;
        while (written < bytes.size()) {
            const ssize_t count = ::write(descriptor, bytes.constData() + written,
                                          static_cast<std::size_t>(bytes.size() - written));
            if (count < 0 && errno != EINTR) {
                return false;
            }
            written += count > 0 ? count : 0;
        }
        return true;
    };
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

/// A line of standard input, byte by byte, so that a signal can end the wait.
std::optional<QString> readLine() {
    QByteArray line;
    char byte = 0;
    while (true) {
        const ssize_t count = ::read(STDIN_FILENO, &byte, 1);
        if (count <= 0) {
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

QByteArray ClConsole::readInput() {
    QFile input;
    return input.open(STDIN_FILENO, QIODevice::ReadOnly) ? input.readAll() : QByteArray();
}
