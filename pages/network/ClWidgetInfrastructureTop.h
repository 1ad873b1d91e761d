// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClReadChain.h"
#include "ui/ClWidgetBase.h"

class ClButtonApInfo;
class QCheckBox;
class QPushButton;
struct stCommandResult;

/// The first infrastructure sub-page: switches infrastructure mode on or off, shows the access
/// point that the camera is set to and whether it is linked to it, and leads to the other
/// sub-pages.
///
/// One refresh is a chain of two reads, the SSID that is set and the link. A failed read ends the
/// chain, leaves what is shown and stops the polling; of the failures until polling starts again,
/// only the first is shown.
class ClWidgetInfrastructureTop : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetInfrastructureTop(QWidget* parent = nullptr);

    /// Starts a refresh. A refresh that is still under way when the page is polled counts as the
    /// new one: a camera that is slow to answer is not asked twice.
    void showInit(bool isPolling) override;

    /// Checks or unchecks the box; while Wi-Fi is off it is unchecked.
    void setUseInfra(bool isUsed);

Q_SIGNALS:
    void sigChangePage(int index);
    void sigUseInfra(bool isUsed);  ///< the user has checked or unchecked the box
    void sigStopPolling();
    void sigStartPolling();

public Q_SLOTS:
    void slotClicked();
    void slotReceiveCommand(const VX_CMD& clCommand) override;

private:
    void showLink(const VX_CMD& answer);
    void showResult(const stCommandResult& result);

    QCheckBox* m_useInfra;
    QPushButton* m_search = nullptr;
    QPushButton* m_manual = nullptr;
    ClButtonApInfo* m_selected;
    QString m_ssid;  ///< as set in the camera, from its answer until the link is known too
    /// Two refreshes may overlap. showLink() clears the SSID, so the link is asked for only once.
    ClReadChain m_reads{this, {.asksOnce = true}};
};
