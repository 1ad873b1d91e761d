// SPDX-License-Identifier: MIT
#include "protocol/ClNuboTransactions.h"

#include "protocol/ClBulkPort.h"
#include "protocol/DataPackets.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"
#include "protocol/TextPackets.h"

#include <algorithm>
#include <optional>

namespace {

constexpr unsigned char OWN_ENDPOINT = 0xFF;  // the port takes its own bulk endpoints
constexpr int WRITE_TIMEOUT_MS = 1000;
constexpr int READ_TIMEOUT_MS = 1000;
constexpr int SLOW_ANSWER_TIMEOUT_MS = 3000;  // Wi-Fi information and announcements of data
constexpr int READS_PER_PACKET = 3;
// No scan finds as many. A camera that announces billions must not hold the USB thread, nor fill
// the memory with them.
constexpr unsigned int MOST_ACCESSPOINTS = 1000;

// A port that could not even try reports a negative value. That is a failure of the transport; its
// low 16 bits would read as one of the camera's codes.
unsigned short transportResult(int status) {
    return status < 0 ? USB_ERROR_OTHER : static_cast<unsigned short>(status);
}

bool isCut(const QByteArray& packet, const ClNuboCommand& head) {
    constexpr qsizetype HEAD_LENGTH = 12;  // of what stands before the parameters
    return packet.size() < HEAD_LENGTH || packet.size() < qint64{head.length()};
}

}  // namespace

unsigned short ClNuboTransactions::command(ClNuboCommand& command, int timeoutMs) {
    unsigned short result = USB_ERROR_SUCCESS;
    return send(command.getData(), result) ? receiveAnswer(command, timeoutMs) : result;
}

unsigned short ClNuboTransactions::dataWrite(ClNuboCommand& command,
                                             const ClNuboCommandDataSend& data) {
    const QByteArray dataPacket = data.getData();
    if (dataPacket.isEmpty()) {
        return USB_ERROR_BAD_PARAM;
    }
    unsigned short result = USB_ERROR_SUCCESS;
    if (!send(command.getData(), result) || !send(dataPacket, result)) {
        return result;
    }
    return receiveAnswer(command, READ_TIMEOUT_MS);
}

unsigned short ClNuboTransactions::dataRead(ClNuboCommand& command,
                                            ClNuboCommandDataReceive& data) {
    if (const unsigned short result = this->command(command, SLOW_ANSWER_TIMEOUT_MS);
        result != USB_ERROR_SUCCESS) {
        return result;
    }
    data = ClNuboCommandDataReceive(command.id(), command.param(1));
    do {
        int status = USB_ERROR_OTHER;
        const QByteArray packet = m_port.read(READ_TIMEOUT_MS, OWN_ENDPOINT, &status);
        if (packet.isEmpty()) {
            return transportResult(status);
        }
        if (!data.addData(packet)) {
            return USB_ERROR_RECEIVE_DATA;
        }
    } while (!m_stop && data.isIncomplete());
    return USB_ERROR_SUCCESS;
}

unsigned short ClNuboTransactions::wifiInfo(stWifiInfo& info) {
    ClNuboCommandGetWifiInfo command;
    if (const unsigned short result = this->command(command, SLOW_ANSWER_TIMEOUT_MS);
        result != USB_ERROR_SUCCESS) {
        return result;
    }
    info.status = command.param(1);
    QByteArray texts;
    QByteArray values;
    for (QByteArray* packet : {&texts, &values}) {
        if (m_stop) {
            return USB_ERROR_SUCCESS;
        }
        const unsigned short result =
            receive(command.id(), READ_TIMEOUT_MS, CameraErrors::Skip, *packet);
        if (packet->isEmpty()) {
            return result;
        }
    }
    const ClNuboCommandWifiInfo1 first(texts);
    const ClNuboCommandWifiInfo2 second(values);
    info.linkedSsid = first.firstString();
    info.searchSsid = first.secondString();
    info.channel = second.param(2);
    info.encryption = second.param(3);
    info.reserved = static_cast<qint32>(second.param(4));
    info.signal = static_cast<qint32>(second.param(5));
    return USB_ERROR_SUCCESS;
}

unsigned short ClNuboTransactions::accesspointList(AccesspointList& list) {
    ClNuboCommandGetAccesspointList command;
    if (const unsigned short result = this->command(command, READ_TIMEOUT_MS);
        result != USB_ERROR_SUCCESS) {
        return result;
    }
    stAccesspointInfo accesspoint;
    const quint64 packetCount = quint64{2} * std::min(command.param(1), MOST_ACCESSPOINTS);
    for (quint64 k = 0; k < packetCount && !m_stop; ++k) {
        QByteArray packet;
        const unsigned short result =
            receive(command.id(), READ_TIMEOUT_MS, CameraErrors::Skip, packet);
        if (packet.isEmpty()) {
            return result;
        }
        const quint64 number = k / 2 + 1;
        if (k % 2 == 0) {
            if (const ClNuboCommandAccesspointInfo1 texts(packet); texts.param(1) == number) {
                accesspoint.ssid = texts.firstString();
                accesspoint.secondText = texts.secondString();
            }
        } else if (const ClNuboCommandAccesspointInfo2 values(packet); values.param(1) == number) {
            accesspoint.reserved1 = values.param(2);
            accesspoint.encryption = values.param(3);
            accesspoint.reserved2 = values.param(4);
            accesspoint.signal = values.param(5);
            list.append(accesspoint);
        }
    }
    return USB_ERROR_SUCCESS;
}

bool ClNuboTransactions::send(const QByteArray& packet, unsigned short& result) {
    if (packet.isEmpty()) {
        result = USB_ERROR_BAD_PARAM;
        return false;
    }
    const int written = m_port.write(packet, WRITE_TIMEOUT_MS, OWN_ENDPOINT);
    // A count of bytes can have the value of a transport code. If it is the packet's size, all of
    // the packet went out.
    if (written == packet.size()) {
        return true;
    }
    result = transportResult(written);
    // Only a value that fits into 16 bits can be a code; a larger one is a count.
    const bool isCode = written == result && isTransportError(result);
    return written > 0 && !isCode;
}

unsigned short ClNuboTransactions::receiveAnswer(ClNuboCommand& command, int timeoutMs) {
    QByteArray packet;
    const unsigned short result = receive(command.id(), timeoutMs, CameraErrors::Accept, packet);
    if (packet.isEmpty()) {
        return result;
    }
    command.setData(packet);
    return command.getError();
}

unsigned short ClNuboTransactions::receive(unsigned short id, int timeoutMs, CameraErrors errors,
                                           QByteArray& packet) {
    std::optional<std::chrono::steady_clock::time_point> patienceEnd;  // of foreign packets
    int silentReads = 0;
    int status = USB_ERROR_OTHER;
    while (silentReads < READS_PER_PACKET && !m_stop) {
        status = USB_ERROR_OTHER;
        packet = m_port.read(timeoutMs, OWN_ENDPOINT, &status);
        if (packet.isEmpty()) {
            if (status == USB_NO_DEVICE) {
                break;
            }
            ++silentReads;
            continue;
        }
        const ClNuboCommand head(packet);
        const bool isSkippedError = errors == CameraErrors::Skip && head.getError() != 0;
        if (head.id() == id && !isSkippedError) {
            if (m_cutAnswers == CutAnswers::Fail && isCut(packet, head)) {
                packet.clear();
                return USB_ERROR_RECEIVE_DATA;
            }
            return USB_ERROR_SUCCESS;
        }
        packet.clear();
        if (m_stop) {
            return USB_ERROR_SUCCESS;
        }
        const auto now = m_clock();
        if (!patienceEnd) {
            patienceEnd = now + std::chrono::milliseconds(READS_PER_PACKET * timeoutMs);
        } else if (now > *patienceEnd) {
            return USB_ERROR_TIMEOUT;
        }
        silentReads = 0;
        status = USB_ERROR_OTHER;
    }
    return transportResult(status);
}
