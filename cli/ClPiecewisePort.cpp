// SPDX-License-Identifier: MIT
#include "cli/ClPiecewisePort.h"

#include "protocol/ResultCodes.h"
#include "usb/ClUsbController.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {

// A multiple of every packet size of USB: no piece but the last ends in a short packet.
constexpr qsizetype PIECE = 64 * 1024;

}  // namespace

int ClPiecewisePort::write(const QByteArray& data, int timeoutMs, unsigned char endpoint) {
    qsizetype written = 0;
    do {
        const qsizetype size = std::min(PIECE, data.size() - written);
        const auto piece = QByteArray::fromRawData(data.constData() + written, size);
        QElapsedTimer clock;
        clock.start();
        if (m_controller.write(piece, timeoutMs, endpoint) != size) {
            const int failure = failureOf(timeoutMs, clock.elapsed());
            // The whole size stands for success, even where it looks like a code.
            return failure == data.size() ? USB_ERROR_BUSY : failure;
        }
        tell(Direction::Out, piece);
        written += size;
    } while (written < data.size());
    return static_cast<int>(written);
}

QByteArray ClPiecewisePort::read(int timeoutMs, unsigned char endpoint, int* status) {
    QByteArray packet = m_controller.read(timeoutMs, endpoint, status);
    if (!packet.isEmpty()) {
        tell(Direction::In, packet);
    } else if (!m_controller.isOpened()) {
        *status = USB_NO_DEVICE;
    }
    return packet;
}

// The controller tells of a write only how far it came.
int ClPiecewisePort::failureOf(int timeoutMs, qint64 elapsedMs) const {
    if (!m_controller.isOpened()) {
        return USB_NO_DEVICE;
    }
    return elapsedMs >= timeoutMs ? USB_ERROR_TIMEOUT : USB_ERROR_OTHER;
}

void ClPiecewisePort::tell(Direction direction, const QByteArray& bytes) {
    m_moved += bytes.size();
    if (m_progress) {
        m_progress(m_moved);
    }
    if (m_trace) {
        m_trace(direction, bytes);
    }
}
