// SPDX-License-Identifier: MIT
#include "pages/help/ClLabelValue.h"

#include "pages/common/PageParts.h"
#include "ui/WidgetLook.h"

#include <QFocusEvent>
#include <QTextDocument>

#include <algorithm>
#include <array>

namespace {

// Some format characters reverse the direction of the text that follows.
constexpr std::array NOT_SHOWN{QChar::Other_Control, QChar::Other_Format, QChar::Separator_Line,
                               QChar::Separator_Paragraph};

QString onOneLine(QString text) {
    std::ranges::replace_if(
        text,
        [](QChar character) {
            return std::ranges::find(NOT_SHOWN, character.category()) != NOT_SHOWN.end();
        },
        u' ');
    return text;
}

}  // namespace

ClLabelValue::ClLabelValue(int widest, QWidget* parent) : QLabel(parent), m_widest(widest) {
    setBold(this);
    setTextFormat(Qt::PlainText);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setFocusPolicy(Qt::StrongFocus);
    setValue(QString());
}

void ClLabelValue::setValue(const QString& text) {
    m_line = text.isEmpty() ? QString(UNKNOWN_VALUE) : onOneLine(text);
    if (isVisible()) {
        showLine();
    }
}

void ClLabelValue::showLine() {
    setText(fontMetrics().elidedText(m_line, Qt::ElideRight, m_widest));
    setToolTip(text() == m_line ? QString() : Qt::convertFromPlainText(m_line));
    adjustSize();
}

void ClLabelValue::showEvent(QShowEvent* event) {
    QLabel::showEvent(event);
    // A window that comes back keeps what was selected.
    if (!event->spontaneous()) {
        showLine();
    }
}

void ClLabelValue::focusInEvent(QFocusEvent* event) {
    QLabel::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason) {
        setSelection(0, static_cast<int>(text().size()));
    }
}

void ClLabelValue::focusOutEvent(QFocusEvent* event) {
    QLabel::focusOutEvent(event);
    // The context menu, which copies the selection, takes the focus for a while.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) {
        setSelection(0, 0);
    }
}
