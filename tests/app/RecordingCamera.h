// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualCamera.h"
#include "simulator/Wire.h"

#include <QList>

#include <mutex>

/// The simulated camera, noting the codes of the commands that it receives. Any thread.
class RecordingCamera : public nubo::simulator::VirtualCamera {
public:
    void receive(std::span<const std::uint8_t> packet) override {
        {
            const std::lock_guard lock(m_codesMutex);
            m_codes.append(nubo::simulator::readU16(packet, nubo::simulator::kCodeOffset));
        }
        VirtualCamera::receive(packet);
    }

    [[nodiscard]] QList<int> codes() const {
        const std::lock_guard lock(m_codesMutex);
        return m_codes;
    }

    void forgetCodes() {
        const std::lock_guard lock(m_codesMutex);
        m_codes.clear();
    }

private:
    mutable std::mutex m_codesMutex;
    QList<int> m_codes;
};
