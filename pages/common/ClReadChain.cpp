// SPDX-License-Identifier: MIT
#include "pages/common/ClReadChain.h"

#include "protocol/CommandIdentifiers.h"
#include "ui/ClWidgetBase.h"

#include <algorithm>
#include <iterator>
#include <utility>

void ClReadChain::add(stRead read) {
    m_reads.push_back(std::move(read));
}

void ClReadChain::start() {
    send(m_reads.front().exchange.request);
}

void ClReadChain::startAt(const QUuid& request) {
    send(request);
}

void ClReadChain::send(const QUuid& request) {
    m_awaited = request;
    m_page->sendUsbCommand(request);
}

bool ClReadChain::asks(const QUuid& command) const {
    return std::ranges::any_of(
        m_reads, [&command](const stRead& read) { return read.exchange.request == command; });
}

bool ClReadChain::take(const VX_CMD& message) {
    const QUuid received = getCommand(message);
    if (received == USB_NUBO_CMD_RESPONSE || received == USB_CMD_ERROR) {
        if (message.value(Key::PARAM2).toUuid() == m_awaited) {
            abandon();
        }
        return false;
    }
    const auto read = std::ranges::find_if(
        m_reads, [&received](const stRead& each) { return each.exchange.answer == received; });
    if (read == m_reads.end() ||
        (m_rules.takesOnlyAwaited && read->exchange.request != m_awaited)) {
        return false;
    }
    const auto next = std::next(read);
    if (next == m_reads.end()) {
        abandon();
        read->show(message);
    } else if (m_rules.asksOnce && m_awaited == next->exchange.request) {
        read->show(message);
    } else {
        abandon();
        read->show(message);
        send(next->exchange.request);
    }
    return true;
}
