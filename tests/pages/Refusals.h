// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"

#include <QList>
#include <QString>
#include <QStringList>

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

/// Calls @p add for every plain result by which a read may end without a value: with its kind, its
/// code, and what the user reads.
template <class Add>
void addFailedReads(const Add& add) {
    for (const auto& [code, text] : REFUSALS) {
        add(USB_NUBO_CMD_RESPONSE, code, QStringList{text});
    }
    for (unsigned short code = 0xEF01; code <= 0xEF05; ++code) {
        add(USB_CMD_ERROR, code, QStringList{UNKNOWN_ERROR});
    }
    add(USB_CMD_ERROR, 0xEF00, QStringList());
    add(USB_NUBO_CMD_RESPONSE, 0, QStringList());
}
