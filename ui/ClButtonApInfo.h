// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ApInfoParts.h"

#include <QPushButton>

/// A single access point as a button.
class ClButtonApInfo : public QPushButton {
    Q_OBJECT

public:
    /// @p type as in ClWidgetEncryption::setValue(), @p rssi as in ClWidgetRssi::setValue().
    ClButtonApInfo(const QString& ssid, int type, int rssi, QWidget* parent);

    void setSsid(const QString& ssid) { m_parts.setSsid(ssid); }
    void setType(int type) { m_parts.setType(type); }
    void setRssi(int rssi) { m_parts.setRssi(rssi); }
    /// Whether the camera is linked to this access point.
    void setLinking(bool isLinked) { m_parts.setLinking(isLinked); }
    void adjustPartsPos();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ClApInfoParts m_parts;
};
