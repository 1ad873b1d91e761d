// SPDX-License-Identifier: MIT
#include "bench/ManagedCamera.h"

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"

#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace bench {

namespace {

using namespace std::chrono_literals;

constexpr auto PATIENCE = 10s;

}  // namespace

bool ManagedCamera::open() {
    registerCommandTypes();
    if (m_manager.initialize({{NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID}}) != LIBUSB_SUCCESS) {
        return false;
    }
    QEventLoop announcement;
    QObject::connect(&m_manager, &ClUsbManager::sigSendCommand, &announcement,
                     [this, &announcement](const VX_CMD& message) {
                         if (getCommand(message) == USB_CMD_DEVICE_OPEN) {
                             m_controller = getController(message);
                             announcement.quit();
                         }
                     });
    QTimer::singleShot(PATIENCE, &announcement, &QEventLoop::quit);
    announcement.exec();
    return m_controller != nullptr;
}

}  // namespace bench
