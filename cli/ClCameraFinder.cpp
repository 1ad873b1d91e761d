// SPDX-License-Identifier: MIT
#include "cli/ClCameraFinder.h"

#include "cli/ClSession.h"
#include "cli/NodeHolders.h"

#include <QFile>

#include <algorithm>
#include <array>

namespace {

bool isCamera(libusb_device* device) {
    libusb_device_descriptor descriptor{};
    return libusb_get_device_descriptor(device, &descriptor) == LIBUSB_SUCCESS &&
           descriptor.idVendor == NUBO_USB_VENDOR_ID && descriptor.idProduct == NUBO_USB_PRODUCT_ID;
}

/// The bus and the ports on the way to the device, as the system names it.
QString portOf(libusb_device* device) {
    constexpr int DEEPEST = 7;
    std::array<std::uint8_t, DEEPEST> ports{};
    const int depth = libusb_get_port_numbers(device, ports.data(), DEEPEST);
    QString port = QString::number(libusb_get_bus_number(device));
    for (int i = 0; i < depth; ++i) {
        port += (i == 0 ? u'-' : u'.') + QString::number(ports[static_cast<std::size_t>(i)]);
    }
    return port;
}

/// What the system has read from the device when it was plugged in: it needs no rights.
QString serialAt(const QString& port) {
    QFile file(QStringLiteral("/sys/bus/usb/devices/%1/serial").arg(port));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()).trimmed() : QString();
}

stFailure openingFailure(const stCamera& camera, int result) {
    const QString which = QStringLiteral("camera %1").arg(camera.port);
    switch (result) {
        case LIBUSB_ERROR_BUSY: {
            const QString holder = nodeHolders(camera.bus, camera.number);
            return {ExitCode::InUse,
                    QStringLiteral("%1 is in use by %2: close it, or use --wait")
                        .arg(which, holder.isEmpty() ? QStringLiteral("another program") : holder),
                    holder};
        }
        case LIBUSB_ERROR_ACCESS:
            return {ExitCode::AccessDenied,
                    which + QStringLiteral(": access denied; \"nuboctl doctor\" tells more")};
        default:
            return {ExitCode::LinkFailed,
                    QStringLiteral("%1 cannot be opened: %2")
                        .arg(which, QString::fromLocal8Bit(libusb_strerror(result)))};
    }
}

}  // namespace

stFailure ClCameraFinder::start() {
    libusb_context* context = nullptr;
    if (const int result = libusb_init(&context); result != LIBUSB_SUCCESS) {
        return {ExitCode::Computer, QStringLiteral("USB cannot be used: %1")
                                        .arg(QString::fromLocal8Bit(libusb_strerror(result)))};
    }
    m_context.reset(context);
    // What fails is told by this program, once.
    libusb_set_option(context, LIBUSB_OPTION_LOG_LEVEL, LIBUSB_LOG_LEVEL_NONE);
    return {};
}

std::vector<stCamera> ClCameraFinder::look() {
    m_devices = LibusbDeviceList(m_context.get());
    std::vector<stCamera> cameras;
    for (libusb_device* const device : m_devices.devices()) {
        if (isCamera(device)) {
            const QString port = portOf(device);
            cameras.push_back({device, port, libusb_get_bus_number(device),
                               libusb_get_device_address(device), serialAt(port)});
        }
    }
    // Shorter first: "1-9" before "1-10".
    std::ranges::sort(cameras, [](const stCamera& one, const stCamera& other) {
        return one.port.size() != other.port.size() ? one.port.size() < other.port.size()
                                                    : one.port < other.port;
    });
    return cameras;
}

QStringList ClCameraFinder::identities() const {
    QStringList seen;
    for (libusb_device* const device : m_devices.devices()) {
        libusb_device_descriptor descriptor{};
        if (libusb_get_device_descriptor(device, &descriptor) == LIBUSB_SUCCESS) {
            seen.append(QString::asprintf("%04x:%04x", descriptor.idVendor, descriptor.idProduct));
        }
    }
    seen.removeDuplicates();
    return seen;
}

std::unique_ptr<ClSession> ClCameraFinder::open(const stCamera& camera, stFailure& failure) {
    auto session = std::make_unique<ClSession>(camera.device);
    if (const int result = session->open(); result != LIBUSB_SUCCESS) {
        failure = openingFailure(camera, result);
        return nullptr;
    }
    return session;
}
