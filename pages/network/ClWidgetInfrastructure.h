// SPDX-License-Identifier: MIT
#pragma once

#include "pages/network/ClMessageRelay.h"
#include "ui/ClWidgetBase.h"

class ClWidgetInfrastructureSearch;
class ClWidgetInfrastructureTop;
class QStackedLayout;

/// The infrastructure tab of the network page: the camera as a client of an access point. Shows one
/// of four sub-pages (0 top, 1 search, 2 manual setting, 3 DHCP), passes the command messages on
/// between it and the network page, and refreshes each when it comes on show; by polling, only the
/// top one.
class ClWidgetInfrastructure : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetInfrastructure(QWidget* parent);

    void showInit(bool isPolling) override;

    /// Checks or unchecks the box of the top sub-page; while Wi-Fi is off it is unchecked.
    void setUseInfra(bool isUsed);
    [[nodiscard]] ClWidgetInfrastructureTop* top() const { return m_top; }

Q_SIGNALS:
    void sigUseInfra(bool isUsed);                    ///< the user has checked or unchecked the box
    void sigReceiveCommand(const VX_CMD& clCommand);  ///< to the sub-page on show

public Q_SLOTS:
    void slotChangePage(int index);
    /// Another tab than this one takes the sub-pages back to the top.
    void slotChangeTab(int index);
    void slotReceiveCommand(const VX_CMD& clCommand) override;

private:
    template <class Page>
    Page* addPage();
    /// Has the top sub-page report a write of the search sub-page that is refused only when the
    /// user is back at the top.
    void connectLateResults(ClWidgetInfrastructureSearch& search);

    QStackedLayout* m_stack;
    ClWidgetInfrastructureTop* m_top = nullptr;
    ClMessageRelay<ClWidgetInfrastructure> m_relay{this};
};
