// SPDX-License-Identifier: MIT
#include "cli/Checks.h"

#include <array>

void Checks::setPort(const QString& port) {
    m_port = port;
    m_report.addLine({});
}

void Checks::add(Finding finding, const QString& check, const QString& what,
                 const QString& remedy) {
    constexpr std::array NAMES{"ok", "warning", "failure"};
    const auto name = QLatin1String(NAMES[static_cast<std::size_t>(finding)]);
    const QString line = QStringLiteral("%1  %2  %3").arg(name, -7).arg(check, -8).arg(what);
    m_report.addLine(remedy.isEmpty() ? line : line + QStringLiteral(": ") + remedy);
    m_told.append(QJsonObject{{QStringLiteral("check"), check},
                              {QStringLiteral("port"), textOrNull(m_port)},
                              {QStringLiteral("result"), name},
                              {QStringLiteral("message"), what},
                              {QStringLiteral("remedy"), textOrNull(remedy)}});
    m_warnings += finding == Finding::Warning ? 1 : 0;
    m_failures += finding == Finding::Failure ? 1 : 0;
    if (finding != Finding::Ok) {
        m_report.setAnswer(ExitCode::No);
    }
}

void Checks::finish() {
    m_report.addLine({});
    m_report.addLine(
        m_warnings + m_failures == 0
            ? QStringLiteral("nothing was found to be wrong")
            : QStringLiteral("warnings: %1, failures: %2").arg(m_warnings).arg(m_failures));
    m_report.addMember(QStringLiteral("checks"), m_told);
}
