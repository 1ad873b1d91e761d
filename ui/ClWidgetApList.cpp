// SPDX-License-Identifier: MIT
#include "ui/ClWidgetApList.h"

#include "ui/ApInfoParts.h"
#include "ui/WidgetLook.h"

#include <QFrame>
#include <QKeyEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QWidget* createSeparator() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Plain);
    line->setFixedHeight(1);
    setColour(line, QPalette::WindowText, AP_SEPARATOR_COLOUR);
    // At 125 % a painted line misses the pixels at times; the background fills them.
    setColour(line, QPalette::Window, AP_SEPARATOR_COLOUR);
    line->setAutoFillBackground(true);
    return line;
}

/// Where @p key leads from row @p from of a list that ends with row @p last; nowhere: @p from.
qsizetype destination(int key, qsizetype from, qsizetype last) {
    switch (key) {
        case Qt::Key_Up:
            return std::max<qsizetype>(from - 1, 0);
        case Qt::Key_Down:
            return std::min(from + 1, last);
        case Qt::Key_Home:
            return 0;
        case Qt::Key_End:
            return last;
        default:
            return from;
    }
}

}  // namespace

ClWidgetApList::ClWidgetApList() : m_column(new QVBoxLayout(this)) {
    m_column->setContentsMargins(0, 0, 0, 0);
    m_column->setSpacing(0);
}

void ClWidgetApList::addWidget(QWidget* w) {
    // The Tab key stops at one row alone: the first, until another key leads on.
    if (!m_rows.isEmpty()) {
        w->setFocusPolicy(Qt::NoFocus);
    }
    m_rows.append(w);
    m_column->addWidget(w);
    m_column->addWidget(createSeparator());
}

void ClWidgetApList::keyPressEvent(QKeyEvent* event) {
    const qsizetype from = m_rows.indexOf(focusWidget());
    const qsizetype to = from < 0 ? from : destination(event->key(), from, m_rows.size() - 1);
    if (to == from) {
        QWidget::keyPressEvent(event);
    } else {
        moveFocus(from, to);
    }
}

void ClWidgetApList::moveFocus(qsizetype from, qsizetype to) {
    m_rows[to]->setFocusPolicy(m_rows[from]->focusPolicy());
    m_rows[to]->setFocus(Qt::TabFocusReason);
    m_rows[from]->setFocusPolicy(Qt::NoFocus);
    Q_EMIT sigFocusMoved(m_rows[to]);
}
