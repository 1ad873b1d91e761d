// SPDX-License-Identifier: MIT
#include "cli/Secrets.h"

#include <QFile>

QString lastLineEndRemoved(const QByteArray& bytes) {
    QString text = QString::fromUtf8(bytes);
    if (text.endsWith(u'\n')) {
        text.chop(1);
    }
    if (text.endsWith(u'\r')) {
        text.chop(1);
    }
    return text;
}

stFailure readSecretFile(const QString& path, QString& secret) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {ExitCode::Computer, QStringLiteral("%1: %2").arg(path, file.errorString()), {}};
    }
    secret = lastLineEndRemoved(file.readAll());
    return {};
}
