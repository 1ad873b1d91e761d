// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraCommands.h"
#include "simulator/CameraState.h"
#include "simulator/ImageReceiver.h"
#include "simulator/Outbox.h"
#include "simulator/VirtualDevice.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// The simulated camera: takes command packets, keeps what is set, and answers.
///
/// A command that the camera does not know is answered with 0xFFFC, one whose length is wrong with
/// 0xFFFD, one with a parameter out of range with 0xFFFB; a packet too short to hold a transaction
/// id is ignored. Answers that the host does not fetch stay queued until the camera leaves the bus.
/// All functions may be called from any thread.
class VirtualCamera : public VirtualDevice {
public:
    void receive(std::span<const std::uint8_t> packet) override;
    std::optional<std::vector<std::uint8_t>> send() override;
    std::optional<std::chrono::steady_clock::time_point> sendTime() const override;
    std::string serialNumber() const override;
    void plugged() override;
    bool wantsRestart() override;
    bool wantsPowerOff() override;

    CameraState state() const;
    void setState(const CameraState& state);

    /// The value of an item (see CameraItems.h) as text; nothing when there is no such item.
    std::optional<std::string> get(std::string_view item) const;
    /// False, and nothing changes, when there is no such item or the text is no value for it.
    bool set(std::string_view item, std::string_view value);

    /// What the camera sends when it is asked for a picture, or for audio.
    void setPicture(ByteVector bytes);
    void setAudio(ByteVector bytes);
    /// The image that came last and whole; empty before. Never null.
    SharedBytes firmware() const;

    /// The codes of the commands that have come since the last call, the latest CODES_KEPT of them.
    std::vector<std::uint16_t> takeCommandCodes();
    static constexpr std::size_t CODES_KEPT = 1000;

private:
    void receiveCommand(std::span<const std::uint8_t> packet);
    void receiveImage(std::span<const std::uint8_t> transfer);
    void delayAnswer();
    bool takeWish(Afterwards wish);

    using Clock = std::chrono::steady_clock;

    mutable std::mutex m_mutex;
    CameraState m_state;
    Outbox m_outbox;
    ImageReceiver m_image;
    std::deque<std::uint16_t> m_codes;
    Clock::time_point m_notBefore{};
    Afterwards m_afterwards = Afterwards::Nothing;
};

}  // namespace nubo::simulator
