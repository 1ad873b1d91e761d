// SPDX-License-Identifier: MIT
#include "usb/ClUsbController.h"

#include "protocol/ResultCodes.h"
#include "usb/UsbLog.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

constexpr int NOTHING_TRIED = -4;
constexpr int READ_SIZE = 1024;
constexpr unsigned char DIRECTION_BIT = LIBUSB_ENDPOINT_IN;

unsigned short transportCode(int libusbError) {
    struct stTranslation {
        int libusbError;
        unsigned short code;
    };
    static constexpr std::array TRANSLATIONS{
        stTranslation{LIBUSB_ERROR_NO_DEVICE, USB_NO_DEVICE},
        stTranslation{LIBUSB_ERROR_BUSY, USB_ERROR_BUSY},
        stTranslation{LIBUSB_ERROR_TIMEOUT, USB_ERROR_TIMEOUT},
    };
    const auto found = std::ranges::find(TRANSLATIONS, libusbError, &stTranslation::libusbError);
    return found == TRANSLATIONS.end() ? USB_ERROR_OTHER : found->code;
}

}  // namespace

ClUsbController::ClUsbController(libusb_device* device) : m_device(device) {}

ClUsbController::~ClUsbController() {
    close();
}

int ClUsbController::open() {
    libusb_device_handle* handle = nullptr;
    if (const int result = libusb_open(m_device, &handle); result != LIBUSB_SUCCESS) {
        return result;
    }
    m_handle.reset(handle);
    if (const int result = findEndpoints(); result != LIBUSB_SUCCESS) {
        m_claimedInterfaces.clear();  // closing the handle ends the claims
        m_handle.reset();
        return result;
    }
    m_isOpened = true;
    return LIBUSB_SUCCESS;
}

void ClUsbController::close() {
    if (!m_isOpened) {
        return;
    }
    while (!m_claimedInterfaces.isEmpty()) {
        libusb_release_interface(m_handle.get(), m_claimedInterfaces.takeFirst());
    }
    m_handle.reset();
    m_isOpened = false;
    Q_EMIT sigClose(this);
}

int ClUsbController::findEndpoints() {
    m_endpointList.clear();
    m_claimError = LIBUSB_ERROR_NOT_FOUND;
    if (!m_handle) {
        return LIBUSB_ERROR_NOT_FOUND;
    }
    libusb_device_descriptor descriptor{};
    if (const int result = libusb_get_device_descriptor(m_device, &descriptor);
        result != LIBUSB_SUCCESS) {
        return result;
    }
    bool isClaimed = false;
    for (std::uint8_t index = 0; index < descriptor.bNumConfigurations && !isClaimed; ++index) {
        if (const LibusbConfig config = readConfig(m_device, index)) {
            isClaimed = claimInterface(*config);
        }
    }
    return m_endpointList.isEmpty() ? LIBUSB_ERROR_NOT_FOUND : LIBUSB_SUCCESS;
}

bool ClUsbController::claimInterface(const libusb_config_descriptor& config) {
    for (int number = 0; number < config.bNumInterfaces; ++number) {
        if (claimSettings(number, config.interface[number])) {
            return true;
        }
    }
    return false;
}

bool ClUsbController::claimSettings(int number, const libusb_interface& interface) {
    bool isClaimed = false;
    for (const libusb_interface_descriptor& setting :
         std::span(interface.altsetting, static_cast<std::size_t>(interface.num_altsetting))) {
        if (const int result = libusb_claim_interface(m_handle.get(), number);
            result != LIBUSB_SUCCESS) {
            m_claimError = result;
            break;
        }
        isClaimed = true;
        m_claimedInterfaces.append(number);
        for (const libusb_endpoint_descriptor& endpoint :
             std::span(setting.endpoint, setting.bNumEndpoints)) {
            m_endpointList.append(endpoint.bEndpointAddress);
        }
    }
    return isClaimed;
}

unsigned char ClUsbController::getEndPoint(unsigned char endpoint) const {
    if (m_endpointList.contains(endpoint)) {
        return endpoint;
    }
    const auto found = std::ranges::find_if(m_endpointList, [endpoint](unsigned char address) {
        return (address & DIRECTION_BIT) == (endpoint & DIRECTION_BIT);
    });
    return found == m_endpointList.end() ? 0 : *found;
}

QByteArray ClUsbController::read(int timeoutMs, unsigned char endpoint, int* error) {
    const unsigned char address = m_isOpened ? getEndPoint(endpoint & DIRECTION_BIT) : 0;
    if (address == 0) {
        if (error != nullptr) {
            *error = NOTHING_TRIED;
        }
        return {};
    }
    std::array<unsigned char, READ_SIZE> buffer{};
    int transferred = 0;
    const int result = libusb_bulk_transfer(m_handle.get(), address, buffer.data(), READ_SIZE,
                                            &transferred, static_cast<unsigned int>(timeoutMs));
    if (result < 0) {
        qCDebug(usbWireLog) << "in " << libusb_error_name(result);
        if (error != nullptr) {
            *error = transportCode(result);
        }
        if (result == LIBUSB_ERROR_NO_DEVICE) {
            // The manager deletes a closed controller: nothing of this one may be touched after it.
            close();
        }
        return {};
    }
    const QByteArray packet(reinterpret_cast<const char*>(buffer.data()), transferred);
    qCDebug(usbWireLog).noquote() << "in " << packet.toHex(' ');
    return packet;
}

int ClUsbController::write(const QByteArray& data, int timeoutMs, unsigned char /*endpoint*/) {
    const unsigned char address = m_isOpened ? getEndPoint(LIBUSB_ENDPOINT_OUT) : 0;
    m_writeError = USB_ERROR_SUCCESS;
    if (address == 0) {
        return NOTHING_TRIED;
    }
    qCDebug(usbWireLog).noquote() << "out" << data.toHex(' ');
    // libusb takes one pointer for both directions; it only reads from an OUT transfer.
    auto* bytes = reinterpret_cast<unsigned char*>(const_cast<char*>(data.constData()));
    int transferred = 0;
    const int result =
        libusb_bulk_transfer(m_handle.get(), address, bytes, static_cast<int>(data.size()),
                             &transferred, static_cast<unsigned int>(timeoutMs));
    if (result < 0) {
        m_writeError = transportCode(result);
        qCDebug(usbWireLog) << "out" << libusb_error_name(result) << "after" << transferred
                            << "bytes";
    }
    if (result == LIBUSB_ERROR_NO_DEVICE) {
        // As in read(): nothing of this controller may be touched after it.
        close();
    }
    return transferred;
}
