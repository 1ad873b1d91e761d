// SPDX-License-Identifier: MIT
#include "pages/state/ClWidgetCameraState.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/common/WifiCodes.h"
#include "pages/state/ClLabelWifiState.h"
#include "protocol/Answers.h"
#include "protocol/CommandIdentifiers.h"
#include "settings/SettingTable.h"
#include "ui/ClLabelSepalator.h"
#include "ui/ClMessageBox.h"
#include "ui/ClTextButton.h"
#include "ui/ClWidgetProgress.h"
#include "ui/Colours.h"
#include "ui/WidgetLook.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

struct stAction {
    const char* button;
    const char* confirmation;
    QUuid command;
};

constexpr std::array ACTIONS{
    stAction{QT_TRANSLATE_NOOP("ClWidgetCameraState", "SD card format"),
             QT_TRANSLATE_NOOP("ClWidgetCameraState", "All data delete on SD card"),
             USB_NUBO_CMD_FORMAT_SD},
    stAction{QT_TRANSLATE_NOOP("ClWidgetCameraState", "Initialize settings"),
             QT_TRANSLATE_NOOP("ClWidgetCameraState", "Initialize all settings"),
             USB_NUBO_CMD_INIT_SETTING},
    stAction{QT_TRANSLATE_NOOP("ClWidgetCameraState", "Reset NuBo"),
             QT_TRANSLATE_NOOP("ClWidgetCameraState", "Reset NuBo and restart"),
             USB_NUBO_CMD_RESTART},
};

/// As people write it, empty for one that does not exist.
QString fileSystemName(unsigned int fileSystem) {
    for (const stSettingChoice& choice : SettingChoices::FILE_SYSTEMS) {
        if (std::get<unsigned int>(choice.value) == fileSystem) {
            return QString::fromLatin1(choice.name).toUpper();
        }
    }
    return {};
}

constexpr QSize WIFI_PANEL_SIZE{600, 50};
constexpr int BUTTONS_RIGHT = 586;
constexpr int BUTTONS_Y = 419;

}  // namespace

ClWidgetCameraState::ClWidgetCameraState(QWidget* parent)
    : ClWidgetBase(parent),
      m_battery(new ClWidgetProgress(this)),
      m_wifiState(new ClLabelWifiState(this)) {
    addLabel(tr("Battery charge"), {35, 27}, this);
    m_battery->move(187, 25);
    m_battery->setMeaning(tr("Battery charge"));
    addLabel(tr("Wi-Fi state"), {35, 94}, this);
    m_wifiState->move(196, 89);
    buildWifiPanel();
    (new ClLabelSepalator(this))->move(0, 190);
    buildSdCard();
    buildButtons();

    m_reads.add({SettingExchange::BATTERY, [this](const VX_CMD& answer) { showBattery(answer); }});
    m_reads.add({SettingExchange::WIFI_INFO, [this](const VX_CMD& answer) { showWifi(answer); }});
    m_reads.add({SettingExchange::SD_CARD, [this](const VX_CMD& answer) { showSdCard(answer); }});
}

void ClWidgetCameraState::buildWifiPanel() {
    m_wifiPanel = new QWidget(this);
    m_wifiPanel->setFixedSize(WIFI_PANEL_SIZE);
    m_wifiPanel->move(0, 131);
    m_wifiPanel->hide();
    addCaption(tr("Receiver sensitivity"), 227, 0, m_wifiPanel);
    m_sensitivity = addValue({273, 0}, m_wifiPanel);
    setColour(m_sensitivity, QPalette::WindowText, GOOD_COLOUR);
    addCaption(tr("Channel"), 227, 30, m_wifiPanel);
    m_channel = addValue({273, 30}, m_wifiPanel);
}

void ClWidgetCameraState::buildSdCard() {
    addLabel(tr("SD card"), {35, 218}, this);
    addCaption(tr("Total capacity"), 228, 243, this);
    m_sdTotal = addValue({275, 243}, this);
    addCaption(tr("Free capacity"), 228, 274, this);
    m_sdFree = addValue({275, 274}, this);
    addCaption(tr("Category"), 228, 303, this);
    m_sdFileSystem = addValue({275, 303}, this);
}

void ClWidgetCameraState::buildButtons() {
    auto* row = new QWidget(this);
    auto* rows = new QVBoxLayout(row);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(11);
    auto* buttons = new QHBoxLayout;
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(10);
    for (const stAction& action : ACTIONS) {
        auto* button = new ClTextButton(tr(action.button), row);
        button->setMinimumSize(BUTTON_MINIMUM);
        connect(button, &QPushButton::clicked, this, &ClWidgetCameraState::slotClicked);
        buttons->addWidget(button);
        m_buttons.append(button);
    }
    rows->addLayout(buttons);
    moveEndTo(row, BUTTONS_RIGHT, BUTTONS_Y);
}

void ClWidgetCameraState::showInit(bool isPolling) {
    if (!isPolling) {
        m_wifiPanel->hide();
        setValue(m_sdTotal, tr("%1 Byte").arg(UNKNOWN_VALUE));
        setValue(m_sdFree, tr("%1 Byte").arg(UNKNOWN_VALUE));
        setValue(m_sdFileSystem, UNKNOWN_VALUE);
        startPolling();
    } else if (m_reads.isUnderWay()) {
        return;
    }
    m_reads.start();
}

void ClWidgetCameraState::slotReceiveCommand(const VX_CMD& clCommand) {
    if (m_reads.take(clCommand)) {
        return;
    }
    const stCommandResult result(clCommand);
    if (result.isFailure && getCommand(clCommand) == USB_CMD_ERROR) {
        stopPolling();
    }
    showResult(result);
}

void ClWidgetCameraState::showResult(const stCommandResult& result) {
    const QUuid& command = result.command;
    const bool isAction = std::ranges::find(ACTIONS, command, &stAction::command) != ACTIONS.end();
    if (result.isFailure && (m_reads.asks(command) || isAction)) {
        showErrorMsgBox(result.code);
    } else if (result.isSuccess && command == USB_NUBO_CMD_FORMAT_SD) {
        ClMessageBox::tell(this, tr("Completed %1").arg(tr("SD card format")));
    }
}

void ClWidgetCameraState::slotClicked() {
    const auto index = m_buttons.indexOf(qobject_cast<QPushButton*>(sender()));
    if (index < 0) {
        return;
    }
    const stAction& action = ACTIONS[static_cast<std::size_t>(index)];
    ClMessageBox box(this, tr(action.confirmation), QCoreApplication::applicationName(),
                     QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    // None of the three can be taken back.
    box.preferRejecting();
    if (ask(box)) {
        sendUsbCommand(action.command, {});
    }
}

void ClWidgetCameraState::showBattery(const VX_CMD& answer) {
    m_battery->setValue(battery(answer).charge);
}

void ClWidgetCameraState::showWifi(const VX_CMD& answer) {
    const stWifiInfo info = wifiInfo(answer);
    setWifiState(info.status, info.signal, info.channel);
}

void ClWidgetCameraState::showSdCard(const VX_CMD& answer) {
    const stSdInfo info = sdInfo(answer);
    setSdInfo(info.size, info.usedSize, info.fileSystem);
}

void ClWidgetCameraState::setWifiState(unsigned int state, int sensitivity, unsigned int channel) {
    m_wifiState->setState(state);
    const bool hasSignal = state != WIFI_NOT_LINKED && sensitivity >= 1;
    if (hasSignal) {
        setValue(m_sensitivity, QStringLiteral("%1dBm").arg(sensitivity));
        setValue(m_channel, QStringLiteral("%1ch").arg(channel));
    }
    m_wifiPanel->setVisible(hasSignal);
}

void ClWidgetCameraState::setSdInfo(unsigned long long total, unsigned long long used,
                                    int fileSystem) {
    constexpr unsigned long long KIB = 1024;
    setValue(m_sdFileSystem, fileSystemName(static_cast<unsigned int>(fileSystem)));
    setValue(m_sdTotal, tr("%1 Byte").arg(total * KIB));

    // A camera without a card reports a size of 0, and one that reports more used than there is has
    // nothing free: neither may end in a nonsense number.
    const unsigned long long free = total > used ? total - used : 0;
    const double usedPercent =
        total == 0 ? 0 : std::trunc(static_cast<double>(used) / static_cast<double>(total) * 100);
    setValue(m_sdFree,
             tr("%1 Byte").arg(free * KIB) + tr(" (%1% used)").arg(usedPercent, 0, 'f', 0));
}
