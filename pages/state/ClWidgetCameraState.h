// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClReadChain.h"
#include "ui/ClWidgetBase.h"

class ClLabelWifiState;
class ClWidgetProgress;
class QLabel;
class QPushButton;
struct stCommandResult;

/// The camera state page: battery, Wi-Fi link and SD card, read again every five seconds while the
/// page is visible, and three maintenance actions behind confirmation boxes.
///
/// One refresh is a chain of three reads (battery, Wi-Fi, SD card), each sent when the one before
/// has been answered. A failed read ends the chain and leaves what is shown.
class ClWidgetCameraState : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetCameraState(QWidget* parent);

    /// Starts a refresh. When the page is being shown (@p isPolling false), the last camera's
    /// values are cleared first and polling starts. A refresh that is still under way when the page
    /// is polled counts as the new one: a camera that is slow to answer is not asked twice.
    void showInit(bool isPolling) override;

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand) override;
    void slotClicked();

private:
    void buildWifiPanel();
    void buildSdCard();
    void buildButtons();

    void showBattery(const VX_CMD& answer);
    void showWifi(const VX_CMD& answer);
    void showSdCard(const VX_CMD& answer);
    void setWifiState(unsigned int state, int sensitivity, unsigned int channel);
    /// Sizes in KiB; they are shown in bytes.
    void setSdInfo(unsigned long long total, unsigned long long used, int fileSystem);

    /// Deals with a result of one of this page's commands; others are left alone.
    void showResult(const stCommandResult& result);

    ClReadChain m_reads{this};
    ClWidgetProgress* m_battery;
    ClLabelWifiState* m_wifiState;
    QWidget* m_wifiPanel = nullptr;
    QLabel* m_sensitivity = nullptr;
    QLabel* m_channel = nullptr;
    QLabel* m_sdTotal = nullptr;
    QLabel* m_sdFree = nullptr;
    QLabel* m_sdFileSystem = nullptr;
    QList<QPushButton*> m_buttons;  ///< in the order of the actions
};
