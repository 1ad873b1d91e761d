// SPDX-License-Identifier: MIT
#pragma once

#include "ui/ClWidgetBase.h"

/// Lets a page that shows one of several inner pages pass the command messages on: what the inner
/// page sends leaves by the outer page's sigSendCommand(), and what the outer page emits by
/// sigReceiveCommand() reaches the inner page. One inner page is connected at a time.
template <class Outer>
class ClMessageRelay {
public:
    explicit ClMessageRelay(Outer* outer) : m_outer(outer) {}

    /// Disconnects the page before and connects @p inner, unless it is null.
    void connectTo(ClWidgetBase* inner) {
        QObject::disconnect(m_outwards);
        QObject::disconnect(m_inwards);
        m_inner = inner;
        if (inner != nullptr) {
            m_outwards = QObject::connect(inner, &ClWidgetBase::sigSendCommand, m_outer,
                                          &ClWidgetBase::sigSendCommand);
            m_inwards = QObject::connect(m_outer, &Outer::sigReceiveCommand, inner,
                                         &ClWidgetBase::slotReceiveCommand);
        }
    }

    /// The page that is connected; null when there is none.
    [[nodiscard]] ClWidgetBase* inner() const { return m_inner; }

private:
    Outer* m_outer;
    ClWidgetBase* m_inner = nullptr;
    QMetaObject::Connection m_outwards;
    QMetaObject::Connection m_inwards;
};
