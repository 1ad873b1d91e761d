// SPDX-License-Identifier: MIT
#pragma once

#include <libusb.h>

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace nubo::simulator {

struct HandleDeleter {
    void operator()(libusb_device_handle* handle) const { libusb_close(handle); }
};
using UsbHandle = std::unique_ptr<libusb_device_handle, HandleDeleter>;

struct ContextDeleter {
    void operator()(libusb_context* context) const { libusb_exit(context); }
};
using UsbContext = std::unique_ptr<libusb_context, ContextDeleter>;

inline UsbContext newUsbContext() {
    libusb_context* context = nullptr;
    libusb_init(&context);
    return UsbContext(context);
}

/// All devices on the bus, each with a reference.
class UsbDeviceList {
public:
    explicit UsbDeviceList(const UsbContext& context) {
        m_count = libusb_get_device_list(context.get(), &m_devices);
    }
    ~UsbDeviceList() { libusb_free_device_list(m_devices, 1); }
    UsbDeviceList(const UsbDeviceList&) = delete;
    UsbDeviceList& operator=(const UsbDeviceList&) = delete;

    auto count() const { return m_count; }
    libusb_device* at(int index) const { return m_devices[index]; }

private:
    libusb_device** m_devices = nullptr;
    ssize_t m_count = 0;
};

/// The result of one bulk transfer: libusb's code, and the bytes that went over.
struct BulkResult {
    int code = 0;
    std::vector<std::uint8_t> bytes{};
};

inline BulkResult bulkIn(const UsbHandle& handle, int length, unsigned timeout = 1000) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length));
    int moved = 0;
    const int code =
        libusb_bulk_transfer(handle.get(), 0x81, bytes.data(), length, &moved, timeout);
    bytes.resize(static_cast<std::size_t>(moved));
    return {code, std::move(bytes)};
}

inline int bulkOut(const UsbHandle& handle, std::vector<std::uint8_t> bytes,
                   unsigned timeout = 1000) {
    int moved = 0;
    return libusb_bulk_transfer(handle.get(), 0x02, bytes.data(), static_cast<int>(bytes.size()),
                                &moved, timeout);
}

}  // namespace nubo::simulator
