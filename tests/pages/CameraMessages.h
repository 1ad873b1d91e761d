// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"

// The messages that pages receive, written out as the USB side sends them.

inline VX_CMD batteryAnswer(unsigned int charge) {
    return {{QStringLiteral("CMD"), USB_RES_NUBO_CMD_GET_BATTERY},
            {QStringLiteral("PARAM2"), 1U},
            {QStringLiteral("PARAM3"), charge}};
}

inline VX_CMD wifiAnswer(unsigned int state, int sensitivity, unsigned int channel) {
    return {{QStringLiteral("CMD"), USB_RES_NUBO_CMD_GET_WIFI_INFO},
            {QStringLiteral("PARAM2"), state},
            {QStringLiteral("PARAM3"), QStringLiteral("Harbour")},
            {QStringLiteral("PARAM4"), QStringLiteral("Harbour")},
            {QStringLiteral("PARAM5"), channel},
            {QStringLiteral("PARAM6"), 4U},
            {QStringLiteral("PARAM7"), 0U},
            // The signal travels as it stands in the packet, without a sign.
            {QStringLiteral("PARAM8"), static_cast<unsigned int>(sensitivity)}};
}

inline VX_CMD sdAnswer(quint64 total, quint64 used, unsigned int fileSystem) {
    return {{QStringLiteral("CMD"), USB_RES_NUBO_CMD_GET_SDINFO},
            {QStringLiteral("PARAM2"), total},
            {QStringLiteral("PARAM3"), used},
            {QStringLiteral("PARAM4"), fileSystem}};
}

/// The camera's answer @p command with its value, to the page @p sender.
inline VX_CMD valueAnswer(const QUuid& command, const QVariant& value, QObject* sender = nullptr) {
    return {{QStringLiteral("CMD"), command},
            {QStringLiteral("Sender"), QVariant::fromValue(sender)},
            {QStringLiteral("PARAM2"), value}};
}

/// The result @p code of @p command: @p kind is USB_NUBO_CMD_RESPONSE or USB_CMD_ERROR.
inline VX_CMD plainResult(const QUuid& kind, const QUuid& command, unsigned short code) {
    return {{QStringLiteral("CMD"), kind},
            {QStringLiteral("PARAM2"), command},
            {QStringLiteral("PARAM3"), QVariant::fromValue(code)}};
}
