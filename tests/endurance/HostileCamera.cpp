// SPDX-License-Identifier: MIT
#include "tests/endurance/HostileCamera.h"

#include "simulator/Wire.h"

#include <array>
#include <limits>
#include <string>

using namespace nubo::simulator;
using namespace std::chrono_literals;

namespace {

constexpr std::uint16_t GET_WIFI_INFO = 0x5001;
constexpr std::uint16_t GET_ACCESSPOINTS = 0x5002;
constexpr std::size_t PARAMETERS_OFFSET = HEADER_SIZE;
constexpr std::size_t LONG_TEXT = 64 * 1024;
constexpr std::uint32_t ALL = std::numeric_limits<std::uint32_t>::max();
// Of a read, for most of the commands; the Wi-Fi information's is three times as long.
constexpr auto TIME_OUT = 1000ms;
constexpr auto MOMENT = 30ms;

}  // namespace

void HostileCamera::receive(std::span<const std::uint8_t> packet) {
    {
        const std::lock_guard lock(m_mutex);
        m_id = readU16(packet, ID_OFFSET);
        m_code = readU16(packet, CODE_OFFSET);
        m_isAsked = true;
        m_isAnswered = false;
        m_number = 0;
        m_askedAt = Clock::now();
    }
    VirtualCamera::receive(packet);
}

std::uint64_t HostileCamera::sentCount() const {
    const std::lock_guard lock(m_mutex);
    return m_sentCount;
}

std::optional<std::vector<std::uint8_t>> HostileCamera::send() {
    const std::lock_guard lock(m_mutex);
    auto packet = nextPacket();
    if (packet) {
        m_isAnswered = true;
        ++m_number;
        ++m_sentCount;
    }
    return packet;
}

std::optional<HostileCamera::Bytes> HostileCamera::nextPacket() {
    if (!m_isAsked) {
        return std::nullopt;
    }
    const bool isMultiPacket = m_code == GET_WIFI_INFO || m_code == GET_ACCESSPOINTS;
    switch (m_hostility) {
        case eHostility::RandomBytes:
            return randomBytes();
        case eHostility::RandomLengths: {
            auto packet = VirtualCamera::send();
            if (packet) {
                distort(*packet);
            }
            return packet;
        }
        case eHostility::ForeignIds:
            return plainAnswer(static_cast<std::uint16_t>(~m_id), CameraResult::Success);
        case eHostility::ErrorPackets:
            if (!isMultiPacket) {
                return VirtualCamera::send();
            }
            return plainAnswer(
                m_id, m_isAnswered ? CameraResult::NotExecuted : CameraResult::Success, {1, 1});
        case eHostility::EndlessAccesspoints:
            return m_code == GET_ACCESSPOINTS ? accesspointPacket() : VirtualCamera::send();
        case eHostility::LongTexts:
            return m_isAnswered ? std::nullopt : std::optional(longText());
        case eHostility::JustInTime:
            return Clock::now() < m_askedAt + TIME_OUT - MOMENT ? std::nullopt
                                                                : VirtualCamera::send();
        case eHostility::JustTooLate:
            return Clock::now() < m_askedAt + TIME_OUT + MOMENT ? std::nullopt
                                                                : VirtualCamera::send();
    }
    return std::nullopt;
}

HostileCamera::Bytes HostileCamera::randomBytes() {
    constexpr std::size_t LONGEST = 1100;
    Bytes packet(m_random() % LONGEST);
    for (std::uint8_t& byte : packet) {
        byte = static_cast<std::uint8_t>(m_random() >> 8U);
    }
    if (m_random() % 2 == 0) {
        writeU16(packet, ID_OFFSET, m_id);
        if (m_random() % 2 == 0) {
            writeU16(packet, CODE_OFFSET, 0);
        }
    }
    return packet;
}

void HostileCamera::distort(Bytes& packet) {
    static constexpr std::array<std::uint32_t, 10> LENGTHS{
        0, 1, 31, 1023, 1025, 0xFFFF, 0x10000, 0x7FFFFFFF, 0x80000000, ALL};
    // The length, and what may be the count of a text or the size of data.
    for (std::size_t offset = LENGTH_OFFSET; offset + 4 <= packet.size(); offset += 4) {
        if (offset == LENGTH_OFFSET || (offset >= PARAMETERS_OFFSET && m_random() % 3 == 0)) {
            writeU32(packet, offset, LENGTHS[m_random() % LENGTHS.size()]);
        }
    }
}

HostileCamera::Bytes HostileCamera::accesspointPacket() {
    if (m_number == 0) {
        return plainAnswer(m_id, CameraResult::Success, {ALL});
    }
    // Two packets each, numbered from 1.
    const std::uint32_t number = (m_number - 1) / 2 + 1;
    return m_number % 2 == 1 ? twoTextAnswer(m_id, number, "Network " + std::to_string(number), "x")
                             : plainAnswer(m_id, CameraResult::Success, {number, 1, 4, 0, 50});
}

HostileCamera::Bytes HostileCamera::longText() const {
    const std::string text(LONG_TEXT, 'W');
    return m_code == GET_WIFI_INFO ? twoTextAnswer(m_id, 2, text, text) : textAnswer(m_id, text);
}
