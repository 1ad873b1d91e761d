// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClBulkPort.h"
#include "tests/support/PortCamera.h"

#include <QObject>

#include <atomic>

namespace bench {

/// A camera that has succeeded with every command before the write has returned.
class ScriptedPort : public ClBulkPort {
public:
    int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) override;
    QByteArray read(int timeoutMs, unsigned char endpoint, int* status) override;

    [[nodiscard]] const std::atomic<bool>& stop() const { return m_stop; }

private:
    QByteArray m_answer;
    std::atomic<bool> m_stop = false;
};

/// The USB side with a scripted camera in place of libusb's, behind the USB manager's signals.
class ScriptedCamera : public QObject, public PortCamera<ScriptedPort> {
    Q_OBJECT

public:
    void sendMessage(const VX_CMD& message) override { Q_EMIT sigSendCommand(message); }

Q_SIGNALS:
    void sigSendCommand(const VX_CMD& clCommand);

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand);
};

}  // namespace bench
