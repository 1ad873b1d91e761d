// SPDX-License-Identifier: MIT
#include "simulator/ImageReceiver.h"

#include "simulator/Wire.h"

#include <utility>

namespace nubo::simulator {

namespace {

constexpr std::size_t DATA_HEAD_SIZE = 8;
constexpr std::size_t USB_PACKET_SIZE = 512;

}  // namespace

void ImageReceiver::expect(std::uint16_t id, std::uint32_t size) {
    reset();
    m_state = State::Announced;
    m_id = id;
    m_size = size;
}

void ImageReceiver::reset() {
    m_state = State::Idle;
    m_image = {};
}

std::optional<ImageReceiver::Result> ImageReceiver::take(std::span<const std::uint8_t> transfer) {
    const bool endsPacket = transfer.size() % USB_PACKET_SIZE != 0 || transfer.empty();
    if (m_state == State::Announced) {
        const bool headFits =
            transfer.size() >= DATA_HEAD_SIZE && isOfType(transfer, PacketType::Data) &&
            readU16(transfer, ID_OFFSET) == m_id && readU32(transfer, LENGTH_OFFSET) == m_size;
        if (!headFits) {
            reset();
            return Result{false, {}};
        }
        m_state = State::UnderWay;
        transfer = transfer.subspan(DATA_HEAD_SIZE);
    }
    m_image.insert(m_image.end(), transfer.begin(), transfer.end());
    if (m_image.size() < m_size && !endsPacket) {
        return std::nullopt;
    }
    Result result{m_image.size() == m_size, std::exchange(m_image, {})};
    reset();
    return result;
}

}  // namespace nubo::simulator
