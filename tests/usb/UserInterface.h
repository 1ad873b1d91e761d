// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"

#include <QElapsedTimer>
#include <QObject>

class ClUsbManager;

/// The main window's side of a USB manager: sends it requests, and keeps what it reports.
class UserInterface : public QObject {
    Q_OBJECT

public:
    struct stArrival {
        VX_CMD message;
        qint64 atMs;  ///< by now()
    };

    explicit UserInterface(ClUsbManager& manager);

    [[nodiscard]] qint64 now() const { return m_clock.elapsed(); }
    [[nodiscard]] const QList<stArrival>& arrivals() const { return m_arrivals; }
    void forgetArrivals() { m_arrivals.clear(); }

    /// The controllers that were announced, and those that were reported as gone, in order.
    [[nodiscard]] QList<ClUsbController*> opened() const;
    [[nodiscard]] QList<ClUsbController*> closed() const;
    /// All messages but these.
    [[nodiscard]] QList<VX_CMD> answers() const;

    [[nodiscard]] bool waitForOpened(qsizetype count) const;
    [[nodiscard]] bool waitForClosed(qsizetype count) const;

    void send(const QUuid& request, ClUsbController* camera);
    /// Sends a request and waits for the next answer; an empty message when none comes.
    [[nodiscard]] VX_CMD ask(const QUuid& request, ClUsbController* camera);
    [[nodiscard]] VX_CMD ask(const VX_CMD& request);

Q_SIGNALS:
    void sigSendCommand(VX_CMD command);
    void sigArrived();

private:
    [[nodiscard]] QList<ClUsbController*> controllersOf(const QUuid& command) const;

    QElapsedTimer m_clock;
    QList<stArrival> m_arrivals;
};

/// A plain result message in words, such as "USB_CMD_ERROR 0xef03", or the name of a value reply.
[[nodiscard]] QByteArray outcomeOf(const VX_CMD& answer);
