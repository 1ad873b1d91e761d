// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ExitCode.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <functional>
#include <mutex>
#include <optional>

/// Where a run is heard: results on standard output, all else on standard error. Any thread; what
/// one call writes stays together.
class ClConsole {
public:
    /// Takes bytes in; false when they cannot be written.
    using Sink = std::function<bool(const QByteArray&)>;

    enum class Verbosity { Quiet, Normal, Verbose, Trace };

    /// The console of this process.
    ClConsole();
    /// One that writes to @p out and @p err, and is no terminal.
    ClConsole(Sink out, Sink err);

    void setVerbosity(Verbosity verbosity) { m_verbosity = verbosity; }
    [[nodiscard]] bool isTracing() const { return m_verbosity == Verbosity::Trace; }

    /// Results, as they are. @return false when they could not be written; then all that follows is
    /// dropped.
    bool print(const QString& text);
    bool printBytes(const QByteArray& bytes);
    /// Whether a result could not be written.
    [[nodiscard]] bool hasFailed() const { return m_hasFailed; }

    /// Waits. @return false when the user wishes to end, or when nobody hears the results any more;
    /// then they have failed.
    [[nodiscard]] bool pause(int milliseconds);

    // Lines for people, behind the name of the program.
    void error(const QString& text);  ///< told in any case
    void warn(const QString& text);   ///< unless quiet
    void note(const QString& text);   ///< when verbose
    void trace(const QString& text);  ///< when tracing

    /// A line that the next one overwrites; only on a terminal, and not when quiet.
    void showProgress(const QString& text);
    void endProgress();

    /// Whether somebody can answer questions.
    [[nodiscard]] bool isInteractive() const { return m_isInteractive; }
    /// Asks on the terminal, one question at a time; only when interactive. A wish to end is no.
    [[nodiscard]] bool confirm(const QString& question);
    /// Asks on the terminal for a line that is not shown; nothing when there is none.
    [[nodiscard]] std::optional<QString> askSecret(const QString& prompt);
    /// Standard input to its end; it can be had once. Fails as readWhole() does.
    [[nodiscard]] stFailure readInput(const QString& what, qint64 most, QByteArray& bytes);

private:
    void writeLine(const QString& text);
    void lookWhetherHeard();

    Sink m_out;
    Sink m_err;
    std::mutex m_mutex;
    std::mutex m_asking;
    Verbosity m_verbosity = Verbosity::Normal;
    bool m_isOfProcess = false;
    bool m_isInputTaken = false;
    bool m_isInteractive = false;
    bool m_isTerminal = false;  ///< standard error is one
    bool m_hasProgress = false;
    std::atomic<bool> m_hasFailed = false;
};
