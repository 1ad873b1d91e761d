// SPDX-License-Identifier: MIT
#include "pages/stream/ClWidgetStreamSetting.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/stream/ClDialogRecSetting.h"
#include "pages/stream/ClDialogStreamSetting.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/ResultCodes.h"
#include "ui/ClLabelSepalator.h"
#include "ui/ClMessageBox.h"

#include <QPushButton>

#include <algorithm>
#include <array>

namespace {

struct stWrites {
    QUuid size;
    QUuid rate;
};

// By dialog type.
constexpr std::array WRITES{
    stWrites{USB_NUBO_CMD_SET_REC_IMAGESIZE, USB_NUBO_CMD_SET_REC_FRAMERATE},
    stWrites{USB_NUBO_CMD_SET_LIVE_IMAGESIZE, USB_NUBO_CMD_SET_LIVE_FRAMERATE},
};

constexpr int BUTTON_X = 143;

bool isWrite(const QUuid& command) {
    return std::ranges::any_of(WRITES, [&command](const stWrites& writes) {
        return command == writes.size || command == writes.rate;
    });
}

}  // namespace

/// A step of a chain.
struct ClWidgetStreamSetting::stRead {
    QUuid request;
    QUuid answer;
    void (ClWidgetStreamSetting::*take)(const QVariant&);
    eDialogType use;
    QUuid next;  ///< null: the chain is complete
};

const ClWidgetStreamSetting::stRead ClWidgetStreamSetting::READS[] = {
    {USB_REQ_NUBO_CMD_GET_REC_IMAGESIZE, USB_RES_NUBO_CMD_GET_REC_IMAGESIZE,
     &ClWidgetStreamSetting::takeSize, eDialogType::Rec, USB_REQ_NUBO_CMD_GET_REC_FRAMERATE},
    {USB_REQ_NUBO_CMD_GET_REC_FRAMERATE, USB_RES_NUBO_CMD_GET_REC_FRAMERATE,
     &ClWidgetStreamSetting::takeRate, eDialogType::Rec, QUuid()},
    {USB_REQ_NUBO_CMD_GET_LIVE_IMAGESIZE, USB_RES_NUBO_CMD_GET_LIVE_IMAGESIZE,
     &ClWidgetStreamSetting::takeSize, eDialogType::Stream, USB_REQ_NUBO_CMD_GET_LIVE_FRAMERATE},
    {USB_REQ_NUBO_CMD_GET_LIVE_FRAMERATE, USB_RES_NUBO_CMD_GET_LIVE_FRAMERATE,
     &ClWidgetStreamSetting::takeRate, eDialogType::Stream, QUuid()},
};

bool ClWidgetStreamSetting::isRead(const QUuid& command) {
    return std::ranges::find(READS, command, &stRead::request) != std::end(READS);
}

ClWidgetStreamSetting::ClWidgetStreamSetting(QWidget* parent) : ClWidgetBase(parent) {
    addButton(tr("Rec"), 49, &ClWidgetStreamSetting::slotSetRec);
    (new ClLabelSepalator(this))->move(0, 110);
    addButton(tr("LiveView"), 164, &ClWidgetStreamSetting::slotSetStream);
}

void ClWidgetStreamSetting::addButton(const QString& use, int y,
                                      void (ClWidgetStreamSetting::*clicked)()) {
    auto* button = new QPushButton(tr("%1 setting").arg(use), this);
    button->setMinimumSize(WIDE_BUTTON_MINIMUM);
    button->move(BUTTON_X, y);
    connect(button, &QPushButton::clicked, this, clicked);
}

void ClWidgetStreamSetting::showInit(bool /*isPolling*/) {
    m_awaitedRead = {};
}

void ClWidgetStreamSetting::slotSetRec() {
    startChain(eDialogType::Rec);
}

void ClWidgetStreamSetting::slotSetStream() {
    startChain(eDialogType::Stream);
}

void ClWidgetStreamSetting::startChain(eDialogType type) {
    const auto underWay = std::ranges::find(READS, m_awaitedRead, &stRead::request);
    if (underWay == std::end(READS) || underWay->use != type) {
        sendRead(std::ranges::find(READS, type, &stRead::use)->request);
    }
}

void ClWidgetStreamSetting::sendRead(const QUuid& request) {
    m_awaitedRead = request;
    sendUsbCommand(request);
}

void ClWidgetStreamSetting::takeSize(const QVariant& size) {
    m_imageSize = size.toSize();
}

void ClWidgetStreamSetting::takeRate(const QVariant& rate) {
    m_frameRate = rate.toUInt();
}

void ClWidgetStreamSetting::slotReceiveCommand(const VX_CMD& clCommand) {
    const QUuid received = getCommand(clCommand);
    if (received == USB_NUBO_CMD_RESPONSE || received == USB_CMD_ERROR) {
        showResult(clCommand);
        return;
    }
    const auto step = std::ranges::find(READS, received, &stRead::answer);
    if (step == std::end(READS) || step->request != m_awaitedRead) {
        return;
    }
    m_awaitedRead = {};
    (this->*step->take)(clCommand.value(Key::PARAM2));
    if (step->next.isNull()) {
        showDialog(step->use);
    } else {
        sendRead(step->next);
    }
}

void ClWidgetStreamSetting::showResult(const VX_CMD& message) {
    const stCommandResult result(message);
    if (result.command == m_awaitedRead) {
        m_awaitedRead = {};
    }
    if (!result.isFailure) {
        return;
    }
    const bool isRefusal = getCommand(message) == USB_NUBO_CMD_RESPONSE;
    if (isRefusal && result.command == USB_NUBO_CMD_SET_REC_IMAGESIZE &&
        result.code == NUBO_CMD_ERROR_EXEC) {
        ClMessageBox::tell(this, tr("Set failed for recording"));
    } else if (isRead(result.command) || isWrite(result.command)) {
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
        const stWrites& writes = WRITES[static_cast<std::size_t>(type)];
        const QVariantList chosen = dialog->getParam();
        const QSize size = chosen.value(0).toSize();
        const unsigned int rate = chosen.value(1, m_frameRate).toUInt();
        if (size != m_imageSize) {
            sendUsbCommand(writes.size, {{Key::PARAM2, size}});
        }
        if (rate != m_frameRate) {
            sendUsbCommand(writes.rate, {{Key::PARAM2, rate}});
        }
    }
    m_imageSize = {};
    m_frameRate = 0;
}
