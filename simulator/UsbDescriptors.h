// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// One endpoint of an alternate setting; by default a bulk endpoint of 512 bytes.
struct EndpointDescription {
    std::uint8_t address = 0;  ///< bit 7 set: IN (to the host)
    std::uint8_t attributes = 2;
    std::uint16_t maxPacketSize = 512;
    std::uint8_t interval = 0;
    std::vector<std::uint8_t> extra = {};  ///< descriptors that follow, as they stand
};

/// One alternate setting; its number is its position in the interface.
struct AlternateSetting {
    std::vector<EndpointDescription> endpoints = {};
    std::uint8_t interfaceClass = 0xFF;
    std::uint8_t interfaceSubClass = 0;
    std::uint8_t interfaceProtocol = 0;
    std::vector<std::uint8_t> extra = {};  ///< descriptors that follow, as they stand
};

/// One interface; its number is its position in the configuration.
struct InterfaceDescription {
    std::vector<AlternateSetting> alternates = {};
};

/// What a device says of itself. Every configuration holds the same interfaces; the values of the
/// configurations count from 1.
struct DeviceDescription {
    std::uint16_t vendorId = NUBO_USB_VENDOR_ID;
    std::uint16_t productId = NUBO_USB_PRODUCT_ID;
    std::uint16_t release = 0x0100;
    int configurationCount = 1;
    std::vector<InterfaceDescription> interfaces = {cameraInterface()};

    /// One vendor-specific interface with the bulk endpoints 0x81 and 0x02.
    static InterfaceDescription cameraInterface();
};

/// The number of the string descriptor that holds the serial number; 0 lists the languages.
constexpr std::uint8_t SERIAL_NUMBER_STRING = 1;

/// The device descriptor (18 bytes) and all configuration descriptors, as a device node holds them.
std::vector<std::uint8_t> encodeDescriptors(const DeviceDescription& description,
                                            bool hasSerialNumber);

/// The descriptors of all its alternate settings, in their order, each with those of its endpoints.
std::vector<std::uint8_t> encodeInterface(const InterfaceDescription& interface,
                                          std::uint8_t number);

/// The string descriptor of that number; empty when the device has none.
std::vector<std::uint8_t> encodeString(std::uint8_t number, std::string_view serialNumber);

}  // namespace nubo::simulator
