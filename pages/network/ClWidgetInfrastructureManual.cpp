// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureManual.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/network/ClDialogInputKey.h"
#include "pages/network/ClNetworkText.h"
#include "pages/network/NetworkParts.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>

namespace {

constexpr QPoint TITLE_PLACE{36, 41};
constexpr int ROW_RIGHT = 463;
constexpr int ROW_Y = 77;
constexpr int ROW_SPACING = 37;
constexpr int EDIT_WIDTH = 200;
constexpr int BUTTONS_Y = 423;

}  // namespace

ClWidgetInfrastructureManual::ClWidgetInfrastructureManual(QWidget* parent)
    : ClWidgetBase(parent),
      m_ssid(new QLineEdit) {
    addLabel(ClNetworkText::tr("Input SSID to connect AP"), TITLE_PLACE, this);
    buildSsidRow();
    m_buttonBox = addDecisionBox(BUTTONS_Y, this);
    for (const QAbstractButton* button : m_buttonBox->buttons()) {
        connect(button, &QAbstractButton::clicked, this,
                &ClWidgetInfrastructureManual::slotClicked);
    }
}

void ClWidgetInfrastructureManual::buildSsidRow() {
    m_ssid->setFixedWidth(EDIT_WIDTH);
    // The camera takes more characters than can be typed here.
    stSettingRange typed = setting("wifi.infrastructure.ssid").range;
    typed.characters = SettingCharacters::Visible;
    m_ssid->setValidator(
        new QRegularExpressionValidator(QRegularExpression(textPattern(typed)), m_ssid));
    auto* caption = new QLabel(ClNetworkText::tr("SSID"));
    caption->setBuddy(m_ssid);

    auto* row = new QWidget(this);
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(ROW_SPACING);
    layout->addWidget(caption);
    layout->addWidget(m_ssid);
    moveEndTo(row, ROW_RIGHT, ROW_Y);
}

void ClWidgetInfrastructureManual::slotClicked() {
    const auto role = m_buttonBox->buttonRole(qobject_cast<QAbstractButton*>(sender()));
    if (role == QDialogButtonBox::RejectRole) {
        Q_EMIT sigChangePage(INFRASTRUCTURE_TOP);
    } else if (role == QDialogButtonBox::AcceptRole) {
        decide();
    }
}

void ClWidgetInfrastructureManual::decide() {
    const QString ssid = m_ssid->text();
    if (ssid.isEmpty()) {
        return;
    }
    ClDialogInputKey dialog(this, false);
    if (!ask(dialog)) {
        return;
    }
    const QString key = dialog.getParam().value(0).toString();
    sendUsbCommand(SettingExchange::SSID.write, {{Key::PARAM2, ssid}});
    m_last = SettingExchange::SSID.write;
    if (!key.isEmpty()) {
        sendUsbCommand(SettingExchange::KEY.write, {{Key::PARAM2, key}});
        m_last = SettingExchange::KEY.write;
    }
}

void ClWidgetInfrastructureManual::slotReceiveCommand(const VX_CMD& clCommand) {
    const stCommandResult result(clCommand);
    if (result.command != SettingExchange::SSID.write &&
        result.command != SettingExchange::KEY.write) {
        return;
    }
    if (result.isFailure) {
        showErrorMsgBox(result.code);
    } else if (result.isSuccess && result.command == m_last) {
        Q_EMIT sigChangePage(INFRASTRUCTURE_TOP);
    }
}
