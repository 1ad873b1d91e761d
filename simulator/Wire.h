// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

/// The camera's side of the wire. All numbers are little-endian.
///
/// The first packet of a data phase to the host has u16 type 2, u16 id, u32 size of the whole, u32
/// count of the bytes that follow in this packet; the rest comes raw, at most 1024 bytes a packet.
/// The data packet of the host has u16 type 2, u16 id, u32 size, and then all bytes. Every other
/// packet:
///
///     offset  width  field
///          0    u16  packet type: 0 command, 1 answer, 2 data
///          2    u16  transaction id, chosen by the host, echoed in every packet of the answer
///          4    u32  length of the whole packet in bytes (in a data packet: of the payload)
///          8    u16  command code; in an answer the result, 0 is success
///         10    u16  reserved, 0
///         12  5xu32  parameters
namespace nubo::simulator {

constexpr std::size_t PLAIN_PACKET_SIZE = 32;
constexpr std::size_t HEADER_SIZE = 12;
constexpr std::size_t TYPE_OFFSET = 0;
constexpr std::size_t ID_OFFSET = 2;
constexpr std::size_t LENGTH_OFFSET = 4;
constexpr std::size_t CODE_OFFSET = 8;
constexpr std::size_t PARAMETER_COUNT = 5;

enum class PacketType : std::uint16_t { Command = 0, Answer = 1, Data = 2 };

/// The result codes that the camera gives.
enum class CameraResult : std::uint16_t {
    Success = 0,
    DataLength = 0xFFFD,
    UnknownCommand = 0xFFFC,
    ParameterRange = 0xFFFB,
    NotExecuted = 0xFFFA,
    SdCardFull = 0xFFF7,
};

using Parameters = std::array<std::uint32_t, PARAMETER_COUNT>;

/// 16 bits at @p offset, or 0 where the packet has ended.
std::uint16_t readU16(std::span<const std::uint8_t> packet, std::size_t offset);
/// 32 bits at @p offset, or 0 where the packet has ended.
std::uint32_t readU32(std::span<const std::uint8_t> packet, std::size_t offset);
/// Overwrites 16 bits at @p offset; without effect where the packet has ended.
void writeU16(std::span<std::uint8_t> packet, std::size_t offset, std::uint16_t value);
/// Overwrites 32 bits at @p offset; without effect where the packet has ended.
void writeU32(std::span<std::uint8_t> packet, std::size_t offset, std::uint32_t value);

void appendU16(std::vector<std::uint8_t>& packet, std::uint16_t value);
void appendU32(std::vector<std::uint8_t>& packet, std::uint32_t value);
/// A u32 byte count and the bytes, without terminator.
void appendText(std::vector<std::uint8_t>& packet, std::string_view text);

/// A plain answer of 32 bytes.
std::vector<std::uint8_t> plainAnswer(std::uint16_t id, CameraResult result,
                                      const Parameters& parameters = {});
/// An answer of header, one parameter and two texts.
std::vector<std::uint8_t> twoTextAnswer(std::uint16_t id, std::uint32_t parameter,
                                        std::string_view first, std::string_view second);

/// An answer of header, one text in place of the first two parameters, and the other three. An
/// empty text makes it a plain answer.
std::vector<std::uint8_t> textAnswer(std::uint16_t id, std::string_view text,
                                     const Parameters& parameters = {});

/// True for a packet whose head says that it carries @p type.
bool isOfType(std::span<const std::uint8_t> packet, PacketType type);

}  // namespace nubo::simulator
