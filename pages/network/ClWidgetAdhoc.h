// SPDX-License-Identifier: MIT
#pragma once

#include "pages/network/ClWidgetAddressForm.h"

class ClLabelSsid;
class QCheckBox;

/// The ad-hoc tab of the network page: the camera as its own network. Shows the SSID and the key of
/// that network, which are read once in a run of the program, and sets the camera's address and
/// subnet mask in it.
class ClWidgetAdhoc : public ClWidgetAddressForm {
    Q_OBJECT

public:
    explicit ClWidgetAdhoc(QWidget* parent);

    void showInit(bool isPolling) override;
    /// Checks or unchecks the box; while Wi-Fi is off it is unchecked.
    void setUseAdhoc(bool isUsed);

Q_SIGNALS:
    void sigUseAdhoc(bool isUsed);  ///< the user has checked or unchecked the box
    void sigEndSetting(int index);  ///< leads to this tab

public Q_SLOTS:
    void slotClicked() override;

protected:
    [[nodiscard]] bool isValid() const override;
    void leave() override;

private:
    void buildNetwork();
    void buildAddresses();

    QCheckBox* m_useAdhoc;
    ClLabelSsid* m_ssid = nullptr;
    ClLabelSsid* m_key = nullptr;
    QLineEdit* m_address = nullptr;
    QLineEdit* m_subnetmask = nullptr;
};
