// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/ScriptedPort.h"
#include "tests/usb/ManagerBench.h"

#include <deque>
#include <mutex>
#include <optional>

/// The simulated camera, which can also follow a script: then it says just what stands there, as
/// soon as the packets have come that stand before it. Any thread.
class ScriptedCamera : public SteadyCamera {
public:
    void receive(std::span<const std::uint8_t> packet) override;
    std::optional<std::vector<std::uint8_t>> send() override;

    /// Follows @p script from now on.
    void follow(const Script& script);
    /// Is the simulated camera again, as new but for what stands in @p state.
    void simulate(const nubo::simulator::CameraState& state);

    /// What departed from the script; empty when all went well.
    [[nodiscard]] QString complaint() const;

private:
    mutable std::mutex m_mutex;
    std::optional<ScriptedPort> m_port;  ///< compares and fills in transaction ids
    Script m_script;
    qsizetype m_next = 0;
    std::deque<std::vector<std::uint8_t>> m_packets;  ///< that wait to be fetched
};
