// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ApInfoParts.h"

#include <QWidget>

/// An access point as a row of the list. It is selected by a double click, by Enter or the space
/// bar while it has the focus, or by the press action of assistive technology; a single click
/// does nothing.
class ClWidgetApInfo : public QWidget {
    Q_OBJECT

public:
    /// @p type as in ClWidgetEncryption::setValue(), @p rssi as in ClWidgetRssi::setValue(). The
    /// list that the row is added to takes ownership.
    ClWidgetApInfo(const QString& ssid, int type, int rssi);

    void setSsid(const QString& ssid) { m_parts.setSsid(ssid); }
    void setType(int type) { m_parts.setType(type); }
    void setRssi(int rssi) { m_parts.setRssi(rssi); }
    /// Whether the camera is linked to this access point.
    void setLinking(bool isLinked) { m_parts.setLinking(isLinked); }
    void adjustPartsPos();

    /// Emits sigSelect(). Whoever receives it may run a dialog, during which the row may be
    /// deleted.
    void select();

Q_SIGNALS:
    void sigSelect(const QString& ssid, bool isEncrypted);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void setBackground(const QColor& colour);

    ClApInfoParts m_parts;
};
