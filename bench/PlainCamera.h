// SPDX-License-Identifier: MIT
#pragma once

#include "usb/LibusbOwners.h"

#include <QByteArray>

#include <array>

namespace bench {

/// A camera with nothing between it and the program but libusb.
class PlainCamera {
public:
    /// Opens the first camera that can be claimed, and takes its bulk endpoints.
    [[nodiscard]] bool open();

    [[nodiscard]] libusb_context* context() const { return m_context.get(); }

    /// Writes a command. @return whether that succeeded
    [[nodiscard]] bool write(QByteArray& packet);
    /// Reads one packet. @return its size in bytes, negative on failure
    [[nodiscard]] int read();
    /// The answer's parameter @p number, counted from 1, of the packet that was read last.
    [[nodiscard]] quint32 parameter(int number) const;

private:
    static constexpr int READ_SIZE = 1024;

    LibusbContext m_context;
    LibusbHandle m_handle;
    unsigned char m_in = 0;
    unsigned char m_out = 0;
    std::array<unsigned char, READ_SIZE> m_buffer;
};

}  // namespace bench
