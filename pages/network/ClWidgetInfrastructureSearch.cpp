// SPDX-License-Identifier: MIT
#include "pages/network/ClWidgetInfrastructureSearch.h"

#include "pages/common/CommandResult.h"
#include "pages/common/PageParts.h"
#include "pages/common/WifiCodes.h"
#include "pages/network/ClDialogInputKey.h"
#include "pages/network/ClNetworkText.h"
#include "pages/network/NetworkParts.h"
#include "protocol/Answers.h"
#include "settings/SettingTable.h"
#include "ui/ApInfoParts.h"
#include "ui/ButtonKeys.h"
#include "ui/ClWidgetApInfo.h"
#include "ui/ClWidgetApList.h"
#include "ui/WidgetLook.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>

#include <algorithm>
#include <array>

namespace {

constexpr stSettingExchange ACCESSPOINT_LIST{
    USB_REQ_NUBO_CMD_GET_ACCESSPOINT_LIST, USB_RES_NUBO_CMD_GET_ACCESSPOINT_LIST, {}};
constexpr std::array WRITES{
    SettingExchange::SSID.write,
    SettingExchange::KEY.write,
};

// A write that fails on the way to the camera is not reported; one that the camera refuses is.
bool isRefusedWrite(const QUuid& kind, const stCommandResult& result) {
    return result.isFailure && kind == USB_NUBO_CMD_RESPONSE &&
           std::ranges::find(WRITES, result.command) != WRITES.end();
}

constexpr QPoint CAPTION_PLACE{35, 20};
constexpr QRect LIST_PLACE{14, 54, 572, 364};
constexpr int BUTTONS_Y = 423;

}  // namespace

ClWidgetInfrastructureSearch::ClWidgetInfrastructureSearch(QWidget* parent)
    : ClWidgetBase(parent),
      m_area(new QScrollArea(this)) {
    QLabel* caption =
        addLabel(ClNetworkText::tr("Display list that can connect AP"), CAPTION_PLACE, this);
    m_area->setAccessibleName(caption->text());
    m_area->move(LIST_PLACE.topLeft());
    m_area->setFixedSize(LIST_PLACE.size());
    setColour(m_area, QPalette::Window, AP_ROW_COLOUR);
    m_area->setAutoFillBackground(true);
    // The rows take the focus, not the area.
    m_area->setFocusPolicy(Qt::NoFocus);

    const QList<QPushButton*> buttons =
        addButtonBar({ClNetworkText::tr("Research"), ClNetworkText::tr("Back")}, BUTTONS_Y, this);
    m_research = buttons[0];
    m_back = buttons[1];
    addKeys(m_back, {Qt::Key_Escape});
    for (const QPushButton* button : buttons) {
        connect(button, &QPushButton::clicked, this, &ClWidgetInfrastructureSearch::slotClicked);
    }

    m_reads.add({SettingExchange::WIFI_INFO, [this](const VX_CMD& answer) { takeLink(answer); }});
    m_reads.add(
        {ACCESSPOINT_LIST, [this](const VX_CMD& answer) { showList(accesspointList(answer)); }});
}

void ClWidgetInfrastructureSearch::showInit(bool /*isPolling*/) {
    m_reads.start();
}

void ClWidgetInfrastructureSearch::slotClicked() {
    if (sender() == m_research) {
        m_reads.startAt(ACCESSPOINT_LIST.request);
    } else if (sender() == m_back) {
        Q_EMIT sigChangePage(INFRASTRUCTURE_TOP);
    }
}

void ClWidgetInfrastructureSearch::slotSelect(const QString& ssid, bool isEncrypted) {
    QString key;
    if (isEncrypted) {
        ClDialogInputKey dialog(this, true);
        if (!ask(dialog)) {
            return;
        }
        key = dialog.getParam().value(0).toString();
    }
    m_awaited = SettingExchange::SSID.write;
    m_underWay = {SettingExchange::SSID.write};
    sendUsbCommand(SettingExchange::SSID.write, {{Key::PARAM2, ssid}});
    if (isEncrypted) {
        m_underWay.append(SettingExchange::KEY.write);
        sendUsbCommand(SettingExchange::KEY.write, {{Key::PARAM2, key}});
    }
}

void ClWidgetInfrastructureSearch::slotReceiveCommand(const VX_CMD& clCommand) {
    const QUuid received = getCommand(clCommand);
    // The top sub-page may have asked for the link, too, the moment before it was left for this
    // one.
    if (received == SettingExchange::WIFI_INFO.answer && isAnswerToAnother(clCommand)) {
        return;
    }
    if (!m_reads.take(clCommand)) {
        showResult(received, stCommandResult(clCommand));
    }
}

void ClWidgetInfrastructureSearch::takeLink(const VX_CMD& answer) {
    // Without a link the camera may still report the name of an access point that it had, or is
    // looking for.
    const stWifiInfo info = wifiInfo(answer);
    m_linkedSsid = info.status > WIFI_NOT_LINKED ? info.searchSsid : QString();
}

void ClWidgetInfrastructureSearch::slotReceiveLateResult(const VX_CMD& clCommand) {
    const stCommandResult result(clCommand);
    if (m_underWay.removeOne(result.command) && isRefusedWrite(getCommand(clCommand), result)) {
        Q_EMIT sigRefused(result.code);
    }
}

void ClWidgetInfrastructureSearch::showList(const AccesspointList& accesspoints) {
    // Hidden, it is laid out once and not for each row.
    m_area->hide();
    if (QWidget* const former = m_area->takeWidget()) {
        former->deleteLater();
    }
    auto* list = new ClWidgetApList;
    m_area->setWidget(list);
    connect(list, &ClWidgetApList::sigFocusMoved, m_area,
            [this](QWidget* row) { m_area->ensureWidgetVisible(row, 0, 0); });
    for (const stAccesspointInfo& accesspoint : accesspoints) {
        if (accesspoint.ssid.isEmpty()) {
            continue;
        }
        auto* row = new ClWidgetApInfo(accesspoint.ssid, static_cast<int>(accesspoint.encryption),
                                       static_cast<int>(accesspoint.signal));
        list->addWidget(row);
        connect(row, &ClWidgetApInfo::sigSelect, this, &ClWidgetInfrastructureSearch::slotSelect);
        if (accesspoint.ssid == m_linkedSsid) {
            row->setLinking(true);
        }
    }
    list->resize(list->sizeHint());
    m_area->show();
    // Every widget that has been shown asks to be repainted. For each one out of sight Qt would
    // then look through all its siblings, which makes long lists slow: one repaint of each window
    // does instead.
    QCoreApplication::removePostedEvents(nullptr, QEvent::UpdateLater);
    for (QWidget* window : QApplication::topLevelWidgets()) {
        window->update();
    }
}

void ClWidgetInfrastructureSearch::showResult(const QUuid& kind, const stCommandResult& result) {
    m_underWay.removeOne(result.command);
    if (result.isSuccess && result.command == m_awaited) {
        Q_EMIT sigChangePage(INFRASTRUCTURE_TOP);
    }
    if (isRefusedWrite(kind, result) || (result.isFailure && m_reads.asks(result.command))) {
        showErrorMsgBox(result.code);
    }
}
