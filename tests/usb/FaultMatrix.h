// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "tests/usb/ManagerBench.h"

#include <QTest>

#include <array>
#include <string_view>

/// One kind of transaction, and its transfers in order.
struct stKind {
    const char* name;
    QUuid request;
    /// W command, A answer, F packet that follows, D first packet of data, d more of it, w image,
    /// R raw read.
    std::string_view transfers;
    QByteArray success;
    qint64 answerMs;  ///< the time-out of one read of the answer
    QVariant argument = {};
};

/// The image makes one transfer, the audio three.
inline const std::array KINDS{
    stKind{"get", USB_REQ_NUBO_CMD_GET_LED, "WA", "USB_RES_NUBO_CMD_GET_LED", 1000},
    stKind{"set", USB_NUBO_CMD_SET_LED, "WA", "USB_NUBO_CMD_RESPONSE 0x0", 1000, true},
    stKind{"Wi-Fi", USB_REQ_NUBO_CMD_GET_WIFI_INFO, "WAFF", "USB_RES_NUBO_CMD_GET_WIFI_INFO", 3000},
    stKind{"scan", USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST, "WAFF",
           "USB_RES_NUBO_CMD_GET_ACCESSPOINT_LIST", 1000},
    stKind{"audio", USB_NUBO_CMD_REQ_AUDIO, "WADdd", "USB_CMD_RES_AUDIO", 3000},
    stKind{"image", USB_NUBO_CMD_EXEC_FWUPDATEDATA, "WwA", "USB_NUBO_CMD_RESPONSE 0x0", 1000,
           QByteArray(2000, 'i')},
    stKind{"raw", USB_CMD_SEND_DATA, "R", "USB_CMD_NOTIFY_RECEIVE_DATA", 1000},
};

/// A camera that all kinds of transactions can run on.
inline std::shared_ptr<SteadyCamera> makeMatrixCamera(std::uint32_t charge) {
    auto camera = std::make_shared<SteadyCamera>();
    nubo::simulator::CameraState state = camera->state();
    state.battery.charge = charge;
    state.accessPoints.resize(1);
    camera->setState(state);
    camera->setAudio(nubo::simulator::ByteVector(2100, 0xFF));
    return camera;
}

/// Sends the request of a kind.
inline void sendRequest(ManagerBench& bench, const stKind& kind, ClUsbController* controller) {
    VX_CMD message{{Key::CMD, kind.request},
                   {Key::PARAM1, QVariant::fromValue(static_cast<void*>(controller))}};
    if (kind.argument.isValid()) {
        message[Key::PARAM2] = kind.argument;
    }
    Q_EMIT bench.ui.sigSendCommand(message);
}

/// Names a transfer as "scan, F 3".
inline QByteArray transferName(const stKind& kind, unsigned transfer) {
    return QByteArray(kind.name) + ", " + kind.transfers[transfer - 1] + ' ' +
           QByteArray::number(transfer);
}
