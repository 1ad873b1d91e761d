// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"

#include <array>

/// A request of the camera state page, the one that the tool opens with.
struct stRequest {
    const char* name;
    QUuid request;
    unsigned transfers;   ///< a write, and as many reads as the answer has packets
    const char* success;  ///< as outcomeOf() writes it
};

inline constexpr std::array REQUESTS{
    stRequest{"battery", USB_REQ_NUBO_CMD_GET_BATTERY, 2, "USB_RES_NUBO_CMD_GET_BATTERY"},
    stRequest{"SD card", USB_REQ_NUBO_CMD_GET_SDINFO, 2, "USB_RES_NUBO_CMD_GET_SDINFO"},
    stRequest{"Wi-Fi", USB_REQ_NUBO_CMD_GET_WIFI_INFO, 4, "USB_RES_NUBO_CMD_GET_WIFI_INFO"},
    stRequest{"restart", USB_NUBO_CMD_RESTART, 2, "USB_NUBO_CMD_RESPONSE 0x0"},
    stRequest{"format", USB_NUBO_CMD_FORMAT_SD, 2, "USB_NUBO_CMD_RESPONSE 0x0"},
    stRequest{"reset", USB_NUBO_CMD_INIT_SETTING, 2, "USB_NUBO_CMD_RESPONSE 0x0"},
};
