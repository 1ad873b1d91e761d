// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureTop.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/common/WifiCodes.h"
#include "pages/network/ClNetworkText.h"
#include "pages/network/NetworkParts.h"
#include "pages/network/NetworkState.h"
#include "protocol/Answers.h"
#include "settings/SettingTable.h"
#include "ui/ClButtonApInfo.h"

#include <QCheckBox>
#include <QLabel>

#include <utility>

namespace {

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

    m_reads.add({SettingExchange::SSID,
                 [this](const VX_CMD& answer) { m_ssid = answer.value(Key::PARAM2).toString(); }});
    m_reads.add({SettingExchange::WIFI_INFO, [this](const VX_CMD& answer) { showLink(answer); }});
}

void ClWidgetInfrastructureTop::showInit(bool isPolling) {
    if (isPolling && m_reads.isUnderWay()) {
        return;
    }
    if (!isPolling && isVisible()) {
        Q_EMIT sigStartPolling();
    }
    m_reads.start();
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
    if (!m_reads.take(clCommand)) {
        showResult(stCommandResult(clCommand));
    }
}

void ClWidgetInfrastructureTop::showLink(const VX_CMD& answer) {
    const stWifiInfo info = wifiInfo(answer);
    const bool isLinked = info.status != WIFI_NOT_LINKED && info.linkedSsid == m_ssid;
    m_selected->setLinking(isLinked);
    m_selected->setSsid(std::exchange(m_ssid, {}));
    m_selected->setType(isLinked ? static_cast<int>(info.encryption) : NO_ENCRYPTION);
    m_selected->setRssi(isLinked ? info.signal : 0);
}

void ClWidgetInfrastructureTop::showResult(const stCommandResult& result) {
    const bool isOwn =
        m_reads.asks(result.command) || result.command == SettingExchange::KEY.request;
    if (!result.isFailure || !isOwn) {
        return;
    }
    Q_EMIT sigStopPolling();
    if (!std::exchange(g_bIsShowError, true)) {
        showErrorMsgBox(result.code);
    }
}
