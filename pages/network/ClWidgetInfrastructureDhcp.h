// SPDX-License-Identifier: MIT
#pragma once

#include "pages/network/ClWidgetAddressForm.h"

class QRadioButton;

/// The infrastructure sub-page that sets whether the camera takes its address from a DHCP server
/// and, if not, its address, subnet mask and default gateway.
class ClWidgetInfrastructureDhcp : public ClWidgetAddressForm {
    Q_OBJECT

public:
    explicit ClWidgetInfrastructureDhcp(QWidget* parent = nullptr);

    void showInit(bool isPolling) override;

Q_SIGNALS:
    void sigChangePage(int index);

protected:
    [[nodiscard]] bool isValid() const override;
    void leave() override;

private:
    void buildDhcpRow();
    void buildAddresses();

    QRadioButton* m_on = nullptr;
    QRadioButton* m_off = nullptr;
    QLineEdit* m_address = nullptr;
    QLineEdit* m_subnetmask = nullptr;
    QLineEdit* m_gateway = nullptr;
};
