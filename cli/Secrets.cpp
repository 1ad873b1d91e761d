// SPDX-License-Identifier: MIT
#include "cli/Secrets.h"

#include "cli/ClConsole.h"
#include "cli/WholeFiles.h"

stFailure readSecret(const QString& path, ClConsole& console, QString& secret) {
    constexpr qint64 LARGEST = 64 * 1024;
    const QString what = QStringLiteral("a password or key");
    QByteArray bytes;
    const stFailure failure = path == QLatin1String("-") ? console.readInput(what, LARGEST, bytes)
                                                         : readWhole(path, what, LARGEST, bytes);
    secret = QString::fromUtf8(bytes);
    if (secret.endsWith(u'\n')) {
        secret.chop(1);
    }
    if (secret.endsWith(u'\r')) {
        secret.chop(1);
    }
    return failure;
}
