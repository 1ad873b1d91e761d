// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/CameraState.h"
#include "simulator/VirtualDevice.h"

namespace nubo::simulator {

/// The simulated camera: takes command packets, keeps what is set, and answers.
///
/// A command that the camera does not know is answered with 0xFFFC, one whose length is wrong with
/// 0xFFFD; a packet too short to hold a transaction id is ignored. Answers that the host does not
/// fetch stay queued until the camera leaves the bus. All functions may be called from any thread.
class VirtualCamera : public VirtualDevice {
public:
    void receive(std::span<const std::uint8_t> packet) override;
    std::optional<std::vector<std::uint8_t>> send() override;
    void plugged() override;
    bool wantsRestart() override;

    CameraState state() const;
    void setState(const CameraState& state);

    /// The value of an item (see CameraItems.h) as text; nothing when there is no such item.
    std::optional<std::string> get(std::string_view item) const;
    /// False, and nothing changes, when there is no such item or the text is no value for it.
    bool set(std::string_view item, std::string_view value);

private:
    mutable std::mutex m_mutex;
    CameraState m_state;
    std::deque<std::vector<std::uint8_t>> m_outbox;
    bool m_restarting = false;
};

}  // namespace nubo::simulator
