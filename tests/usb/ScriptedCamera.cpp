// SPDX-License-Identifier: MIT
#include "tests/usb/ScriptedCamera.h"

void ScriptedCamera::receive(std::span<const std::uint8_t> packet) {
    const std::lock_guard lock(m_mutex);
    if (!m_port) {
        SteadyCamera::receive(packet);
        return;
    }
    m_port->write(QByteArray(reinterpret_cast<const char*>(packet.data()), std::ssize(packet)), 0,
                  0);
    ++m_next;
    while (m_next < m_script.size() && m_script[m_next].kind == stScriptRow::Kind::Read) {
        int status = 0;
        const QByteArray answer = m_port->read(0, 0, &status);
        m_packets.emplace_back(answer.cbegin(), answer.cend());
        ++m_next;
    }
}

std::optional<std::vector<std::uint8_t>> ScriptedCamera::send() {
    const std::lock_guard lock(m_mutex);
    if (!m_port) {
        return SteadyCamera::send();
    }
    if (m_packets.empty()) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> packet = std::move(m_packets.front());
    m_packets.pop_front();
    return packet;
}

void ScriptedCamera::follow(const Script& script) {
    const std::lock_guard lock(m_mutex);
    m_port.emplace(script);
    m_script = script;
    m_next = 0;
    m_packets.clear();
}

void ScriptedCamera::simulate(const nubo::simulator::CameraState& state) {
    const std::lock_guard lock(m_mutex);
    m_port.reset();
    setState(state);
    plugged();
}

QString ScriptedCamera::complaint() const {
    const std::lock_guard lock(m_mutex);
    return m_port ? m_port->complaint() : QString();
}
