// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClNuboCommand.h"

#include <QString>

/// Joins the camera to a Wi-Fi network. Two counted strings, SSID and key, stand in place of param1
/// to param4; param5 follows. Text travels as Latin-1.
class ClNuboCommandConnectWifi : public ClNuboCommand {
public:
    static constexpr unsigned short CODE = 0x6807;

    ClNuboCommandConnectWifi(const QString& ssid, const QString& key);

    [[nodiscard]] QByteArray getData() const override;

private:
    QString m_ssid;
    QString m_key;
};
