// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"
#include "settings/Setting.h"

#include <QUuid>

#include <functional>
#include <vector>

class ClWidgetBase;

/// A read of a chain: request and answer, and what the page does with that.
struct stRead {
    stSettingExchange exchange;
    std::function<void(const VX_CMD& answer)> show;
};

/// What a chain may do differently from others.
struct stReadRules {
    /// An answer other than the one that the chain waits for is left alone. Without this rule an
    /// answer counts whoever has asked for it, and the chain goes on from there.
    bool takesOnlyAwaited = false;
    /// When the chain is started again before it has ended, a request that is under way by then is
    /// not sent a second time.
    bool asksOnce = false;
};

/// Values of the camera that a page reads one after the other: each answer is shown and sends the
/// next request. The first request that fails ends the chain; what has been shown stays.
///
/// The page hands every message that it receives to take().
class ClReadChain {
public:
    /// Reads nothing yet. @p page sends the requests and outlives the chain.
    explicit ClReadChain(ClWidgetBase* page, stReadRules rules = {})
        : m_page(page),
          m_rules(rules) {}

    /// The next read of the chain.
    void add(stRead read);

    /// Sends the first request.
    void start();
    /// Starts in the middle of the chain, with @p request.
    void startAt(const QUuid& request);
    /// Waits for no answer any more.
    void abandon() { m_awaited = {}; }
    /// Whether a request has been sent that has neither been answered nor failed.
    [[nodiscard]] bool isUnderWay() const { return !m_awaited.isNull(); }

    /// Whether @p command is a request of the chain.
    [[nodiscard]] bool asks(const QUuid& command) const;

    /// Shows an answer and sends the next request. With a plain result of the request that is under
    /// way the chain ends, whatever the result; what it means to the user is the page's matter.
    /// @return whether @p message was an answer that the chain took
    bool take(const VX_CMD& message);

private:
    void send(const QUuid& request);

    ClWidgetBase* m_page;
    stReadRules m_rules;
    std::vector<stRead> m_reads;
    QUuid m_awaited;  ///< the request that is under way; null: none
};
