// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualCamera.h"

#include <QMetaType>

#include <chrono>
#include <mutex>
#include <random>

/// What a hostile camera answers.
enum class eHostility {
    RandomBytes,          ///< packets of random bytes, half of them with the right transaction id
    RandomLengths,        ///< sound answers whose declared lengths and counts are anything
    ForeignIds,           ///< answers to nobody, without end
    ErrorPackets,         ///< in place of the packets that follow an answer, errors without end
    EndlessAccesspoints,  ///< a scan that announces 2^32 - 1 access points, and goes on and on
    LongTexts,            ///< texts of 64 KiB
    JustInTime,           ///< answers a moment before the time-out of a read
    JustTooLate,          ///< answers a moment after it
};
Q_DECLARE_METATYPE(eHostility)

/// A camera that says what no camera should. Any thread.
class HostileCamera : public nubo::simulator::VirtualCamera {
public:
    explicit HostileCamera(eHostility hostility, unsigned seed = 1)
        : m_hostility(hostility),
          m_random(seed) {}

    void receive(std::span<const std::uint8_t> packet) override;
    std::optional<std::vector<std::uint8_t>> send() override;

    /// How many packets have been fetched.
    [[nodiscard]] std::uint64_t sentCount() const;

private:
    using Bytes = std::vector<std::uint8_t>;
    using Clock = std::chrono::steady_clock;

    /// The next packet, or nothing yet. Under the lock.
    [[nodiscard]] std::optional<Bytes> nextPacket();
    [[nodiscard]] Bytes randomBytes();
    [[nodiscard]] Bytes accesspointPacket();
    [[nodiscard]] Bytes longText() const;
    void distort(Bytes& packet);

    const eHostility m_hostility;
    mutable std::mutex m_mutex;
    std::minstd_rand m_random;
    std::uint16_t m_id = 0;    ///< of the latest command
    std::uint16_t m_code = 0;  ///< its code
    bool m_isAsked = false;
    bool m_isAnswered = false;
    std::uint32_t m_number = 0;  ///< of packets since the latest command
    Clock::time_point m_askedAt{};
    std::uint64_t m_sentCount = 0;
};
