// SPDX-License-Identifier: MIT
#pragma once

#include "pages/common/ClReadChain.h"
#include "ui/ClWidgetBase.h"

#include <QList>

class ClLabelValue;
class ClWidgetLogo;

/// The help page: the version of the tool and, asked for each time the page is shown, what the
/// camera reports about itself.
///
/// The camera is asked by a chain of requests, each sent when the one before has been answered. A
/// failed one ends the chain; what has not been read by then shows as "--".
class ClWidgetHelp : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetHelp(QWidget* parent);

    void showInit(bool isPolling) override;

Q_SIGNALS:
    void sigUpdate(int iKind);  ///< an update of kind @p iKind is wanted; this page wants none

public Q_SLOTS:
    void slotReceiveCommand(const VX_CMD& clCommand) override;
    /// Nothing is updated from this page, and no licence shown: these do nothing.
    void slotUpdateOwn();
    void slotUpdateNubo();
    void slotShowLicense();

protected:
    void showEvent(QShowEvent* event) override;

private:
    ClLabelValue* addRow(int y, const QString& caption);

    ClWidgetLogo* m_logo;
    QList<ClLabelValue*> m_values;  ///< of the camera, in the order of the chain
    ClReadChain m_reads{this};
};
