// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

#include <QUuid>

class QDialogButtonBox;
class QLineEdit;

/// The infrastructure sub-page on which the user types the SSID of an access point. "Decision" asks
/// for the key and writes the SSID and, unless it is empty, the key; the success of the last one
/// leads back to the top sub-page.
class ClWidgetInfrastructureManual : public ClWidgetBase {
    Q_OBJECT

public:
    explicit ClWidgetInfrastructureManual(QWidget* parent = nullptr);

Q_SIGNALS:
    void sigChangePage(int index);

public Q_SLOTS:
    void slotClicked();
    void slotReceiveCommand(const VX_CMD& clCommand) override;

private:
    void buildSsidRow();
    void decide();

    QLineEdit* m_ssid;
    QDialogButtonBox* m_buttonBox = nullptr;
    QUuid m_last;  ///< the write whose success leads back
};
