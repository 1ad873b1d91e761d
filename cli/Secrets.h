// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"

#include <QByteArray>
#include <QString>

/// @p bytes as text, without the line end that an editor leaves behind.
[[nodiscard]] QString lastLineEndRemoved(const QByteArray& bytes);

/// Reads a secret from the file at @p path.
[[nodiscard]] stFailure readSecretFile(const QString& path, QString& secret);
