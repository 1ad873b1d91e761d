// SPDX-License-Identifier: MIT
#pragma once

#include "pages/network/ClWidgetNetworkSetting.h"
#include "tests/pages/PageBench.h"
#include "tests/support/NetworkUser.h"

// What the network page asks for, and its two writes, as PageBench::takeSent() writes them.
inline const QString GET_ONOFF = QStringLiteral("USB_RES_NUBO_CMD_GET_WIFI_ONOFF");
inline const QString GET_MODE = QStringLiteral("USB_REQ_NUBO_CMD_GET_WIFIMODE");
inline const QString SET_ON = QStringLiteral("USB_NUBO_CMD_SET_WIFI_ONOFF bool true");
inline const QString SET_OFF = QStringLiteral("USB_NUBO_CMD_SET_WIFI_ONOFF bool false");
inline const QString SET_MODE = QStringLiteral("USB_NUBO_CMD_SET_WIFI_MODE uint %1");

// What the pages in it ask for first.
inline const QString GET_INFRA_SSID = QStringLiteral("USB_REQ_NUBO_CMD_GET_INFRA_SSID");
inline const QString GET_WIFI_INFO = QStringLiteral("USB_REQ_NUBO_CMD_GET_WIFI_INFO");
inline const QString GET_DHCP = QStringLiteral("USB_REQ_NUBO_CMD_GET_INFRA_USE_DHCP");
inline const QString GET_ADHOC_SSID = QStringLiteral("USB_REQ_NUBO_CMD_GET_SSID");

/// The network page on its own.
class NetworkBench : public PageBench<ClWidgetNetworkSetting> {
public:
    NetworkBench() : PageBench({600, 505}), network(page) {}

    /// An answer to a request of the network page itself.
    void answerPage(const QUuid& command, const QVariant& value) {
        page.slotReceiveCommand(valueAnswer(command, value, &page));
    }
    /// What the camera answers when it is polled.
    void answerOnOff(bool isOn) { answerPage(USB_RES_NUBO_CMD_GET_WIFI_ONOFF, isOn); }
    void answerMode(unsigned int mode) { answerPage(USB_RES_NUBO_CMD_GET_WIFIMODE, mode); }

    NetworkUser network;
};
