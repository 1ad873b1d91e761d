// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClReadChain.h"
#include "protocol/NuboRecords.h"
#include "ui/ClWidgetBase.h"

#include <QUuid>

class QPushButton;
class QScrollArea;
struct stCommandResult;

/// The infrastructure sub-page that lists the access points which the camera finds. It scans when
/// it comes on show and by "Research"; a failed scan leaves the list. The access point that the
/// user selects is written to the camera, with its key if it is encrypted; when its SSID has been
/// accepted, the top sub-page follows. By then the key is still on its way: what becomes of it
/// reaches this page as a late result.
class ClWidgetInfrastructureSearch : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetInfrastructureSearch(QWidget* parent = nullptr);

    /// Starts a scan, which begins with the read of the link.
    void showInit(bool isPolling) override;

Q_SIGNALS:
    void sigChangePage(int index);
    /// The camera has refused a write of this page, with the result code @p error, after the page
    /// was left.
    void sigRefused(unsigned short error);

public Q_SLOTS:
    void slotClicked();
    /// An access point of the list was selected.
    void slotSelect(const QString& ssid, bool isEncrypted);
    void slotReceiveCommand(const VX_CMD& clCommand) override;
    /// A result that has come when the top sub-page was on show again.
    void slotReceiveLateResult(const VX_CMD& clCommand);

private:
    void takeLink(const VX_CMD& answer);
    void showList(const AccesspointList& accesspoints);
    void showResult(const QUuid& kind, const stCommandResult& result);

    QScrollArea* m_area;
    QPushButton* m_research = nullptr;
    QPushButton* m_back = nullptr;
    ClReadChain m_reads{this};
    QString m_linkedSsid;
    QUuid m_awaited;          ///< the command whose success leads back to the top sub-page
    QList<QUuid> m_underWay;  ///< the writes of the last selection that have no result yet
};
