// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Patience.h"

#include <QProcess>
#include <QStringList>

inline QString program() {
    return QStringLiteral(SIMULATOR_PROGRAM);
}

inline QStringList shell(const QString& line) {
    return {QStringLiteral("--"), QStringLiteral("sh"), QStringLiteral("-c"), line};
}

/// What a run of the simulator has left behind.
struct Run {
    int exitCode = -1;
    QByteArray output{};
    QByteArray errors{};
};

inline Run runSimulator(const QStringList& arguments) {
    QProcess process;
    process.start(program(), arguments);
    if (!process.waitForFinished(PATIENCE_MS)) {
        return {};
    }
    return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}
