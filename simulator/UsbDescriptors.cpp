// SPDX-License-Identifier: MIT
#include "simulator/UsbDescriptors.h"

#include "simulator/Wire.h"

#include <cstddef>

namespace nubo::simulator {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::uint8_t CONFIGURATION_LENGTH = 9;
constexpr std::uint8_t BUS_POWERED = 0x80;
constexpr std::uint8_t k500mA = 250;

std::uint8_t count(std::size_t number) {
    return static_cast<std::uint8_t>(number);
}

void append(Bytes& target, const Bytes& more) {
    target.insert(target.end(), more.begin(), more.end());
}

Bytes encodeEndpoint(const EndpointDescription& endpoint) {
    Bytes bytes = {7, 5, endpoint.address, endpoint.attributes};
    appendU16(bytes, endpoint.maxPacketSize);
    bytes.push_back(endpoint.interval);
    append(bytes, endpoint.extra);
    return bytes;
}

}  // namespace

std::vector<std::uint8_t> encodeInterface(const InterfaceDescription& interface,
                                          std::uint8_t number) {
    Bytes bytes;
    std::uint8_t alternate = 0;
    for (const AlternateSetting& setting : interface.alternates) {
        append(bytes,
               {9, 4, number, alternate++, count(setting.endpoints.size()), setting.interfaceClass,
                setting.interfaceSubClass, setting.interfaceProtocol, 0});
        append(bytes, setting.extra);
        for (const EndpointDescription& endpoint : setting.endpoints) {
            append(bytes, encodeEndpoint(endpoint));
        }
    }
    return bytes;
}

InterfaceDescription DeviceDescription::cameraInterface() {
    return {{AlternateSetting{{EndpointDescription{0x81}, EndpointDescription{0x02}}}}};
}

std::vector<std::uint8_t> encodeString(std::uint8_t number, std::string_view serialNumber) {
    constexpr std::uint8_t STRING_DESCRIPTOR = 3;
    constexpr std::size_t MOST_CHARACTERS = 126;
    constexpr std::uint16_t ENGLISH = 0x0409;
    if (serialNumber.empty() || number > SERIAL_NUMBER_STRING) {
        return {};
    }
    Bytes bytes = {0, STRING_DESCRIPTOR};
    if (number == 0) {
        appendU16(bytes, ENGLISH);
    } else {
        for (const char character : serialNumber.substr(0, MOST_CHARACTERS)) {
            appendU16(bytes, static_cast<std::uint8_t>(character));
        }
    }
    bytes.front() = count(bytes.size());
    return bytes;
}

std::vector<std::uint8_t> encodeDescriptors(const DeviceDescription& description,
                                            bool hasSerialNumber) {
    Bytes bytes = {18, 1, 0x00, 0x02, 0, 0, 0, 64};
    appendU16(bytes, description.vendorId);
    appendU16(bytes, description.productId);
    appendU16(bytes, description.release);
    append(bytes, {0, 0, hasSerialNumber ? SERIAL_NUMBER_STRING : std::uint8_t{0},
                   static_cast<std::uint8_t>(description.configurationCount)});

    Bytes interfaces;
    std::uint8_t number = 0;
    for (const InterfaceDescription& interface : description.interfaces) {
        append(interfaces, encodeInterface(interface, number++));
    }
    for (int index = 0; index < description.configurationCount; ++index) {
        append(bytes, {CONFIGURATION_LENGTH, 2});
        appendU16(bytes, static_cast<std::uint16_t>(CONFIGURATION_LENGTH + interfaces.size()));
        append(bytes, {number, static_cast<std::uint8_t>(index + 1), 0, BUS_POWERED, k500mA});
        append(bytes, interfaces);
    }
    return bytes;
}

}  // namespace nubo::simulator
