// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClBulkPort.h"

#include <QByteArray>
#include <QList>
#include <QStringList>

#include <atomic>
#include <chrono>
#include <optional>

/// One line of a conversation with a camera that exists on paper only: a packet that the tool is
/// expected to write, or what the camera has to say when the tool reads. Packets are texts as
/// wireBytes() takes them.
struct stScriptRow {
    enum class Kind { Write, Read };

    Kind kind;
    QByteArray packet;
    std::optional<int> status;  ///< what write() returns or read() stores; without it: success
    bool setsStop = false;
    bool isEndless = false;
    int delayMs = 0;

    /// The same row, setting the stop flag while it runs.
    [[nodiscard]] stScriptRow thenStop() const;
    /// The same row, taking its time by the port's clock.
    [[nodiscard]] stScriptRow after(int waitMs) const;
    /// The same row, again and again: a camera that never runs dry.
    [[nodiscard]] stScriptRow forEver(int paceMs) const;
};

using Script = QList<stScriptRow>;

/// The tool writes @p packet, all of it.
[[nodiscard]] stScriptRow writes(const QByteArray& packet);
/// The tool tries to write @p packet; the port returns @p status.
[[nodiscard]] stScriptRow writes(const QByteArray& packet, int status);
/// The tool reads @p packet.
[[nodiscard]] stScriptRow reads(const QByteArray& packet);
/// The tool reads in vain; the port stores @p status.
[[nodiscard]] stScriptRow fails(int status);
/// The tool reads a packet of no bytes.
[[nodiscard]] stScriptRow readsNothing();

/// A bulk port that plays a script and notes what was asked of it. The first packet written gives
/// the transaction id that `<id>` and `<other>` in the script stand for.
///
/// Whatever departs from the script becomes a complaint that shows both sides; from then on the
/// camera is gone, so that no loop runs on.
class ScriptedPort : public ClBulkPort {
public:
    struct stTransfer {
        stScriptRow::Kind kind;
        QByteArray bytes;
        int timeoutMs;
        unsigned char endpoint;
    };

    explicit ScriptedPort(const Script& script) : m_script(script) {}

    int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) override;
    QByteArray read(int timeoutMs, unsigned char endpoint, int* status) override;

    /// What departed from the script, rows that nobody asked for included; empty when all went
    /// well.
    [[nodiscard]] QString complaint() const;
    [[nodiscard]] const QList<stTransfer>& transfers() const { return m_transfers; }
    [[nodiscard]] QList<int> writeTimeouts() const { return timeouts(stScriptRow::Kind::Write); }
    [[nodiscard]] QList<int> readTimeouts() const { return timeouts(stScriptRow::Kind::Read); }
    /// What the rows have taken; for the transactions under test. A read that times out takes its
    /// time-out, any other row no time, unless it says so.
    [[nodiscard]] auto clock() const {
        return [this] { return m_now; };
    }
    [[nodiscard]] std::chrono::milliseconds elapsed() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(m_now.time_since_epoch());
    }
    /// The stop flag that rows set; for the transactions under test.
    [[nodiscard]] std::atomic<bool>& stop() { return m_stop; }

private:
    [[nodiscard]] QList<int> timeouts(stScriptRow::Kind kind) const;
    /// The row that is due, or nothing and a complaint when it is no row of @p kind.
    [[nodiscard]] std::optional<stScriptRow> nextRow(stScriptRow::Kind kind, const QString& asked);

    Script m_script;
    qsizetype m_next = 0;
    std::optional<quint16> m_id;
    QList<stTransfer> m_transfers;
    QStringList m_complaints;
    std::atomic<bool> m_stop = false;
    std::chrono::steady_clock::time_point m_now;
};
