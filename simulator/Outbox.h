// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraState.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>

namespace nubo::simulator {

/// What waits to be fetched by the host, in order. A data phase is cut into packets as they are
/// fetched, so that a large one costs no second copy.
class Outbox {
public:
    void add(ByteVector packet);
    /// Adds a data phase: at least one packet, even of no bytes.
    void addData(std::uint16_t id, SharedBytes data);
    void clear() { m_messages.clear(); }

    bool isEmpty() const { return m_messages.empty(); }
    /// The next packet; nothing when none waits.
    std::optional<ByteVector> next();

private:
    struct Message {
        ByteVector packet;
        std::uint16_t id = 0;
        SharedBytes data{};  ///< null: just the packet
        std::size_t sent = 0;
    };

    static ByteVector nextOf(Message& message);

    std::deque<Message> m_messages;
};

}  // namespace nubo::simulator
