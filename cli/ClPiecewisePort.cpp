// SPDX-License-Identifier: MIT
#include "cli/ClPiecewisePort.h"

#include "protocol/ResultCodes.h"
#include "usb/ClUsbController.h"

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
        if (const int moved = m_controller.write(piece, timeoutMs, endpoint); moved != size) {
            const int failure = writeFailure();
            if (written + moved > 0) {
                endPacket(timeoutMs, endpoint);
            }
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

// A camera that is left within a packet takes the next command for the rest of it: an empty write
// ends the packet.
void ClPiecewisePort::endPacket(int timeoutMs, unsigned char endpoint) {
    constexpr int ATTEMPTS = 3;
    for (int i = 0; i < ATTEMPTS && m_controller.isOpened(); ++i) {
        static_cast<void>(m_controller.write({}, timeoutMs, endpoint));
        if (m_controller.writeError() == USB_ERROR_SUCCESS) {
            return;
        }
    }
}

int ClPiecewisePort::writeFailure() const {
    if (!m_controller.isOpened()) {
        return USB_NO_DEVICE;
    }
    const unsigned short error = m_controller.writeError();
    return error == USB_ERROR_SUCCESS ? USB_ERROR_OTHER : error;
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
