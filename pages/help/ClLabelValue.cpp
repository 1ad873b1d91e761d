// SPDX-License-Identifier: MIT
#include "pages/help/ClLabelValue.h"

#include "pages/common/PageParts.h"

#include <QFocusEvent>

#include <algorithm>
#include <array>

namespace {

// Format characters among them turn the direction of what follows.
constexpr std::array UNSEEMLY{QChar::Other_Control, QChar::Other_Format, QChar::Separator_Line,
                              QChar::Separator_Paragraph};

QString onOneLine(QString text) {
    std::ranges::replace_if(
        text,
        [](QChar character) {
            return std::ranges::find(UNSEEMLY, character.category()) != UNSEEMLY.end();
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
    const QString line = text.isEmpty() ? QStringLiteral("--") : onOneLine(text);
    setText(fontMetrics().elidedText(line, Qt::ElideRight, m_widest));
    setToolTip(this->text() == line ? QString() : Qt::convertFromPlainText(line));
    adjustSize();
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
