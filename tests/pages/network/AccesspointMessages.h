// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"
#include "protocol/NuboRecords.h"

/// The messages about access points that the network pages receive, written out as the USB side
/// sends them.

inline VX_CMD ssidAnswer(const QString& ssid) {
    return {{QStringLiteral("CMD"), USB_RES_NUBO_CMD_GET_INFRA_SSID},
            {QStringLiteral("PARAM2"), ssid}};
}

/// @p first and @p second are the two texts of the answer.
inline VX_CMD linkAnswer(unsigned int state, const QString& first, const QString& second,
                         unsigned int encryption = 4, unsigned int signal = 72) {
    return {{QStringLiteral("CMD"), USB_RES_NUBO_CMD_GET_WIFI_INFO},
            {QStringLiteral("PARAM2"), state},
            {QStringLiteral("PARAM3"), first},
            {QStringLiteral("PARAM4"), second},
            {QStringLiteral("PARAM5"), 6U},
            {QStringLiteral("PARAM6"), encryption},
            {QStringLiteral("PARAM7"), 0U},
            {QStringLiteral("PARAM8"), signal}};
}

inline VX_CMD scanAnswer(const AccesspointList& accesspoints) {
    return {{QStringLiteral("CMD"), USB_RES_NUBO_CMD_GET_ACCESSPOINT_LIST},
            {QStringLiteral("PARAM2"), QVariant::fromValue(accesspoints)}};
}
