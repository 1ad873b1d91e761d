// SPDX-License-Identifier: MIT
#include "simulator/Fault.h"

#include "simulator/Wire.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace nubo::simulator {

namespace {

constexpr std::uint8_t PADDING = 0xA5;

// clang-format off
constexpr std::array FAULTS = {
    FaultInfo{FaultKind::Timeout,        "timeout",         FaultEffect::Hold,        0,           FaultArgument::None,         "the transfer is never served; after a command, no answer comes"},
    FaultInfo{FaultKind::DeviceGone,     "device-gone",     FaultEffect::Leave,       0,           FaultArgument::None,         "the camera leaves the bus in the middle of the transfer"},
    FaultInfo{FaultKind::Busy,           "busy",            FaultEffect::Refuse,      EBUSY,       FaultArgument::None,         "the transfer is refused as busy"},
    FaultInfo{FaultKind::Stall,          "stall",           FaultEffect::Finish,      -EPIPE,      FaultArgument::None,         "the endpoint stalls once"},
    FaultInfo{FaultKind::Halt,           "halt",            FaultEffect::Halt,        -EPIPE,      FaultArgument::None,         "the endpoint stalls until the host clears it, or the cable is pulled"},
    FaultInfo{FaultKind::ShortPacket,    "short-packet",    FaultEffect::Rewrite,     0,           FaultArgument::Bytes,        "the packet is cut to so many bytes"},
    FaultInfo{FaultKind::EmptyPacket,    "empty-packet",    FaultEffect::Rewrite,     0,           FaultArgument::None,         "an empty packet comes ahead of the packet"},
    FaultInfo{FaultKind::OverlongPacket, "overlong-packet", FaultEffect::Rewrite,     0,           FaultArgument::None,         "the packet is padded to all the room that the host has"},
    FaultInfo{FaultKind::ForeignId,      "foreign-id",      FaultEffect::Rewrite,     0,           FaultArgument::None,         "the packet carries another transaction id"},
    FaultInfo{FaultKind::CameraError,    "camera-error",    FaultEffect::Rewrite,     0,           FaultArgument::Code,         "the answer carries this result code, as 0xFFF9"},
    FaultInfo{FaultKind::WrongDataHead,  "wrong-data-head", FaultEffect::Rewrite,     0,           FaultArgument::None,         "the first packet of a data phase tells another size"},
    FaultInfo{FaultKind::Babble,         "babble",          FaultEffect::Finish,      -EOVERFLOW,  FaultArgument::None,         "the camera sends more than it may"},
    FaultInfo{FaultKind::Delay,          "delay",           FaultEffect::Delay,       0,           FaultArgument::Milliseconds, "the transfer is served so many milliseconds later"},
    FaultInfo{FaultKind::UnplugBefore,   "unplug-before",   FaultEffect::LeaveBefore, 0,           FaultArgument::None,         "the cable is pulled before the transfer begins"},
    FaultInfo{FaultKind::LinkError,      "link-error",      FaultEffect::LeaveBroken, -EPROTO,     FaultArgument::None,         "the cable is pulled in the middle: the transfer ends in an error of the link"},
};
// clang-format on

constexpr bool tableFollowsEnumeration() {
    for (std::size_t i = 0; i < FAULTS.size(); ++i) {
        if (FAULTS[i].kind != static_cast<FaultKind>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(tableFollowsEnumeration());

}  // namespace

std::span<const FaultInfo> faultTable() {
    return FAULTS;
}

const FaultInfo& faultInfo(FaultKind kind) {
    return FAULTS[static_cast<std::size_t>(kind)];
}

std::optional<FaultKind> faultByName(std::string_view name) {
    const auto row = std::ranges::find(FAULTS, name, &FaultInfo::name);
    if (row == FAULTS.end()) {
        return std::nullopt;
    }
    return row->kind;
}

void FaultPlan::add(const Fault& fault) {
    if (fault.count > 0) {
        m_waiting.push_back(fault);
    }
}

void FaultPlan::clear() {
    m_waiting.clear();
}

std::vector<Fault> FaultPlan::strike(FaultUnit unit) {
    std::vector<Fault> struck;
    for (Fault& fault : m_waiting) {
        if (fault.unit != unit) {
            continue;
        }
        if (fault.nth > 1) {
            --fault.nth;
            continue;
        }
        struck.push_back(fault);
        if (fault.count != Fault::FOREVER) {
            --fault.count;
        }
    }
    std::erase_if(m_waiting, [](const Fault& fault) { return fault.count == 0; });
    return struck;
}

void rewritePacket(const Fault& fault, std::size_t requested, std::vector<std::uint8_t>& packet) {
    switch (fault.kind) {
        case FaultKind::ShortPacket:
            packet.resize(std::min<std::size_t>(packet.size(), fault.argument));
            break;
        case FaultKind::EmptyPacket:
            packet.clear();
            break;
        case FaultKind::OverlongPacket:
            packet.resize(std::max(packet.size(), requested), PADDING);
            break;
        case FaultKind::ForeignId:
            writeU16(packet, ID_OFFSET, static_cast<std::uint16_t>(~readU16(packet, ID_OFFSET)));
            break;
        case FaultKind::CameraError:
            writeU16(packet, CODE_OFFSET, static_cast<std::uint16_t>(fault.argument));
            break;
        case FaultKind::WrongDataHead:
            writeU32(packet, LENGTH_OFFSET, ~readU32(packet, LENGTH_OFFSET));
            break;
        case FaultKind::Timeout:
        case FaultKind::DeviceGone:
        case FaultKind::Busy:
        case FaultKind::Stall:
        case FaultKind::Halt:
        case FaultKind::Babble:
        case FaultKind::Delay:
        case FaultKind::UnplugBefore:
        case FaultKind::LinkError:
            break;
    }
}

}  // namespace nubo::simulator
