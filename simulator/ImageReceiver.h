// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraState.h"

#include <cstdint>
#include <optional>
#include <span>

namespace nubo::simulator {

/// Takes the one data packet that a command has announced, in as many transfers as the host makes
/// of it. A transfer that does not fill its last USB packet is the end of the data packet.
class ImageReceiver {
public:
    /// The data packet comes next, with this id and so many bytes.
    void expect(std::uint16_t id, std::uint32_t size);
    /// No data packet comes.
    void reset();

    /// A data packet is announced, and nothing of it has come yet.
    bool isWaiting() const { return m_state == State::Announced; }
    bool isUnderWay() const { return m_state == State::UnderWay; }
    std::uint16_t id() const { return m_id; }

    struct Result {
        bool isWhole;  ///< as long as announced
        ByteVector image;
    };
    /// Takes the next transfer; a result ends the reception.
    std::optional<Result> take(std::span<const std::uint8_t> transfer);

private:
    enum class State { Idle, Announced, UnderWay };

    State m_state = State::Idle;
    std::uint16_t m_id = 0;
    std::uint32_t m_size = 0;
    ByteVector m_image;
};

}  // namespace nubo::simulator
