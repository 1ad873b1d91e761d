// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetAdhoc.h"

#include "pages/common/PageParts.h"
#include "pages/network/ClNetworkText.h"
#include "pages/network/NetworkParts.h"
#include "pages/network/NetworkState.h"
#include "settings/SettingTable.h"
#include "ui/ClLabelSepalator.h"
#include "ui/ClLabelSsid.h"
#include "ui/Ipv4.h"
#include "ui/WidgetLook.h"

#include <QCheckBox>
#include <QLineEdit>

namespace {

constexpr QPoint USE_PLACE{27, 27};
constexpr int NETWORK_CAPTION_RIGHT = 228;
constexpr QPoint SSID_PLACE{276, 65};
constexpr QPoint KEY_PLACE{276, 95};
constexpr int VALUE_WIDTH = 309;
constexpr QPoint SEPARATOR_PLACE{0, 142};
constexpr QPoint ADDRESS_TITLE_PLACE{36, 178};
constexpr int ADDRESS_Y = 211;
constexpr int SUBNETMASK_Y = 250;
constexpr int BUTTONS_Y = 424;

}  // namespace

ClWidgetAdhoc::ClWidgetAdhoc(QWidget* parent)
    : ClWidgetAddressForm(parent),
      m_useAdhoc(new QCheckBox(
          ClNetworkText::tr("Connect %1 on startup").arg(ClNetworkText::tr("Adhoc")), this)) {
    m_useAdhoc->move(USE_PLACE);
    connect(m_useAdhoc, &QCheckBox::clicked, this, &ClWidgetAdhoc::slotClicked);
    buildNetwork();
    (new ClLabelSepalator(this))->move(SEPARATOR_PLACE);
    buildAddresses();
    addButtons(BUTTONS_Y);
}

void ClWidgetAdhoc::buildNetwork() {
    const auto addRow = [this](const QString& caption, QPoint place,
                               const stSettingExchange& exchange) {
        addCaption(caption, NETWORK_CAPTION_RIGHT, place.y(), this);
        auto* value = new ClLabelSsid(this);
        setBold(value);
        value->move(place);
        addItem({exchange.toldOnly(),
                 [value](const QVariant& read) {
                     value->setText(read.toString());
                     value->fitInto(VALUE_WIDTH);
                 },
                 [value] { return value->text(); }});
        return value;
    };
    m_ssid = addRow(ClNetworkText::tr("SSID of adhoc"), SSID_PLACE, SettingExchange::ADHOC_SSID);
    m_key =
        addRow(ClNetworkText::tr("Encryption key of adhoc"), KEY_PLACE, SettingExchange::ADHOC_KEY);
}

void ClWidgetAdhoc::buildAddresses() {
    addLabel(ClNetworkText::tr("Set the IP Adderss and Subnetmask when connect by adhoc"),
             ADDRESS_TITLE_PLACE, this);
    m_address = addAddressRow(ClNetworkText::tr("IP Address"), ADDRESS_Y).edit;
    m_subnetmask = addAddressRow(ClNetworkText::tr("Subnetmask"), SUBNETMASK_Y).edit;
    addAddress(SettingExchange::ADHOC_ADDRESS, m_address);
    addAddress(SettingExchange::ADHOC_NETMASK, m_subnetmask);
}

void ClWidgetAdhoc::showInit(bool /*isPolling*/) {
    reads().startAt(m_ssid->text().isEmpty() ? SettingExchange::ADHOC_SSID.request
                                             : SettingExchange::ADHOC_ADDRESS.request);
}

void ClWidgetAdhoc::setUseAdhoc(bool isUsed) {
    m_useAdhoc->setChecked(isUsed && g_bIsWifiON);
}

void ClWidgetAdhoc::slotClicked() {
    if (sender() == m_useAdhoc) {
        Q_EMIT sigUseAdhoc(m_useAdhoc->isChecked());
    } else {
        ClWidgetAddressForm::slotClicked();
    }
}

bool ClWidgetAdhoc::isValid() const {
    return validSubnetmask(m_subnetmask->text()) && validIpv4(m_address->text());
}

void ClWidgetAdhoc::leave() {
    Q_EMIT sigEndSetting(INFRASTRUCTURE_TAB);
}
