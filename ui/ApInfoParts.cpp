// SPDX-License-Identifier: MIT
#include "ui/ApInfoParts.h"

#include "ui/ApBadges.h"
#include "ui/ClLabelSsid.h"
#include "ui/Colours.h"

#include <QPainter>

namespace {

constexpr QColor FOCUS_COLOUR{0x18, 0x5A, 0x94};  // darker than the accent, for the rows are grey
constexpr qreal FOCUS_WIDTH = 2;

constexpr QPoint LINK_CHECK_PLACE{30, 15};
constexpr QPoint SSID_PLACE{70, 18};
constexpr QPoint ENCRYPTION_PLACE{284, 10};
constexpr QPoint RSSI_PLACE{490, 8};
constexpr int SSID_GAP = 10;  ///< the least distance of the SSID from what follows it

}  // namespace

void drawApFocus(QPainter& painter, const QRect& area, qreal radius) {
    constexpr qreal INSET = FOCUS_WIDTH / 2;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(FOCUS_COLOUR, FOCUS_WIDTH));
    painter.drawRoundedRect(QRectF(area).adjusted(INSET, INSET, -INSET, -INSET), radius, radius);
}

ClApInfoParts::ClApInfoParts(QWidget& row, const QString& ssid, int type, int rssi) : m_row(row) {
    // Font and colours come first: once the row has parts, Qt hands each change down to all of
    // them.
    QFont bold = row.parentWidget() == nullptr ? row.font() : row.parentWidget()->font();
    bold.setWeight(QFont::Bold);
    row.setFont(bold);
    QPalette colours = row.palette();
    colours.setColor(QPalette::Window, AP_ROW_COLOUR);
    // The parts of a button take the button's text colour.
    for (const QPalette::ColorRole text : {QPalette::WindowText, QPalette::ButtonText}) {
        colours.setColor(text, TEXT_COLOUR);
    }
    row.setPalette(colours);
    row.setAutoFillBackground(true);

    m_linkCheck = new ClLinkCheck(&row);
    m_ssid = new ClLabelSsid(&row);
    m_encryption = new ClWidgetEncryption(type, &row);
    m_rssi = new ClWidgetRssi(rssi, &row);
    setSsid(ssid);
}

void ClApInfoParts::setSsid(const QString& ssid) {
    m_ssid->setText(ssid);
    fitSsid();
    describeRow();
}

void ClApInfoParts::setType(int type) {
    m_encryption->setValue(type);
    fitSsid();
    describeRow();
}

void ClApInfoParts::setRssi(int rssi) {
    m_rssi->setValue(rssi);
    describeRow();
}

void ClApInfoParts::setLinking(bool isLinked) {
    m_linkCheck->setCheck(isLinked);
    describeRow();
}

void ClApInfoParts::adjustPartsPos(int lowered) {
    const QPoint offset(0, lowered);
    m_linkCheck->move(LINK_CHECK_PLACE + offset);
    m_ssid->move(SSID_PLACE + offset);
    m_encryption->move(ENCRYPTION_PLACE + offset);
    m_rssi->move(RSSI_PLACE + offset);
}

QString ClApInfoParts::ssid() const {
    return m_ssid->text();
}

bool ClApInfoParts::isEncrypted() const {
    return m_encryption->getIsEncryption();
}

void ClApInfoParts::fitSsid() {
    const QPoint next = isEncrypted() ? ENCRYPTION_PLACE : RSSI_PLACE;
    m_ssid->fitInto(next.x() - SSID_GAP - SSID_PLACE.x());
}

// A screen reader reads the row as one thing.
void ClApInfoParts::describeRow() {
    QStringList description{m_ssid->text(), m_linkCheck->accessibleName(), m_encryption->text(),
                            m_rssi->accessibleName()};
    description.removeAll(QString());
    m_row.setAccessibleName(description.join(QStringLiteral(", ")));
}
