// SPDX-License-Identifier: MIT
#include "simulator/Outbox.h"

#include "simulator/Wire.h"

#include <algorithm>
#include <utility>

namespace nubo::simulator {

namespace {

constexpr std::size_t DATA_PACKET_SIZE = 1024;
constexpr std::size_t DATA_HEAD_SIZE = 12;

}  // namespace

void Outbox::add(ByteVector packet) {
    m_messages.push_back({std::move(packet)});
}

void Outbox::addData(std::uint16_t id, SharedBytes data) {
    m_messages.push_back({{}, id, std::move(data)});
}

std::optional<ByteVector> Outbox::next() {
    if (m_messages.empty()) {
        return std::nullopt;
    }
    Message& message = m_messages.front();
    ByteVector packet = message.data ? nextOf(message) : std::move(message.packet);
    if (!message.data || message.sent == message.data->size()) {
        m_messages.pop_front();
    }
    return packet;
}

ByteVector Outbox::nextOf(Message& message) {
    const bool isFirst = message.sent == 0;
    const std::size_t room = DATA_PACKET_SIZE - (isFirst ? DATA_HEAD_SIZE : 0);
    const std::size_t count = std::min(room, message.data->size() - message.sent);
    ByteVector packet;
    packet.reserve(DATA_PACKET_SIZE);
    if (isFirst) {
        appendU16(packet, static_cast<std::uint16_t>(PacketType::Data));
        appendU16(packet, message.id);
        appendU32(packet, static_cast<std::uint32_t>(message.data->size()));
        appendU32(packet, static_cast<std::uint32_t>(count));
    }
    const auto from = message.data->begin() + static_cast<std::ptrdiff_t>(message.sent);
    packet.insert(packet.end(), from, from + static_cast<std::ptrdiff_t>(count));
    message.sent += count;
    return packet;
}

}  // namespace nubo::simulator
