// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClDialogBase.h"

class QComboBox;

/// Asks by which country's rules the camera uses Wi-Fi.
///
/// Parameters in: whether the camera needs a country (bool), so that "Auto" is not
/// offered, and the country (unsigned int, from 1 to 4, which is "Auto"); fewer than both are left
/// alone. A country that does not exist shows none, and "OK" waits for a choice. Parameters out:
/// the country (unsigned int).
class ClDialogWifiCountry : public ClDialogBase {
    Q_OBJECT

public:
    explicit ClDialogWifiCountry(QWidget* parent = nullptr);

    void setParam(const QVariantList& params) override;
    [[nodiscard]] QVariantList getParam() override;

private:
    QComboBox* m_country;
};
