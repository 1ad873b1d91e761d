// SPDX-License-Identifier: MIT
#include "ui/ClLabelSsid.h"

#include <QPainter>
#include <QStyle>
#include <QTextDocument>

ClLabelSsid::ClLabelSsid(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
}

void ClLabelSsid::fitInto(int width) {
    setMaximumWidth(width);
    if (text().isEmpty()) {
        // Not measured: a start without an access point would load the bold font for nothing.
        resize(0, 0);
        setToolTip(QString());
        return;
    }
    adjustSize();
    const bool isCut = sizeHint().width() > width;
    // A tool tip has no plain format: it takes for markup whatever looks like it.
    setToolTip(isCut ? Qt::convertFromPlainText(text()) : QString());
}

void ClLabelSsid::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, width());
    style()->drawItemText(&painter, rect(), static_cast<int>(alignment()), palette(), isEnabled(),
                          shown, foregroundRole());
}
