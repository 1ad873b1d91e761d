// SPDX-License-Identifier: MIT
#include "pages/help/ClWidgetHelp.h"

#include "app/Tool.h"
#include "pages/common/CommandResult.h"
#include "pages/help/ClLabelValue.h"
#include "pages/help/ClWidgetLogo.h"
#include "settings/SettingTable.h"
#include "ui/ClLabelSepalator.h"

#include <QDateTime>

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

/// A value of the camera and the row that shows it.
struct stCameraRow {
    int y;
    const char* caption;
    stSettingExchange exchange;
    QString (*toText)(const QVariant&);
};

constexpr std::array CAMERA_ROWS{
    stCameraRow{195, QT_TRANSLATE_NOOP("ClWidgetHelp", "NuBo firmware version"),
                SettingExchange::FIRMWARE, asItStands},
    stCameraRow{322, QT_TRANSLATE_NOOP("ClWidgetHelp", "Serial number"), SettingExchange::SERIAL,
                asItStands},
    stCameraRow{352, QT_TRANSLATE_NOOP("ClWidgetHelp", "MAC address"), SettingExchange::MAC,
                asItStands},
    stCameraRow{382, QT_TRANSLATE_NOOP("ClWidgetHelp", "Create day"), SettingExchange::CREATED,
                asDay},
    stCameraRow{412, QT_TRANSLATE_NOOP("ClWidgetHelp", "Country"), SettingExchange::COUNTRY,
                asCountry},
};

}  // namespace

ClWidgetHelp::ClWidgetHelp(QWidget* parent) : ClWidgetBase(parent), m_logo(new ClWidgetLogo(this)) {
    addRow(TOOL_VERSION_Y, tr("NuBoSettingTool version"))->setValue(TOOL_VERSION);
    for (const stCameraRow& row : CAMERA_ROWS) {
        ClLabelValue* value = addRow(row.y, tr(row.caption));
        m_values.append(value);
        m_reads.add({row.exchange, [value, toText = row.toText](const VX_CMD& answer) {
                         value->setValue(toText(answer.value(Key::PARAM2)));
                     }});
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

void ClWidgetHelp::showEvent(QShowEvent* event) {
    ClWidgetBase::showEvent(event);
    // Only now: measuring the banner loads a font of its own, which start-up need not wait for.
    m_logo->adjustSize();
    m_logo->move((PAGE_WIDTH - m_logo->width()) / 2, LOGO_Y);
}

void ClWidgetHelp::showInit(bool /*isPolling*/) {
    for (ClLabelValue* value : std::as_const(m_values)) {
        value->setValue(QString());
    }
    // Hiding the page before moves its focus on to a value here, which nobody chose.
    if (QWidget* focused = focusWidget(); focused != nullptr) {
        focused->clearFocus();
    }
    m_reads.start();
}

void ClWidgetHelp::slotReceiveCommand(const VX_CMD& clCommand) {
    if (m_reads.take(clCommand)) {
        return;
    }
    const stCommandResult result(clCommand);
    if (result.isFailure && m_reads.asks(result.command)) {
        showErrorMsgBox(result.code);
    }
}

void ClWidgetHelp::slotUpdateOwn() {}

void ClWidgetHelp::slotUpdateNubo() {}

void ClWidgetHelp::slotShowLicense() {}
