// SPDX-License-Identifier: MIT
#include "simulator/MessageCutter.h"

#include "simulator/Wire.h"

#include <algorithm>
#include <utility>

namespace nubo::simulator {

namespace {

constexpr std::size_t DATA_HEAD_SIZE = 8;

/// The length of the whole packet, as its head declares it; 0 when it declares none.
std::uint64_t declaredLength(std::span<const std::uint8_t> head) {
    const std::uint64_t length = readU32(head, LENGTH_OFFSET);
    if (isOfType(head, PacketType::Data)) {
        return length + DATA_HEAD_SIZE;
    }
    return isOfType(head, PacketType::Command) ? length : 0;
}

}  // namespace

std::size_t MessageCutter::wanted(std::size_t usbPacket) const {
    if (m_left == 0) {
        return usbPacket;
    }
    const std::uint64_t bytes = std::min<std::uint64_t>(m_left, PIECE - m_piece.size());
    return static_cast<std::size_t>((bytes + usbPacket - 1) / usbPacket * usbPacket);
}

std::optional<std::vector<std::uint8_t>> MessageCutter::take(std::span<const std::uint8_t> bytes,
                                                             std::size_t asked) {
    const std::uint64_t whole = m_left == 0 ? declaredLength(bytes) : m_left;
    const bool isShort = bytes.size() < asked;
    m_left = isShort || whole <= bytes.size() ? 0 : whole - bytes.size();
    m_piece.insert(m_piece.end(), bytes.begin(), bytes.end());
    if (m_left > 0 && m_piece.size() < PIECE) {
        return std::nullopt;
    }
    return std::exchange(m_piece, {});
}

void MessageCutter::reset() {
    m_piece.clear();
    m_left = 0;
}

}  // namespace nubo::simulator
