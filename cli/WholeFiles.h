// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"

#include <QByteArray>

// Files as users name them: pipes and devices among them, and without end perhaps. A wish to end
// ends every wait. Any thread.

/// Reads the file at @p path to its end. @p what it is to be is told when it has more than @p most
/// bytes, which is wrong use; all else that fails is this computer's.
[[nodiscard]] stFailure readWhole(const QString& path, const QString& what, qint64 most,
                                  QByteArray& bytes);

/// The same of an open file; texts call it @p name.
[[nodiscard]] stFailure readWhole(int descriptor, const QString& name, const QString& what,
                                  qint64 most, QByteArray& bytes);

enum class FileReaders { All, OwnerAlone };

/// Writes aside and renames: the file is there whole, or not at all. What is no plain file, as a
/// pipe, is written as it stands.
[[nodiscard]] stFailure writeWhole(const QString& path, const QByteArray& bytes,
                                   FileReaders readers = FileReaders::All);

/// Writes all of @p bytes to an open file. False, with errno, when that fails; EINTR when a wish to
/// end has come while nobody took them.
[[nodiscard]] bool writeAll(int descriptor, const QByteArray& bytes);
