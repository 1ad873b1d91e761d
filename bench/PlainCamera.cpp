// SPDX-License-Identifier: MIT
#include "bench/PlainCamera.h"

#include <QtEndian>

#include <span>

namespace bench {

namespace {

constexpr int TIMEOUT_MS = 1000;
constexpr std::size_t PARAMETERS_PLACE = 12;

}  // namespace

bool PlainCamera::open() {
    libusb_context* context = nullptr;
    if (libusb_init(&context) != LIBUSB_SUCCESS) {
        return false;
    }
    m_context.reset(context);
    m_handle.reset(
        libusb_open_device_with_vid_pid(context, NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID));
    if (m_handle == nullptr || libusb_claim_interface(m_handle.get(), 0) != LIBUSB_SUCCESS) {
        return false;
    }
    const LibusbConfig config = readConfig(libusb_get_device(m_handle.get()), 0);
    if (config == nullptr) {
        return false;
    }
    const libusb_interface_descriptor& setting = config->interface[0].altsetting[0];
    for (const auto& endpoint : std::span(setting.endpoint, setting.bNumEndpoints)) {
        const bool isIn = (endpoint.bEndpointAddress & LIBUSB_ENDPOINT_IN) != 0;
        (isIn ? m_in : m_out) = endpoint.bEndpointAddress;
    }
    return true;
}

bool PlainCamera::write(QByteArray& packet) {
    int moved = 0;
    return libusb_bulk_transfer(
               m_handle.get(), m_out, reinterpret_cast<unsigned char*>(packet.data()),
               static_cast<int>(packet.size()), &moved, TIMEOUT_MS) == LIBUSB_SUCCESS;
}

int PlainCamera::read() {
    int moved = 0;
    const int result =
        libusb_bulk_transfer(m_handle.get(), m_in, m_buffer.data(), READ_SIZE, &moved, TIMEOUT_MS);
    return result == LIBUSB_SUCCESS ? moved : result;
}

quint32 PlainCamera::parameter(int number) const {
    return qFromLittleEndian<quint32>(m_buffer.data() + PARAMETERS_PLACE +
                                      sizeof(quint32) * static_cast<std::size_t>(number - 1));
}

}  // namespace bench
