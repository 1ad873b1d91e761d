// SPDX-License-Identifier: MIT
#include "simulator/VirtualCamera.h"

#include "simulator/CameraItems.h"
#include "simulator/Wire.h"

#include <utility>

namespace nubo::simulator {

namespace {

constexpr std::size_t SHORTEST_WITH_ID = ID_OFFSET + sizeof(std::uint16_t);

}  // namespace

void VirtualCamera::receive(std::span<const std::uint8_t> packet) {
    const std::lock_guard lock(m_mutex);
    // A host that sends a command in place of the image has given the image up.
    const bool isImage =
        m_image.isUnderWay() || (m_image.isWaiting() && !isOfType(packet, PacketType::Command));
    if (isImage) {
        receiveImage(packet);
    } else if (packet.size() >= SHORTEST_WITH_ID) {
        m_image.reset();
        receiveCommand(packet);
    }
}

void VirtualCamera::receiveCommand(std::span<const std::uint8_t> packet) {
    if (m_codes.size() == CODES_KEPT) {
        m_codes.pop_front();
    }
    m_codes.push_back(readU16(packet, CODE_OFFSET));
    delayAnswer();
    CommandAnswer answer = executeCommand(packet, m_state);
    const std::uint16_t id = readU16(packet, ID_OFFSET);
    for (ByteVector& message : answer.packets) {
        m_outbox.add(std::move(message));
    }
    if (answer.data) {
        m_outbox.addData(id, std::move(answer.data));
    }
    if (answer.imageSize) {
        m_image.expect(id, *answer.imageSize);
    }
    if (answer.afterwards != Afterwards::Nothing) {
        m_afterwards = answer.afterwards;
    }
}

void VirtualCamera::receiveImage(std::span<const std::uint8_t> transfer) {
    auto result = m_image.take(transfer);
    if (!result) {
        return;
    }
    delayAnswer();
    if (result->isWhole) {
        m_state.data.firmware = std::make_shared<const ByteVector>(std::move(result->image));
    }
    m_outbox.add(plainAnswer(m_image.id(),
                             result->isWhole ? CameraResult::Success : CameraResult::DataLength));
}

void VirtualCamera::delayAnswer() {
    m_notBefore = Clock::now() + std::chrono::milliseconds(m_state.behaviour.answerDelay);
}

std::optional<std::vector<std::uint8_t>> VirtualCamera::send() {
    const std::lock_guard lock(m_mutex);
    if (!m_outbox.isEmpty() && Clock::now() < m_notBefore) {
        return std::nullopt;
    }
    return m_outbox.next();
}

std::optional<std::chrono::steady_clock::time_point> VirtualCamera::sendTime() const {
    const std::lock_guard lock(m_mutex);
    return m_outbox.isEmpty() ? std::nullopt : std::optional(m_notBefore);
}

std::string VirtualCamera::serialNumber() const {
    const std::lock_guard lock(m_mutex);
    return m_state.identity.serialNumber;
}

void VirtualCamera::plugged() {
    const std::lock_guard lock(m_mutex);
    m_outbox.clear();
    m_image.reset();
    m_afterwards = Afterwards::Nothing;
    if (std::exchange(m_state.behaviour.isUpdating, false)) {
        m_state.identity.firmwareVersion = std::exchange(m_state.behaviour.nextFirmware, {});
    }
}

bool VirtualCamera::wantsRestart() {
    return takeWish(Afterwards::Restart);
}

bool VirtualCamera::wantsPowerOff() {
    return takeWish(Afterwards::PowerOff);
}

bool VirtualCamera::takeWish(Afterwards wish) {
    const std::lock_guard lock(m_mutex);
    if (m_afterwards != wish || !m_outbox.isEmpty()) {
        return false;
    }
    m_afterwards = Afterwards::Nothing;
    return true;
}

void VirtualCamera::setPicture(ByteVector bytes) {
    const std::lock_guard lock(m_mutex);
    m_state.data.picture = std::make_shared<const ByteVector>(std::move(bytes));
}

void VirtualCamera::setAudio(ByteVector bytes) {
    const std::lock_guard lock(m_mutex);
    m_state.data.audio = std::make_shared<const ByteVector>(std::move(bytes));
}

SharedBytes VirtualCamera::firmware() const {
    const std::lock_guard lock(m_mutex);
    return m_state.data.firmware;
}

std::vector<std::uint16_t> VirtualCamera::takeCommandCodes() {
    const std::lock_guard lock(m_mutex);
    std::vector<std::uint16_t> codes(m_codes.begin(), m_codes.end());
    m_codes.clear();
    return codes;
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
