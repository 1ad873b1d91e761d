// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>

#include <utility>

// What the user reads on every page when the camera refuses a command.

inline const QString UNKNOWN_ERROR = QStringLiteral("Exec failed, unknown error");
inline const QString TIMEOUT_ERROR = QStringLiteral("Timeout error, please reset");

/// The result codes of the camera's errors, and two that it has no error for.
inline const QList<std::pair<unsigned short, QString>> REFUSALS{
    {0xFFFF, UNKNOWN_ERROR},
    {0xFFFE, TIMEOUT_ERROR},
    {0xFFFD, UNKNOWN_ERROR},
    {0xFFFC, QStringLiteral("Command error, version up")},
    {0xFFFB, QStringLiteral("Parameter setting failed")},
    {0xFFFA, TIMEOUT_ERROR},
    {0xFFF9, UNKNOWN_ERROR},
    {0xFFF8, UNKNOWN_ERROR},
    {0xFFF7, UNKNOWN_ERROR},
    {0xFFF6, UNKNOWN_ERROR},
    {0xFFF5, UNKNOWN_ERROR},
    {0xEF06, UNKNOWN_ERROR},
    {0x0001, UNKNOWN_ERROR},
};
