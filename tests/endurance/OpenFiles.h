// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QFile>
#include <QStringList>

#include <unistd.h>
#include <array>

/// What a process has open, sorted: paths, and of pipes and sockets their kind.
[[nodiscard]] inline QStringList openFiles(const QString& process = QStringLiteral("self")) {
    const QString directory = QStringLiteral("/proc/") + process + QStringLiteral("/fd");
    QStringList files;
    for (const QString& number : QDir(directory).entryList(QDir::Files | QDir::System)) {
        const QByteArray file = QFile::encodeName(directory + u'/' + number);
        std::array<char, 4096> target{};
        // The directory itself is open while it is read, and not any more by now.
        if (readlink(file.constData(), target.data(), target.size() - 1) > 0) {
            files.append(QFile::decodeName(target.data()).section(u'[', 0, 0));
        }
    }
    files.sort();
    return files;
}
