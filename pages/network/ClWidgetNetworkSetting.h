// SPDX-License-Identifier: MIT
#pragma once

#include "pages/network/ClMessageRelay.h"
#include "ui/ClWidgetBase.h"

#include <memory>

class ClWidgetAdhoc;
class ClWidgetInfrastructure;
class QButtonGroup;
class QDialogButtonBox;
class QStackedLayout;
struct stCommandResult;

/// The page of the network settings: how the camera's Wi-Fi runs, on two tabs of which one may be
/// in use. Only this page writes the Wi-Fi on/off flag and the Wi-Fi mode to the camera.
///
/// It passes the command messages on between the main window and the tab on show. While it is
/// polled, and when it has switched Wi-Fi on or off, it reads the on/off flag and has the check
/// boxes of both tabs follow; the mode is read once, and from then on is what this page has set.
/// When a write has failed, or its result was never seen, the mode is read again. Choosing the
/// ad-hoc tab stops the polling; the values that the user edits there are never refreshed by it.
class ClWidgetNetworkSetting : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetNetworkSetting(QWidget* parent);

    void showInit(bool isPolling) override;
    /// Lets the next failure be shown again, too.
    void startPolling() override;

    /// Two buttons: @p accept in the accept role, @p reject in the reject role.
    [[nodiscard]] static std::unique_ptr<QDialogButtonBox> createButtonBox(const QString& accept,
                                                                           const QString& reject);

Q_SIGNALS:
    void sigReceiveCommand(const VX_CMD& clCommand);  ///< to the tab on show
    void sigChangeTab(int index);                     ///< the user has chosen this tab

public Q_SLOTS:
    /// Shows tab @p index: 0 infrastructure, 1 ad hoc. Other tabs change nothing.
    void slotChangeTab(int index);
    /// The user has checked or unchecked the box of the tab that sends the signal: switches the
    /// camera's Wi-Fi accordingly.
    void slotChangeNetworkMode(bool isChecked);
    void slotClicked();
    void slotReceiveCommand(const VX_CMD& clCommand) override;
    void slotPollingFired() override;
    void slotStopPolling();
    void slotStartPolling();

private:
    void buildTabs();
    void buildPages();
    void readOnOff();
    void showWifiOnOff(bool isSenderThis);
    void showMode(quint32 mode);
    void showResult(const stCommandResult& result);

    ClWidgetInfrastructure* m_infrastructure;
    ClWidgetAdhoc* m_adhoc;
    bool m_isModeUnconfirmed = false;  ///< the last mode was written, its result has not come
    /// Wi-Fi was switched off here and has not been read since: what was read before is out of
    /// date.
    bool m_isSwitchedOffUnread = false;
    QButtonGroup* m_tabs = nullptr;  ///< a button's id is its tab
    QStackedLayout* m_stack = nullptr;
    ClMessageRelay<ClWidgetNetworkSetting> m_relay{this};
};
