// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualDevice.h"

#include <deque>
#include <mutex>
#include <utility>

namespace nubo::simulator {

/// A device that keeps what it receives, and sends what it was given.
class ScriptedDevice : public VirtualDevice {
public:
    using Bytes = std::vector<std::uint8_t>;

    void receive(std::span<const std::uint8_t> packet) override {
        const std::lock_guard lock(m_mutex);
        m_received.emplace_back(packet.begin(), packet.end());
    }

    std::optional<Bytes> send() override {
        const std::lock_guard lock(m_mutex);
        if (m_answers.empty()) {
            return std::nullopt;
        }
        Bytes answer = std::move(m_answers.front());
        m_answers.pop_front();
        return answer;
    }

    std::string serialNumber() const override { return m_serialNumber; }
    /// Before the device is plugged in.
    void setSerialNumber(const std::string& text) { m_serialNumber = text; }

    bool wantsRestart() override {
        const std::lock_guard lock(m_mutex);
        return std::exchange(m_restart, false);
    }

    void answerWith(Bytes answer) {
        const std::lock_guard lock(m_mutex);
        m_answers.push_back(std::move(answer));
    }

    void restartAfterNextRead() {
        const std::lock_guard lock(m_mutex);
        m_restart = true;
    }

    std::vector<Bytes> received() const {
        const std::lock_guard lock(m_mutex);
        return m_received;
    }

private:
    mutable std::mutex m_mutex;
    std::vector<Bytes> m_received;
    std::deque<Bytes> m_answers;
    bool m_restart = false;
    std::string m_serialNumber;
};

}  // namespace nubo::simulator
