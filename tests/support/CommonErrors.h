// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/Fault.h"

#include <QList>
#include <QMetaType>
#include <QString>

Q_DECLARE_METATYPE(nubo::simulator::Fault)

/// A way in which one command fails, leaving the camera on the bus, and what the user reads of it.
struct stCommonError {
    const char* name;
    nubo::simulator::Fault fault;
    QString text;
};

/// Each code that the camera refuses with, and the failures of the link.
inline const QList<stCommonError> COMMON_ERRORS = [] {
    using namespace nubo::simulator;
    const QString unknown = QStringLiteral("Exec failed, unknown error");
    const QString timeout = QStringLiteral("Timeout error, please reset");
    const auto refused = [](const char* name, std::uint32_t code, const QString& text) {
        return stCommonError{
            name,
            {.kind = FaultKind::CameraError, .argument = code, .unit = FaultUnit::Command},
            text};
    };
    // A read is tried three times.
    const auto link = [&unknown](const char* name, FaultKind kind) {
        return stCommonError{name, {.kind = kind, .count = 3}, unknown};
    };
    return QList<stCommonError>{
        refused("unknown error", 0xFFFF, unknown),
        refused("timed out", 0xFFFE, timeout),
        refused("wrong length", 0xFFFD, unknown),
        refused("unknown command", 0xFFFC, QStringLiteral("Command error, version up")),
        refused("wrong parameter", 0xFFFB, QStringLiteral("Parameter setting failed")),
        refused("not executed", 0xFFFA, timeout),
        refused("busy", 0xFFF9, unknown),
        refused("internal error", 0xFFF8, unknown),
        refused("card full", 0xFFF7, unknown),
        refused("no card", 0xFFF6, unknown),
        refused("battery low", 0xFFF5, unknown),
        link("stall", FaultKind::Stall),
        link("busy link", FaultKind::Busy),
    };
}();

/// The fault of @p error, to strike the command number @p step from now, counted from 0.
inline nubo::simulator::Fault atStep(const stCommonError& error, int step) {
    using namespace nubo::simulator;
    const auto number = static_cast<unsigned>(step) + 1;
    Fault fault = error.fault;
    // The second transfer of a command brings its answer.
    fault.nth = fault.unit == FaultUnit::Command ? number : 2 * number;
    return fault;
}
