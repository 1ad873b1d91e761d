// SPDX-License-Identifier: MIT
#include "tests/support/ScriptedPort.h"

#include "tests/support/WireText.h"

#include <QtEndian>

namespace {

constexpr int DEVICE_GONE = 0xEF00;
constexpr int TIMED_OUT = 0xEF03;
constexpr int ID_OFFSET = 2;
constexpr int ID_END = 4;

quint16 idOf(const QByteArray& packet) {
    return packet.size() < ID_END ? quint16{0}
                                  : qFromLittleEndian<quint16>(packet.constData() + ID_OFFSET);
}

}  // namespace

stScriptRow stScriptRow::thenStop() const {
    stScriptRow row = *this;
    row.setsStop = true;
    return row;
}

stScriptRow stScriptRow::after(int waitMs) const {
    stScriptRow row = *this;
    row.delayMs = waitMs;
    return row;
}

stScriptRow stScriptRow::forEver(int paceMs) const {
    stScriptRow row = after(paceMs);
    row.isEndless = true;
    return row;
}

stScriptRow writes(const QByteArray& packet) {
    return {stScriptRow::Kind::Write, packet, std::nullopt};
}

stScriptRow writes(const QByteArray& packet, int status) {
    return {stScriptRow::Kind::Write, packet, status};
}

stScriptRow reads(const QByteArray& packet) {
    return {stScriptRow::Kind::Read, packet, std::nullopt};
}

stScriptRow fails(int status) {
    return {stScriptRow::Kind::Read, {}, status};
}

stScriptRow readsNothing() {
    return {stScriptRow::Kind::Read, {}, std::nullopt};
}

int ScriptedPort::write(const QByteArray& data, int timeoutMs, unsigned char endpoint) {
    m_transfers.append({stScriptRow::Kind::Write, data, timeoutMs, endpoint});
    if (!m_id) {
        m_id = idOf(data);
    }
    const QString asked = QStringLiteral("a write of ") + QString::fromLatin1(wireText(data));
    const auto row = nextRow(stScriptRow::Kind::Write, asked);
    if (!row) {
        return DEVICE_GONE;
    }
    if (const QByteArray expected = wireBytes(row->packet, *m_id); data != expected) {
        m_complaints.append(QStringLiteral("expected a write of %1\n     but came %2")
                                .arg(QString::fromLatin1(wireText(expected)), asked));
    }
    return row->status.value_or(static_cast<int>(data.size()));
}

QByteArray ScriptedPort::read(int timeoutMs, unsigned char endpoint, int* status) {
    const auto row = nextRow(stScriptRow::Kind::Read, QStringLiteral("a read"));
    const int code = row ? row->status.value_or(0) : DEVICE_GONE;
    const QByteArray bytes = row ? wireBytes(row->packet, m_id.value_or(0)) : QByteArray();
    if (code != 0) {
        *status = code;
    }
    if (code == TIMED_OUT && row->delayMs == 0) {
        m_now += std::chrono::milliseconds(timeoutMs);
    }
    m_transfers.append({stScriptRow::Kind::Read, bytes, timeoutMs, endpoint});
    return bytes;
}

std::optional<stScriptRow> ScriptedPort::nextRow(stScriptRow::Kind kind, const QString& asked) {
    if (m_next == m_script.size() || m_script[m_next].kind != kind) {
        const QString expected = m_next == m_script.size()         ? QStringLiteral("the end")
                                 : kind == stScriptRow::Kind::Read ? QStringLiteral("a write")
                                                                   : QStringLiteral("a read");
        m_complaints.append(QStringLiteral("expected %1 after %2 rows, but came %3")
                                .arg(expected)
                                .arg(m_next)
                                .arg(asked));
        m_next = m_script.size();
        return std::nullopt;
    }
    const stScriptRow row = m_script[m_next];
    if (row.setsStop) {
        m_stop = true;
    }
    m_now += std::chrono::milliseconds(row.delayMs);
    if (!row.isEndless) {
        ++m_next;
    }
    return row;
}

QString ScriptedPort::complaint() const {
    QStringList complaints = m_complaints;
    if (m_next < m_script.size() && !m_script[m_next].isEndless) {
        complaints.append(QStringLiteral("nobody asked for row %1 and what follows").arg(m_next));
    }
    return complaints.join(u'\n');
}

QList<int> ScriptedPort::timeouts(stScriptRow::Kind kind) const {
    QList<int> timeouts;
    for (const stTransfer& transfer : m_transfers) {
        if (transfer.kind == kind) {
            timeouts.append(transfer.timeoutMs);
        }
    }
    return timeouts;
}
