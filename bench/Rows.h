// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

#include <optional>
#include <span>

namespace bench {

/// One row of the table: what is measured against what, and the goal.
struct stRow {
    const char* name;  ///< for the command line and the results file
    const char* what;
    const char* against;
    const char* unit;  ///< of the measured value and the goal; empty for a ratio
    /// The highest value that meets it; none where the row only explains the one above it.
    std::optional<double> goal;
    /// Takes the measurement: "value", its spread from "low" to "high", both sides' own medians as
    /// "subject" and "yardstick" in "unit", and what else there is to know. Throws CannotRun.
    QJsonObject (*measure)();
};

[[nodiscard]] std::span<const stRow> rows();

}  // namespace bench
