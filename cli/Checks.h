// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ClReport.h"

enum class Finding { Ok, Warning, Failure };

/// What is found of a computer and its cameras, told check by check. A finding makes the answer of
/// the report No.
class Checks {
public:
    explicit Checks(ClReport& report) : m_report(report) {}

    /// From now on the checks are of the camera at @p port.
    void setPort(const QString& port);
    void add(Finding finding, const QString& check, const QString& what,
             const QString& remedy = {});
    /// Tells how many were found, and all to programs.
    void finish();

private:
    ClReport& m_report;
    QString m_port;
    QJsonArray m_told;
    int m_warnings = 0;
    int m_failures = 0;
};
