// SPDX-License-Identifier: MIT
#include "pages/ClWidgetHelp.h"

#include "app/Tool.h"
#include "pages/ClLabelValue.h"
#include "pages/ClWidgetLogo.h"
#include "pages/CommandResult.h"
#include "protocol/CommandIdentifiers.h"
#include "ui/ClLabelSepalator.h"

#include <QDateTime>

#include <algorithm>
#include <array>

namespace {

constexpr int PAGE_WIDTH = 600;
constexpr int LOGO_Y = 37;
constexpr int CAPTION_X = 32;
constexpr int VALUE_X = 236;
constexpr int VALUE_WIDEST = PAGE_WIDTH - CAPTION_X - VALUE_X;
constexpr int SEPARATOR_Y = 291;

const QString TOOL_VERSION = QStringLiteral("01.00.020");
constexpr int TOOL_VERSION_Y = 100;

QString asItStands(const QVariant& value) {
    return value.toString();
}

QString asDay(const QVariant& value) {
    return value.toDateTime().date().toString(ClWidgetHelp::tr("yyyy/MM/dd"));
}

QString asCountry(const QVariant& value) {
    return TOOL::codeToName(value.toString());
}

/// A step of the chain and the row that shows its answer.
struct stRead {
    int y;
    const char* caption;
    QUuid request;
    QUuid answer;
    QString (*toText)(const QVariant&);
};

constexpr std::array READS{
    stRead{195, QT_TRANSLATE_NOOP("ClWidgetHelp", "NuBo firmware version"),
           USB_REQ_NUBO_CMD_GET_FWVERSION, USB_RES_NUBO_CMD_GET_FWVERSION, asItStands},
    stRead{322, QT_TRANSLATE_NOOP("ClWidgetHelp", "Serial number"), USB_REQ_NUBO_CMD_GET_SERIALNO,
           USB_RES_NUBO_CMD_GET_SERIALNO, asItStands},
    stRead{352, QT_TRANSLATE_NOOP("ClWidgetHelp", "MAC address"), USB_REQ_NUBO_CMD_GET_MACADDRESS,
           USB_RES_NUBO_CMD_GET_MACADDRESS, asItStands},
    stRead{382, QT_TRANSLATE_NOOP("ClWidgetHelp", "Create day"), USB_REQ_NUBO_CMD_GET_CREATEDAY,
           USB_RES_NUBO_CMD_GET_CREATEDAY, asDay},
    stRead{412, QT_TRANSLATE_NOOP("ClWidgetHelp", "Country"), USB_REQ_NUBO_CMD_GET_COUNTRY,
           USB_RES_NUBO_CMD_GET_COUNTRY, asCountry},
};

}  // namespace

ClWidgetHelp::ClWidgetHelp(QWidget* parent) : ClWidgetBase(parent) {
    auto* logo = new ClWidgetLogo(this);
    logo->adjustSize();
    logo->move((PAGE_WIDTH - logo->width()) / 2, LOGO_Y);

    addRow(TOOL_VERSION_Y, tr("NuBoSettingTool version"))->setValue(TOOL_VERSION);
    for (const stRead& read : READS) {
        m_values.append(addRow(read.y, tr(read.caption)));
    }
    (new ClLabelSepalator(this))->move(0, SEPARATOR_Y);
}

ClLabelValue* ClWidgetHelp::addRow(int y, const QString& caption) {
    auto* label = new QLabel(caption, this);
    label->move(CAPTION_X, y);
    auto* value = new ClLabelValue(VALUE_WIDEST, this);
    value->move(VALUE_X, y);
    value->setAccessibleDescription(caption);
    return value;
}

void ClWidgetHelp::showInit(bool /*isPolling*/) {
    for (ClLabelValue* value : std::as_const(m_values)) {
        value->setValue(QString());
    }
    // What the page before had in focus is handed on to a value, which nobody chose.
    if (QWidget* focused = focusWidget(); focused != nullptr) {
        focused->clearFocus();
    }
    sendUsbCommand(READS.front().request);
}

void ClWidgetHelp::slotReceiveCommand(const VX_CMD& clCommand) {
    const QUuid received = getCommand(clCommand);
    if (const auto* step = std::ranges::find(READS, received, &stRead::answer);
        step != READS.end()) {
        m_values[step - READS.begin()]->setValue(step->toText(clCommand.value(Key::PARAM2)));
        if (const auto* next = std::next(step); next != READS.end()) {
            sendUsbCommand(next->request);
        }
        return;
    }
    const stCommandResult result(clCommand);
    if (result.isFailure &&
        std::ranges::find(READS, result.command, &stRead::request) != READS.end()) {
        showErrorMsgBox(result.code);
    }
}

void ClWidgetHelp::slotUpdateOwn() {}

void ClWidgetHelp::slotUpdateNubo() {}

void ClWidgetHelp::slotShowLicense() {}
