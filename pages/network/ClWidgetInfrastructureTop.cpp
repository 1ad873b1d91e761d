// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureTop.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/common/WifiCodes.h"
#include "pages/network/ClNetworkText.h"
#include "pages/network/InfrastructureParts.h"
#include "pages/network/NetworkState.h"
#include "ui/ClButtonApInfo.h"

#include <QCheckBox>
#include <QLabel>

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::array READS{
    USB_REQ_NUBO_CMD_GET_WIFI_INFO,
    USB_REQ_NUBO_CMD_GET_INFRA_SSID,
    USB_REQ_NUBO_CMD_GET_INFRA_KEY,
};

constexpr int NO_ENCRYPTION = -1;

constexpr QPoint USE_INFRA_PLACE{27, 28};
constexpr QPoint SELECTED_CAPTION_PLACE{27, 72};
constexpr QPoint SELECTED_PLACE{17, 97};
constexpr int BUTTONS_Y = 154;

}  // namespace

ClWidgetInfrastructureTop::ClWidgetInfrastructureTop(QWidget* parent)
    : ClWidgetBase(parent),
      m_useInfra(new QCheckBox(
          ClNetworkText::tr("Connect %1 on startup").arg(ClNetworkText::tr("Infrastructure")),
          this)),
      m_selected(new ClButtonApInfo(QString(), 0, 0, this)) {
    m_useInfra->move(USE_INFRA_PLACE);
    m_selected->move(SELECTED_PLACE);
    // Names the button while it shows no access point.
    addLabel(ClNetworkText::tr("AP of selecting"), SELECTED_CAPTION_PLACE, this)
        ->setBuddy(m_selected);
    const QList<QPushButton*> buttons = addButtonBar(
        {ClNetworkText::tr("AP search and setting"), ClNetworkText::tr("AP manual setting")},
        BUTTONS_Y, this);
    m_search = buttons[0];
    m_manual = buttons[1];
    const std::initializer_list<const QAbstractButton*> clickable{m_useInfra, m_search, m_manual,
                                                                  m_selected};
    for (const QAbstractButton* button : clickable) {
        connect(button, &QAbstractButton::clicked, this, &ClWidgetInfrastructureTop::slotClicked);
    }
}

void ClWidgetInfrastructureTop::showInit(bool isPolling) {
    if (isPolling && !m_awaitedRead.isNull()) {
        return;
    }
    if (!isPolling && isVisible()) {
        Q_EMIT sigStartPolling();
    }
    sendRead(USB_REQ_NUBO_CMD_GET_INFRA_SSID);
}

void ClWidgetInfrastructureTop::setUseInfra(bool isUsed) {
    m_useInfra->setChecked(isUsed && g_bIsWifiON);
}

void ClWidgetInfrastructureTop::slotClicked() {
    const QObject* button = sender();
    if (button == m_useInfra) {
        Q_EMIT sigUseInfra(m_useInfra->isChecked());
    } else if (button == m_search) {
        Q_EMIT sigChangePage(INFRASTRUCTURE_SEARCH);
    } else if (button == m_manual) {
        Q_EMIT sigChangePage(INFRASTRUCTURE_MANUAL);
    } else if (button == m_selected) {
        Q_EMIT sigChangePage(INFRASTRUCTURE_DHCP);
    }
}

void ClWidgetInfrastructureTop::slotReceiveCommand(const VX_CMD& clCommand) {
    const QUuid received = getCommand(clCommand);
    if (received == USB_RES_NUBO_CMD_GET_INFRA_SSID) {
        m_ssid = clCommand.value(Key::PARAM2).toString();
        // Of refreshes that overlap, the link is read once: it uses up the SSID.
        if (m_awaitedRead != USB_REQ_NUBO_CMD_GET_WIFI_INFO) {
            sendRead(USB_REQ_NUBO_CMD_GET_WIFI_INFO);
        }
    } else if (received == USB_RES_NUBO_CMD_GET_WIFI_INFO) {
        m_awaitedRead = {};
        showLink(clCommand);
    } else {
        showResult(stCommandResult(clCommand));
    }
}

void ClWidgetInfrastructureTop::sendRead(const QUuid& request) {
    m_awaitedRead = request;
    sendUsbCommand(request);
}

void ClWidgetInfrastructureTop::showLink(const VX_CMD& answer) {
    const bool isLinked = answer.value(Key::PARAM2).toUInt() != WIFI_NOT_LINKED &&
                          answer.value(Key::PARAM3).toString() == m_ssid;
    m_selected->setLinking(isLinked);
    m_selected->setSsid(std::exchange(m_ssid, {}));
    m_selected->setType(isLinked ? answer.value(Key::PARAM6).toInt() : NO_ENCRYPTION);
    m_selected->setRssi(isLinked ? answer.value(Key::PARAM8).toInt() : 0);
}

void ClWidgetInfrastructureTop::showResult(const stCommandResult& result) {
    if (result.command == m_awaitedRead) {
        m_awaitedRead = {};
    }
    if (!result.isFailure || std::ranges::find(READS, result.command) == READS.end()) {
        return;
    }
    Q_EMIT sigStopPolling();
    if (!std::exchange(g_bIsShowError, true)) {
        showErrorMsgBox(result.code);
    }
}
