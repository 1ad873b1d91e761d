// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClBulkPort.h"

#include <QByteArray>

#include <functional>

class ClUsbController;

/// The pipes of one camera for a program that says "done" only of what is done: a write that moves
/// fewer bytes than given is a failure. Large data goes out in pieces, each with a time-out of its
/// own; on the wire they are the same bytes.
class ClPiecewisePort : public ClBulkPort {
public:
    enum class Direction { Out, In };

    explicit ClPiecewisePort(ClUsbController& controller) : m_controller(controller) {}

    /// Is told of every transfer; none when null.
    void setTrace(std::function<void(Direction, const QByteArray&)> trace) {
        m_trace = std::move(trace);
    }
    /// Is told the bytes moved since it was set; none when null.
    void setProgress(std::function<void(qint64)> progress) {
        m_progress = std::move(progress);
        m_moved = 0;
    }

    /// @return the size of @p data, or a transport code.
    int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) override;
    QByteArray read(int timeoutMs, unsigned char endpoint, int* status) override;

private:
    [[nodiscard]] int writeFailure() const;
    void endPacket(int timeoutMs, unsigned char endpoint);
    void tell(Direction direction, const QByteArray& bytes);

    ClUsbController& m_controller;
    std::function<void(Direction, const QByteArray&)> m_trace;
    std::function<void(qint64)> m_progress;
    qint64 m_moved = 0;
};
