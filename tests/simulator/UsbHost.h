// SPDX-License-Identifier: MIT
#pragma once

#include "tests/support/Patience.h"
#include "usb/LibusbOwners.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace nubo::simulator {

inline constexpr unsigned char IN_ENDPOINT = 0x81;
inline constexpr unsigned char OUT_ENDPOINT = 0x02;

inline LibusbContext newLibusbContext() {
    libusb_context* context = nullptr;
    libusb_init(&context);
    return LibusbContext(context);
}

/// The result of one bulk transfer: libusb's code, and the bytes that went over.
struct BulkResult {
    int code = 0;
    std::vector<std::uint8_t> bytes{};
};

inline BulkResult bulkIn(const LibusbHandle& handle, int length, unsigned timeout = PATIENCE_MS) {
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(length));
    int moved = 0;
    const int code =
        libusb_bulk_transfer(handle.get(), IN_ENDPOINT, bytes.data(), length, &moved, timeout);
    bytes.resize(static_cast<std::size_t>(moved));
    return {code, std::move(bytes)};
}

inline int bulkOut(const LibusbHandle& handle, std::vector<std::uint8_t> bytes,
                   unsigned timeout = PATIENCE_MS) {
    int moved = 0;
    return libusb_bulk_transfer(handle.get(), OUT_ENDPOINT, bytes.data(),
                                static_cast<int>(bytes.size()), &moved, timeout);
}

}  // namespace nubo::simulator
