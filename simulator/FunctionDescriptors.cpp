// SPDX-License-Identifier: MIT
#include "simulator/FunctionDescriptors.h"

#include "simulator/Wire.h"

#include <linux/usb/functionfs.h>

#include <cstddef>
#include <utility>

namespace nubo::simulator {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t LENGTH_OF_ALL_OFFSET = 4;
constexpr std::uint16_t FULL_SPEED_PACKET = 64;
constexpr std::uint16_t HIGH_SPEED_PACKET = 512;

void appendSetting(Bytes& bytes, AlternateSetting setting, std::uint16_t packetSize) {
    for (EndpointDescription& endpoint : setting.endpoints) {
        endpoint.maxPacketSize = packetSize;
    }
    const Bytes encoded = encodeInterface({{std::move(setting)}}, 0);
    bytes.insert(bytes.end(), encoded.begin(), encoded.end());
}

Bytes withLength(Bytes bytes) {
    writeU32(bytes, LENGTH_OF_ALL_OFFSET, static_cast<std::uint32_t>(bytes.size()));
    return bytes;
}

}  // namespace

std::vector<std::uint8_t> encodeFunction(const AlternateSetting& setting) {
    const auto count = static_cast<std::uint32_t>(1 + setting.endpoints.size());
    Bytes bytes;
    appendU32(bytes, FUNCTIONFS_DESCRIPTORS_MAGIC_V2);
    appendU32(bytes, 0);
    appendU32(bytes, FUNCTIONFS_HAS_FS_DESC | FUNCTIONFS_HAS_HS_DESC);
    appendU32(bytes, count);
    appendU32(bytes, count);
    appendSetting(bytes, setting, FULL_SPEED_PACKET);
    appendSetting(bytes, setting, HIGH_SPEED_PACKET);
    return withLength(std::move(bytes));
}

std::vector<std::uint8_t> encodeFunctionStrings() {
    Bytes bytes;
    appendU32(bytes, FUNCTIONFS_STRINGS_MAGIC);
    appendU32(bytes, 0);
    appendU32(bytes, 0);
    appendU32(bytes, 0);
    return withLength(std::move(bytes));
}

}  // namespace nubo::simulator
