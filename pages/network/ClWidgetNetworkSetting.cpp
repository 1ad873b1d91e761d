// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetNetworkSetting.h"

#include "pages/common/CommandResult.h"
#include "pages/common/WifiCodes.h"
#include "pages/network/ClWidgetAdhoc.h"
#include "pages/network/ClWidgetInfrastructure.h"
#include "pages/network/ClWidgetInfrastructureTop.h"
#include "pages/network/NetworkParts.h"
#include "pages/network/NetworkState.h"
#include "settings/SettingTable.h"
#include "ui/Artwork.h"
#include "ui/ButtonKeys.h"
#include "ui/ClButtonNetworkTab.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QLabel>
#include <QStackedLayout>

#include <utility>

namespace {

constexpr QRect TAB_BAR{0, 3, 600, 36};
constexpr QPoint INFRASTRUCTURE_TAB_PLACE{114, 3};
constexpr QPoint ADHOC_TAB_PLACE{314, 3};
constexpr QRect TAB_AREA{0, 39, 600, 466};

}  // namespace

ClWidgetNetworkSetting::ClWidgetNetworkSetting(QWidget* parent)
    : ClWidgetBase(parent),
      m_infrastructure(new ClWidgetInfrastructure(this)),
      m_adhoc(new ClWidgetAdhoc(this)) {
    buildTabs();
    buildPages();
    slotChangeTab(INFRASTRUCTURE_TAB);
    // Showing the page starts it again; until then nobody needs the timer.
    stopPolling();
}

void ClWidgetNetworkSetting::buildTabs() {
    auto* bar = new QLabel(this);
    bar->setPixmap(artwork(QStringLiteral(":/img/bg_tab")));
    bar->setGeometry(TAB_BAR);

    m_tabs = new QButtonGroup(this);
    const auto addTab = [this](const QString& text, QPoint place, int index) {
        auto* tab = new ClButtonNetworkTab(text, this);
        tab->setCheckable(true);
        tab->move(place);
        m_tabs->addButton(tab, index);
        return tab;
    };
    auto* infrastructure =
        addTab(tr("Infrastructure"), INFRASTRUCTURE_TAB_PLACE, INFRASTRUCTURE_TAB);
    addTab(tr("Adhoc"), ADHOC_TAB_PLACE, ADHOC_TAB);
    infrastructure->setChecked(true);
    for (QAbstractButton* tab : m_tabs->buttons()) {
        addKeys(tab, {Qt::CTRL | Qt::Key_Tab}, eKeysWhile::Unchecked);
    }
    // The tabs are exclusive: one toggled() covers both.
    connect(infrastructure, &ClButtonNetworkTab::toggled, this,
            &ClWidgetNetworkSetting::slotClicked);
}

void ClWidgetNetworkSetting::buildPages() {
    auto* area = new QWidget(this);
    area->setGeometry(TAB_AREA);
    m_stack = new QStackedLayout(area);
    m_stack->addWidget(m_infrastructure);
    m_stack->addWidget(m_adhoc);

    connect(this, &ClWidgetNetworkSetting::sigChangeTab, m_infrastructure,
            &ClWidgetInfrastructure::slotChangeTab);
    connect(m_adhoc, &ClWidgetAdhoc::sigEndSetting, this, &ClWidgetNetworkSetting::slotChangeTab);
    connect(m_infrastructure, &ClWidgetInfrastructure::sigUseInfra, this,
            &ClWidgetNetworkSetting::slotChangeNetworkMode);
    connect(m_adhoc, &ClWidgetAdhoc::sigUseAdhoc, this,
            &ClWidgetNetworkSetting::slotChangeNetworkMode);
    const ClWidgetInfrastructureTop* top = m_infrastructure->top();
    connect(top, &ClWidgetInfrastructureTop::sigStopPolling, this,
            &ClWidgetNetworkSetting::slotStopPolling);
    connect(top, &ClWidgetInfrastructureTop::sigStartPolling, this,
            &ClWidgetNetworkSetting::slotStartPolling);
}

std::unique_ptr<QDialogButtonBox> ClWidgetNetworkSetting::createButtonBox(const QString& accept,
                                                                          const QString& reject) {
    return createPageButtonBox(accept, reject);
}

void ClWidgetNetworkSetting::slotClicked() {
    const int index = m_tabs->checkedId();
    slotChangeTab(index);
    Q_EMIT sigChangeTab(index);
}

void ClWidgetNetworkSetting::slotChangeTab(int index) {
    QAbstractButton* tab = m_tabs->button(index);
    if (tab == nullptr) {
        return;
    }
    if (!tab->isChecked()) {
        tab->setChecked(true);  // comes back here by slotClicked()
        return;
    }
    ClWidgetBase* page = m_infrastructure;
    if (index == ADHOC_TAB) {
        page = m_adhoc;
        stopPolling();
    } else {
        startPolling();
    }
    m_relay.connectTo(page);
    page->showInit(false);
    m_stack->setCurrentIndex(index);
}

void ClWidgetNetworkSetting::showInit(bool isPolling) {
    if (!isPolling) {
        // The result of a write has gone unseen when the page was left before it came.
        if (std::exchange(m_isModeUnconfirmed, false)) {
            g_ulWifiMode = WIFI_MODE_UNKNOWN;
        }
        m_relay.inner()->showInit(false);
        // On the ad-hoc tab, too: polling only reads there whether Wi-Fi is on, so that its box is
        // right when the camera has switched Wi-Fi off by itself. What is edited stays.
        startPolling();
    }
    readOnOff();
}

void ClWidgetNetworkSetting::readOnOff() {
    sendUsbCommand(SettingExchange::WIFI_ENABLED.request);
}

void ClWidgetNetworkSetting::startPolling() {
    g_bIsShowError = false;
    ClWidgetBase::startPolling();
}

void ClWidgetNetworkSetting::slotPollingFired() {
    if (!isPollable()) {
        return;
    }
    showInit(true);
    if (m_relay.inner() == m_infrastructure) {
        m_infrastructure->showInit(true);
    }
}

void ClWidgetNetworkSetting::slotStopPolling() {
    stopPolling();
}

void ClWidgetNetworkSetting::slotStartPolling() {
    startPolling();
}

void ClWidgetNetworkSetting::slotReceiveCommand(const VX_CMD& clCommand) {
    const QUuid received = getCommand(clCommand);
    const auto* sender = clCommand.value(Key::SENDER).value<QObject*>();
    if (received == SettingExchange::WIFI_ENABLED.answer) {
        g_bIsWifiON = clCommand.value(Key::PARAM2).toBool();
        m_isSwitchedOffUnread = false;
        showWifiOnOff(sender == this);
    } else if (received == SettingExchange::WIFI_MODE.answer) {
        g_ulWifiMode = clCommand.value(Key::PARAM2).toUInt();
        if (g_bIsWifiON) {
            showMode(g_ulWifiMode);
        }
    }
    if (sender != this) {
        Q_EMIT sigReceiveCommand(clCommand);
    }
    // Plain results name no sender; their command decides which page they are for.
    if (sender == this || sender == nullptr) {
        showResult(stCommandResult(clCommand));
    }
}

void ClWidgetNetworkSetting::showWifiOnOff(bool isSenderThis) {
    if (!g_bIsWifiON) {
        m_infrastructure->setUseInfra(false);
        m_adhoc->setUseAdhoc(false);
    } else if (g_ulWifiMode != WIFI_MODE_UNKNOWN) {
        showMode(g_ulWifiMode);
    } else if (isSenderThis) {
        sendUsbCommand(SettingExchange::WIFI_MODE.request);
    }
}

void ClWidgetNetworkSetting::showMode(quint32 mode) {
    if (mode == WIFI_MODE_INFRASTRUCTURE || mode == WIFI_MODE_ADHOC) {
        m_infrastructure->setUseInfra(mode == WIFI_MODE_INFRASTRUCTURE);
        m_adhoc->setUseAdhoc(mode == WIFI_MODE_ADHOC);
    }
}

void ClWidgetNetworkSetting::showResult(const stCommandResult& result) {
    const bool isOnOff = result.command == SettingExchange::WIFI_ENABLED.write;
    if (!isOnOff && result.command != SettingExchange::WIFI_MODE.write) {
        return;
    }
    if (!isOnOff) {
        m_isModeUnconfirmed = false;
    }
    if (result.isSuccess) {
        if (isOnOff) {
            readOnOff();
        }
        return;
    }
    // Only the camera knows its mode now: it is asked for as soon as Wi-Fi is read to be on, and
    // the boxes follow.
    g_ulWifiMode = WIFI_MODE_UNKNOWN;
    if (!result.isFailure) {
        return;
    }
    stopPolling();
    if (!std::exchange(g_bIsShowError, true)) {
        showErrorMsgBox(result.code);
    }
}

void ClWidgetNetworkSetting::slotChangeNetworkMode(bool isChecked) {
    quint32 wanted = WIFI_MODE_UNKNOWN;
    if (isChecked && sender() == m_infrastructure) {
        m_adhoc->setUseAdhoc(false);
        wanted = WIFI_MODE_INFRASTRUCTURE;
    } else if (isChecked && sender() == m_adhoc) {
        m_infrastructure->setUseInfra(false);
        wanted = WIFI_MODE_ADHOC;
    }
    const bool isOnWanted = wanted != WIFI_MODE_UNKNOWN;
    if (g_bIsWifiON == isOnWanted && g_ulWifiMode == wanted) {
        return;
    }
    if (!isOnWanted || !g_bIsWifiON || m_isSwitchedOffUnread) {
        m_isSwitchedOffUnread = !isOnWanted;
        sendUsbCommand(SettingExchange::WIFI_ENABLED.write, {{Key::PARAM2, isOnWanted}});
    }
    if (isOnWanted) {
        m_isModeUnconfirmed = true;
        sendUsbCommand(SettingExchange::WIFI_MODE.write, {{Key::PARAM2, wanted}});
    }
    g_ulWifiMode = wanted;
}
