// SPDX-License-Identifier: MIT
#include "cli/WholeFiles.h"

#include "cli/Interruption.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>

namespace {

stFailure failureOf(const QString& name, const QString& reason,
                    ExitCode exit = ExitCode::Computer) {
    return {exit,
            QStringLiteral("%1: %2").arg(name.isEmpty() ? QStringLiteral("\"\"") : name, reason),
            {}};
}

/// What errno says of @p name.
stFailure lastFailure(const QString& name) {
    const int error = errno;
    return error == EINTR ? failureOf(name, QStringLiteral("interrupted"), ExitCode::Interrupted)
                          : failureOf(name, QString::fromLocal8Bit(std::strerror(error)));
}

/// An open file, closed at the end.
class OpenFile {
public:
    /// Opening a pipe waits for its other end.
    OpenFile(const QString& path, int flags) {
        const QByteArray name = QFile::encodeName(path);
        do {
            m_descriptor = ::open(name.constData(), flags | O_CLOEXEC);
        } while (m_descriptor < 0 && errno == EINTR && !Interruption::isRequested());
    }
    ~OpenFile() {
        if (m_descriptor >= 0) {
            ::close(m_descriptor);
        }
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    [[nodiscard]] int descriptor() const { return m_descriptor; }

private:
    int m_descriptor = -1;
};

/// Whether there is something at @p path that a file must not take the place of.
bool isSpecial(const QString& path) {
    struct stat status {};
    return ::stat(QFile::encodeName(path).constData(), &status) == 0 && !S_ISREG(status.st_mode) &&
           !S_ISDIR(status.st_mode);
}

stFailure writeAside(const QString& path, const QByteArray& bytes, FileReaders readers) {
    QSaveFile file(path);
    bool isWritten = file.open(QIODevice::WriteOnly);
    if (isWritten && readers == FileReaders::OwnerAlone) {
        isWritten = file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    isWritten = isWritten && file.write(bytes) == bytes.size() && file.commit();
    return isWritten ? stFailure{} : failureOf(path, file.errorString());
}

}  // namespace

stFailure readWhole(const QString& path, const QString& what, qint64 most, QByteArray& bytes) {
    const OpenFile file(path, O_RDONLY);
    return file.isOpen() ? readWhole(file.descriptor(), path, what, most, bytes)
                         : lastFailure(path);
}

stFailure readWhole(int descriptor, const QString& name, const QString& what, qint64 most,
                    QByteArray& bytes) {
    constexpr qsizetype PIECE = 64 * 1024;
    bytes.clear();
    while (bytes.size() <= most) {
        if (!Interruption::waitForInput(descriptor)) {
            errno = EINTR;
            return lastFailure(name);
        }
        const qsizetype known = bytes.size();
        bytes.resize(known + PIECE);
        const ssize_t count = ::read(descriptor, bytes.data() + known, PIECE);
        bytes.resize(known + std::max<ssize_t>(count, 0));
        if (count == 0) {
            return {};
        }
        if (count < 0 && errno != EINTR && errno != EAGAIN) {
            return lastFailure(name);
        }
    }
    return failureOf(name, QStringLiteral("too large for ") + what, ExitCode::WrongUse);
}

stFailure writeWhole(const QString& path, const QByteArray& bytes, FileReaders readers) {
    if (path.isEmpty()) {
        errno = ENOENT;
        return lastFailure(path);
    }
    if (!isSpecial(path)) {
        return writeAside(path, bytes, readers);
    }
    const OpenFile file(path, O_WRONLY);
    return file.isOpen() && writeAll(file.descriptor(), bytes) ? stFailure{} : lastFailure(path);
}

bool writeAll(int descriptor, const QByteArray& bytes) {
    qsizetype written = 0;
    while (written < bytes.size()) {
        const qsizetype rest = bytes.size() - written;
        const ssize_t count =
            ::write(descriptor, bytes.constData() + written, static_cast<std::size_t>(rest));
        // Only a signal, or a lack of room, lets a write return with less.
        if (count < rest && (count >= 0 || errno == EINTR) && Interruption::isRequested()) {
            errno = EINTR;
            return false;
        }
        if (count < 0 && errno != EINTR) {
            return false;
        }
        written += std::max<ssize_t>(count, 0);
    }
    return true;
}
