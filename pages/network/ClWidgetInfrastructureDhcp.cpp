// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureDhcp.h"

#include "pages/common/PageParts.h"
#include "pages/network/ClNetworkText.h"
#include "pages/network/NetworkParts.h"
#include "settings/SettingTable.h"
#include "ui/ClLabelSepalator.h"
#include "ui/Ipv4.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace {

constexpr QPoint DHCP_TITLE_PLACE{36, 41};
constexpr int DHCP_ROW_RIGHT = 438;
constexpr int DHCP_ROW_Y = 77;
constexpr int CAPTION_TO_ON = 104;
constexpr int ON_TO_OFF = 20;
constexpr QPoint SEPARATOR_PLACE{0, 117};
constexpr QPoint ADDRESS_TITLE_PLACE{36, 148};
constexpr int ADDRESS_Y = 190;
constexpr int SUBNETMASK_Y = 229;
constexpr int GATEWAY_Y = 267;
constexpr int BUTTONS_Y = 423;

}  // namespace

ClWidgetInfrastructureDhcp::ClWidgetInfrastructureDhcp(QWidget* parent)
    : ClWidgetAddressForm(parent) {
    addLabel(ClNetworkText::tr("Set ON when use DHCP server"), DHCP_TITLE_PLACE, this);
    buildDhcpRow();
    (new ClLabelSepalator(this))->move(SEPARATOR_PLACE);
    buildAddresses();
    addButtons(BUTTONS_Y);
}

void ClWidgetInfrastructureDhcp::buildDhcpRow() {
    auto* row = new QWidget(this);
    auto* caption = new QLabel(ClNetworkText::tr("DHCP"));
    const auto addChoice = [row, caption](const QString& text) {
        auto* button = new QRadioButton(text, row);
        button->setAccessibleName(caption->text() + u' ' + text);
        return button;
    };
    m_on = addChoice(ClNetworkText::tr("ON"));
    m_off = addChoice(ClNetworkText::tr("OFF"));
    m_off->setChecked(true);

    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(caption);
    layout->addSpacing(CAPTION_TO_ON);
    layout->addWidget(m_on);
    layout->addSpacing(ON_TO_OFF);
    layout->addWidget(m_off);
    moveEndTo(row, DHCP_ROW_RIGHT, DHCP_ROW_Y);

    addItem({SettingExchange::DHCP,
             [this](const QVariant& value) { (value.toBool() ? m_on : m_off)->setChecked(true); },
             [this] { return m_on->isChecked(); }});
}

void ClWidgetInfrastructureDhcp::buildAddresses() {
    auto* title = addLabel(ClNetworkText::tr("Set the IP Address, Subnetmask and Default Gateway"),
                           ADDRESS_TITLE_PLACE, this);
    connect(m_off, &QRadioButton::toggled, title, &QWidget::setEnabled);

    const auto addRow = [this](const QString& caption, int y) {
        const stAddressRow row = addAddressRow(caption, y);
        connect(m_off, &QRadioButton::toggled, row.caption, &QWidget::setEnabled);
        connect(m_off, &QRadioButton::toggled, row.edit, &QWidget::setEnabled);
        return row.edit;
    };
    m_address = addRow(ClNetworkText::tr("IP Address"), ADDRESS_Y);
    m_subnetmask = addRow(ClNetworkText::tr("Subnetmask"), SUBNETMASK_Y);
    m_gateway = addRow(ClNetworkText::tr("Default Gateway"), GATEWAY_Y);

    addAddress(SettingExchange::ADDRESS, m_address);
    addAddress(SettingExchange::NETMASK, m_subnetmask);
    addAddress(SettingExchange::GATEWAY, m_gateway);
}

void ClWidgetInfrastructureDhcp::showInit(bool /*isPolling*/) {
    reads().start();
}

bool ClWidgetInfrastructureDhcp::isValid() const {
    return validSubnetmask(m_subnetmask->text()) && validIpv4(m_address->text()) &&
           validIpv4(m_gateway->text());
}

void ClWidgetInfrastructureDhcp::leave() {
    Q_EMIT sigChangePage(INFRASTRUCTURE_TOP);
}
