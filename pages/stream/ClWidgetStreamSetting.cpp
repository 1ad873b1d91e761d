// SPDX-License-Identifier: MIT
#include "pages/stream/ClWidgetStreamSetting.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/stream/StreamDialogs.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/ResultCodes.h"
#include "settings/SettingTable.h"
#include "ui/ClLabelSepalator.h"
#include "ui/ClMessageBox.h"

#include <QPushButton>

#include <algorithm>
#include <array>

namespace {

struct stExchanges {
    stSettingExchange size;
    stSettingExchange rate;
};

/// By dialog type.
constexpr std::array EXCHANGES{
    stExchanges{SettingExchange::RECORDING_SIZE, SettingExchange::RECORDING_RATE},
    stExchanges{SettingExchange::LIVE_SIZE, SettingExchange::LIVE_RATE},
};

const stExchanges& exchangesOf(ClWidgetStreamSetting::eDialogType type) {
    return EXCHANGES[static_cast<std::size_t>(type)];
}

constexpr int BUTTON_X = 143;

bool isWrite(const QUuid& command) {
    return std::ranges::any_of(EXCHANGES, [&command](const stExchanges& exchanges) {
        return command == exchanges.size.write || command == exchanges.rate.write;
    });
}

}  // namespace

ClWidgetStreamSetting::ClWidgetStreamSetting(QWidget* parent) : ClWidgetBase(parent) {
    addButton(tr("Rec"), 49, &ClWidgetStreamSetting::slotSetRec);
    (new ClLabelSepalator(this))->move(0, 110);
    addButton(tr("LiveView"), 164, &ClWidgetStreamSetting::slotSetStream);
    addReads(m_recReads, eDialogType::Rec);
    addReads(m_liveReads, eDialogType::Stream);
}

void ClWidgetStreamSetting::addReads(ClReadChain& reads, eDialogType type) {
    reads.add({exchangesOf(type).size,
               [this](const VX_CMD& answer) { m_imageSize = answer.value(Key::PARAM2).toSize(); }});
    reads.add({exchangesOf(type).rate, [this, type](const VX_CMD& answer) {
                   m_frameRate = answer.value(Key::PARAM2).toUInt();
                   showDialog(type);
               }});
}

void ClWidgetStreamSetting::addButton(const QString& use, int y,
                                      void (ClWidgetStreamSetting::*clicked)()) {
    auto* button = new QPushButton(tr("%1 setting").arg(use), this);
    button->setMinimumSize(WIDE_BUTTON_MINIMUM);
    button->move(BUTTON_X, y);
    connect(button, &QPushButton::clicked, this, clicked);
}

void ClWidgetStreamSetting::showInit(bool /*isPolling*/) {
    m_recReads.abandon();
    m_liveReads.abandon();
}

void ClWidgetStreamSetting::slotSetRec() {
    read(m_recReads, m_liveReads);
}

void ClWidgetStreamSetting::slotSetStream() {
    read(m_liveReads, m_recReads);
}

void ClWidgetStreamSetting::read(ClReadChain& wanted, ClReadChain& other) {
    if (!wanted.isUnderWay()) {
        other.abandon();
        wanted.start();
    }
}

void ClWidgetStreamSetting::slotReceiveCommand(const VX_CMD& clCommand) {
    // A result ends whichever of the two it is about.
    if (!m_recReads.take(clCommand) && !m_liveReads.take(clCommand)) {
        showResult(clCommand);
    }
}

void ClWidgetStreamSetting::showResult(const VX_CMD& message) {
    const stCommandResult result(message);
    if (!result.isFailure) {
        return;
    }
    const bool isRefusal = getCommand(message) == USB_NUBO_CMD_RESPONSE;
    if (isRefusal && result.command == SettingExchange::RECORDING_SIZE.write &&
        result.code == NUBO_CMD_ERROR_EXEC) {
        ClMessageBox::tell(this, tr("Set failed for recording"));
    } else if (m_recReads.asks(result.command) || m_liveReads.asks(result.command) ||
               isWrite(result.command)) {
        showErrorMsgBox(result.code);
    }
}

std::unique_ptr<ClDialogBase> ClWidgetStreamSetting::createDialog(eDialogType type) {
    if (type == eDialogType::Rec) {
        return std::make_unique<ClDialogRecSetting>(this);
    }
    return std::make_unique<ClDialogStreamSetting>(this);
}

void ClWidgetStreamSetting::showDialog(eDialogType type) {
    const std::unique_ptr<ClDialogBase> dialog = createDialog(type);
    dialog->setParam({m_imageSize, m_frameRate});
    if (ask(*dialog)) {
        const stExchanges& exchanges = exchangesOf(type);
        const QVariantList chosen = dialog->getParam();
        const QSize size = chosen.value(0).toSize();
        const unsigned int rate = chosen.value(1, m_frameRate).toUInt();
        if (size != m_imageSize) {
            sendUsbCommand(exchanges.size.write, {{Key::PARAM2, size}});
        }
        if (rate != m_frameRate) {
            sendUsbCommand(exchanges.rate.write, {{Key::PARAM2, rate}});
        }
    }
    m_imageSize = {};
    m_frameRate = 0;
}
