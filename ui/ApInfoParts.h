// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QString>

class ClLabelSsid;
class ClLinkCheck;
class ClWidgetEncryption;
class ClWidgetRssi;
class QPainter;
class QRect;
class QWidget;

// What the list row and the button with an access point have in common: look and parts. Both are
// light on any desktop, so that their text has to be dark.

inline constexpr QColor AP_ROW_COLOUR{185, 193, 202};
inline constexpr QColor AP_ROW_HOVER_COLOUR{206, 212, 218};
inline constexpr QColor AP_SEPARATOR_COLOUR{136, 140, 145};

/// Marks the row that covers @p area as the one that has the focus. @p radius rounds its
/// corners.
void drawApFocus(QPainter& painter, const QRect& area, qreal radius);

/// What a row with an access point shows, be it a row of the list or a button: check mark, SSID,
/// encryption badge and signal. The parts are children of the row.
class ClApInfoParts {
public:
    /// Gives @p row its colours and its font, which the parts share, and makes the parts.
    ClApInfoParts(QWidget& row, const QString& ssid, int type, int rssi);

    void setSsid(const QString& ssid);
    void setType(int type);
    void setRssi(int rssi);
    void setLinking(bool isLinked);
    /// Puts the parts at their places, all of them @p lowered pixels further down.
    void adjustPartsPos(int lowered);

    [[nodiscard]] QString ssid() const;
    [[nodiscard]] bool isEncrypted() const;

private:
    void fitSsid();
    void describeRow();

    QWidget& m_row;
    ClLinkCheck* m_linkCheck;
    ClLabelSsid* m_ssid;
    ClWidgetEncryption* m_encryption;
    ClWidgetRssi* m_rssi;
};
