// SPDX-License-Identifier: MIT
#include "simulator/Wire.h"

namespace nubo::simulator {

namespace {

constexpr int BITS_PER_BYTE = 8;

bool fits(std::size_t size, std::size_t offset, std::size_t width) {
    return offset <= size && size - offset >= width;
}

std::uint32_t readBytes(std::span<const std::uint8_t> packet, std::size_t offset,
                        std::size_t width) {
    std::uint32_t value = 0;
    if (!fits(packet.size(), offset, width)) {
        return value;
    }
    for (std::size_t i = width; i > 0; --i) {
        value = (value << BITS_PER_BYTE) | packet[offset + i - 1];
    }
    return value;
}

void writeBytes(std::span<std::uint8_t> packet, std::size_t offset, std::size_t width,
                std::uint32_t value) {
    if (!fits(packet.size(), offset, width)) {
        return;
    }
    for (std::size_t i = 0; i < width; ++i) {
        packet[offset + i] = static_cast<std::uint8_t>(value & 0xFF);
        value >>= BITS_PER_BYTE;
    }
}

void appendBytes(std::vector<std::uint8_t>& packet, std::size_t width, std::uint32_t value) {
    packet.resize(packet.size() + width);
    writeBytes(packet, packet.size() - width, width, value);
}

std::vector<std::uint8_t> answerHeader(std::uint16_t id, CameraResult result) {
    std::vector<std::uint8_t> packet;
    appendU16(packet, static_cast<std::uint16_t>(PacketType::Answer));
    appendU16(packet, id);
    appendU32(packet, 0);
    appendU16(packet, static_cast<std::uint16_t>(result));
    appendU16(packet, 0);
    return packet;
}

std::vector<std::uint8_t> withLength(std::vector<std::uint8_t> packet) {
    writeU32(packet, LENGTH_OFFSET, static_cast<std::uint32_t>(packet.size()));
    return packet;
}

}  // namespace

std::uint16_t readU16(std::span<const std::uint8_t> packet, std::size_t offset) {
    return static_cast<std::uint16_t>(readBytes(packet, offset, sizeof(std::uint16_t)));
}

std::uint32_t readU32(std::span<const std::uint8_t> packet, std::size_t offset) {
    return readBytes(packet, offset, sizeof(std::uint32_t));
}

void writeU16(std::span<std::uint8_t> packet, std::size_t offset, std::uint16_t value) {
    writeBytes(packet, offset, sizeof(value), value);
}

void writeU32(std::span<std::uint8_t> packet, std::size_t offset, std::uint32_t value) {
    writeBytes(packet, offset, sizeof(value), value);
}

void appendU16(std::vector<std::uint8_t>& packet, std::uint16_t value) {
    appendBytes(packet, sizeof(value), value);
}

void appendU32(std::vector<std::uint8_t>& packet, std::uint32_t value) {
    appendBytes(packet, sizeof(value), value);
}

void appendText(std::vector<std::uint8_t>& packet, std::string_view text) {
    appendU32(packet, static_cast<std::uint32_t>(text.size()));
    packet.insert(packet.end(), text.begin(), text.end());
}

std::vector<std::uint8_t> plainAnswer(std::uint16_t id, CameraResult result,
                                      const Parameters& parameters) {
    std::vector<std::uint8_t> packet = answerHeader(id, result);
    for (const std::uint32_t parameter : parameters) {
        appendU32(packet, parameter);
    }
    return withLength(std::move(packet));
}

std::vector<std::uint8_t> twoTextAnswer(std::uint16_t id, std::uint32_t parameter,
                                        std::string_view first, std::string_view second) {
    std::vector<std::uint8_t> packet = answerHeader(id, CameraResult::Success);
    appendU32(packet, parameter);
    appendText(packet, first);
    appendText(packet, second);
    return withLength(std::move(packet));
}

std::vector<std::uint8_t> textAnswer(std::uint16_t id, std::string_view text,
                                     const Parameters& parameters) {
    if (text.empty()) {
        return plainAnswer(id, CameraResult::Success, parameters);
    }
    constexpr std::size_t PARAMETERS_REPLACED = 2;
    std::vector<std::uint8_t> packet = answerHeader(id, CameraResult::Success);
    appendText(packet, text);
    for (std::size_t i = PARAMETERS_REPLACED; i < PARAMETER_COUNT; ++i) {
        appendU32(packet, parameters[i]);
    }
    return withLength(std::move(packet));
}

bool isOfType(std::span<const std::uint8_t> packet, PacketType type) {
    return packet.size() >= LENGTH_OFFSET &&
           readU16(packet, TYPE_OFFSET) == static_cast<std::uint16_t>(type);
}

}  // namespace nubo::simulator
