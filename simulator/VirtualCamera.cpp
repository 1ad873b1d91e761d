// SPDX-License-Identifier: MIT
#include "simulator/VirtualCamera.h"

#include <utility>

#include "simulator/CameraCommands.h"
#include "simulator/CameraItems.h"
#include "simulator/Wire.h"

namespace nubo::simulator {

namespace {

constexpr std::size_t kShortestWithId = kIdOffset + sizeof(std::uint16_t);

/// The packet's parameters, as far as it has them.
Parameters readParameters(std::span<const std::uint8_t> packet) {
    Parameters parameters{};
    std::size_t offset = kHeaderSize;
    for (std::uint32_t& parameter : parameters) {
        parameter = readU32(packet, offset);
        offset += sizeof(parameter);
    }
    return parameters;
}

CommandAnswer refusal(std::uint16_t id, CameraResult result) {
    return {{plainAnswer(id, result)}};
}

CommandAnswer execute(std::span<const std::uint8_t> packet, CameraState& state) {
    const std::uint16_t id = readU16(packet, kIdOffset);
    if (!isOfType(packet, PacketType::Command)) {
        return refusal(id, CameraResult::UnknownCommand);
    }
    if (packet.size() < kHeaderSize || readU32(packet, kLengthOffset) != packet.size()) {
        return refusal(id, CameraResult::DataLength);
    }
    const CameraCommand* const command = cameraCommand(readU16(packet, kCodeOffset));
    if (command == nullptr) {
        return refusal(id, CameraResult::UnknownCommand);
    }
    if (packet.size() != kPlainPacketSize) {
        return refusal(id, CameraResult::DataLength);
    }
    return command->execute({id, readParameters(packet)}, state);
}

}  // namespace

void VirtualCamera::receive(std::span<const std::uint8_t> packet) {
    if (packet.size() < kShortestWithId) {
        return;
    }
    const std::lock_guard lock(m_mutex);
    CommandAnswer answer = execute(packet, m_state);
    for (auto& message : answer.packets) {
        m_outbox.push_back(std::move(message));
    }
    m_restarting = m_restarting || answer.restart;
}

std::optional<std::vector<std::uint8_t>> VirtualCamera::send() {
    const std::lock_guard lock(m_mutex);
    if (m_outbox.empty()) {
        return std::nullopt;
    }
    std::vector<std::uint8_t> packet = std::move(m_outbox.front());
    m_outbox.pop_front();
    return packet;
}

void VirtualCamera::plugged() {
    const std::lock_guard lock(m_mutex);
    m_outbox.clear();
    m_restarting = false;
}

bool VirtualCamera::wantsRestart() {
    const std::lock_guard lock(m_mutex);
    if (!m_outbox.empty()) {
        return false;
    }
    return std::exchange(m_restarting, false);
}

CameraState VirtualCamera::state() const {
    const std::lock_guard lock(m_mutex);
    return m_state;
}

void VirtualCamera::setState(const CameraState& state) {
    const std::lock_guard lock(m_mutex);
    m_state = state;
}

std::optional<std::string> VirtualCamera::get(std::string_view item) const {
    const CameraItem* const found = cameraItem(item);
    if (found == nullptr) {
        return std::nullopt;
    }
    const std::lock_guard lock(m_mutex);
    return found->get(m_state);
}

bool VirtualCamera::set(std::string_view item, std::string_view value) {
    const CameraItem* const found = cameraItem(item);
    if (found == nullptr) {
        return false;
    }
    const std::lock_guard lock(m_mutex);
    return found->set(m_state, value);
}

}  // namespace nubo::simulator
