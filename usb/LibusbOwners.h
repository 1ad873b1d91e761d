// SPDX-License-Identifier: MIT
#pragma once

#include <libusb.h>

#include <cstdint>
#include <memory>
#include <span>

struct LibusbHandleCloser {
    void operator()(libusb_device_handle* handle) const { libusb_close(handle); }
};
/// Owns an open device.
using LibusbHandle = std::unique_ptr<libusb_device_handle, LibusbHandleCloser>;

struct LibusbConfigFreer {
    void operator()(libusb_config_descriptor* config) const {
        libusb_free_config_descriptor(config);
    }
};
/// Owns a configuration descriptor.
using LibusbConfig = std::unique_ptr<libusb_config_descriptor, LibusbConfigFreer>;

/// The configuration descriptor of @p device at @p index, or null when it cannot be read.
[[nodiscard]] inline LibusbConfig readConfig(libusb_device* device, std::uint8_t index) {
    libusb_config_descriptor* config = nullptr;
    if (libusb_get_config_descriptor(device, index, &config) != LIBUSB_SUCCESS) {
        return nullptr;
    }
    return LibusbConfig(config);
}

struct LibusbContextExiter {
    void operator()(libusb_context* context) const { libusb_exit(context); }
};
/// Owns a libusb session; it outlives everything that came from it.
using LibusbContext = std::unique_ptr<libusb_context, LibusbContextExiter>;

/// Owns the list of the devices on the bus and one reference to each of them.
class LibusbDeviceList {
public:
    LibusbDeviceList() = default;
    /// The devices on the bus now; empty when they cannot be read.
    explicit LibusbDeviceList(libusb_context* context) {
        libusb_device** list = nullptr;
        if (const ssize_t count = libusb_get_device_list(context, &list); count >= 0) {
            m_list.reset(list);
            m_count = static_cast<std::size_t>(count);
        }
    }

    [[nodiscard]] std::span<libusb_device* const> devices() const {
        return {m_list.get(), m_count};
    }

private:
    struct Freer {
        void operator()(libusb_device** list) const { libusb_free_device_list(list, 1); }
    };
    std::unique_ptr<libusb_device*, Freer> m_list;
    std::size_t m_count = 0;
};
