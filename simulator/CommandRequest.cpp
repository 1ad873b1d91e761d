// SPDX-License-Identifier: MIT
#include "simulator/CommandRequest.h"

#include <cstddef>

namespace nubo::simulator {

namespace {

/// Takes the packet apart from its front.
class Reader {
public:
    explicit Reader(std::span<const std::uint8_t> bytes) : m_rest(bytes) {}

    std::uint32_t number() {
        const std::uint32_t value = readU32(m_rest, 0);
        take(sizeof(value));
        return value;
    }
    std::string text() {
        const std::span<const std::uint8_t> bytes = take(number());
        return {bytes.begin(), bytes.end()};
    }
    /// All was there, and nothing is left.
    bool isExhausted() const { return m_whole && m_rest.empty(); }

private:
    std::span<const std::uint8_t> take(std::size_t count) {
        m_whole = m_whole && count <= m_rest.size();
        const std::span<const std::uint8_t> taken = m_rest.first(m_whole ? count : 0);
        m_rest = m_rest.subspan(taken.size());
        return taken;
    }

    std::span<const std::uint8_t> m_rest;
    bool m_whole = true;
};

}  // namespace

std::optional<CommandRequest> readRequest(std::span<const std::uint8_t> packet, PacketForm form) {
    if (packet.size() < HEADER_SIZE) {
        return std::nullopt;
    }
    CommandRequest request{readU16(packet, ID_OFFSET)};
    Reader reader(packet.subspan(HEADER_SIZE));
    std::size_t first = 0;
    if (form == PacketForm::Text && readU32(packet, HEADER_SIZE) != 0) {
        request.texts[0] = reader.text();
        first = 2;
    } else if (form == PacketForm::TwoTexts) {
        for (std::string& text : request.texts) {
            text = reader.text();
        }
        first = PARAMETER_COUNT - 1;
    }
    for (std::size_t i = first; i < PARAMETER_COUNT; ++i) {
        request.parameters[i] = reader.number();
    }
    return reader.isExhausted() ? std::optional(request) : std::nullopt;
}

}  // namespace nubo::simulator
