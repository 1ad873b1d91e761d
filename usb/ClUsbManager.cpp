// SPDX-License-Identifier: MIT
#include "usb/ClUsbManager.h"

#include "protocol/CommandIdentifiers.h"
#include "protocol/RequestDispatcher.h"
#include "usb/ClUsbController.h"
#include "usb/DescriptorText.h"
#include "usb/UsbLog.h"

#include <algorithm>

namespace {

constexpr unsigned long QUIT_WAIT_MS = 100;

std::pair<int, int> placeOf(libusb_device* device) {
    return {libusb_get_bus_number(device), libusb_get_device_address(device)};
}

VX_CMD deviceMessage(const QUuid& command, ClUsbController* controller) {
    return {
        {Key::CMD, command},
        {Key::PARAM1, QVariant::fromValue(static_cast<void*>(controller))},
    };
}

}  // namespace

ClUsbManager::ClUsbManager(QObject* parent, const stUsbTimes& times)
    : QThread(parent),
      m_times(times) {
    // Timers must be dropped on the thread they live on, while it still runs.
    connect(
        this, &QThread::finished, this,
        [this] {
            if (m_isInitialized) {
                const QMutexLocker lock(&m_mutex);
                m_connectWaitTimers.clear();
            }
        },
        Qt::DirectConnection);
    start();
    moveToThread(this);
}

ClUsbManager::~ClUsbManager() {
    m_isTerminating = true;
    do {
        quit();
    } while (!wait(QUIT_WAIT_MS));
    closeDevice();
}

int ClUsbManager::initialize(const QList<stVendorProduct>& list) {
    if (m_isInitialized) {
        return LIBUSB_SUCCESS;
    }
    libusb_context* context = nullptr;
    if (const int result = libusb_init(&context); result != LIBUSB_SUCCESS) {
        qCWarning(usbLog) << "USB cannot be used:" << libusb_strerror(result);
        return result;
    }
    m_context.reset(context);
    // libusb would repeat the reason on the terminal at each attempt; reportOpening() says it once.
    libusb_set_option(context, LIBUSB_OPTION_LOG_LEVEL, LIBUSB_LOG_LEVEL_NONE);
    m_vendorProductList = list;
    for (const stVendorProduct& identity : list) {
        qCInfo(usbLog, "Looking for a camera with the USB identity %04x:%04x", identity.usVendorId,
               identity.usProductId);
    }
    searchBus();
    m_isInitialized = true;

    m_searchTimer = std::make_unique<QTimer>();
    connect(m_searchTimer.get(), &QTimer::timeout, this, &ClUsbManager::slotDeviceSearch);
    m_searchTimer->start(m_times.search);
    return LIBUSB_SUCCESS;
}

bool ClUsbManager::canCommunication() {
    if (m_controllerCount == 0 || !m_mutex.tryLock()) {
        return false;
    }
    m_mutex.unlock();
    return true;
}

void ClUsbManager::slotDeviceSearch() {
    openDevice();
}

int ClUsbManager::openDevice() {
    return m_isInitialized ? searchBus() : 0;
}

int ClUsbManager::searchBus() {
    LibusbDeviceList found(m_context.get());
    if (found.devices().empty()) {
        m_deviceList = {};
        return 0;
    }
    std::vector<ClUsbController*> unseen;
    for (const auto& controller : m_controllerList) {
        unseen.push_back(controller.get());
    }
    std::vector<QTimer*> connectWaits;
    for (libusb_device* device : found.devices()) {
        if (!isAccepted(device)) {
            continue;
        }
        const auto known = std::ranges::find(unseen, device, &ClUsbController::device);
        if (known != unseen.end()) {
            unseen.erase(known);
        } else if (ClUsbController* const opened = openCamera(device)) {
            connectWaits.push_back(makeConnectWait(opened));
        }
    }
    std::ranges::for_each(unseen, [this](ClUsbController* gone) { slotRemoveController(gone); });
    forgetFailuresBut(found);
    m_deviceList = std::move(found);
    // Last: the first pass runs on the main thread, and a wait that ends belongs to the worker.
    for (QTimer* const wait : connectWaits) {
        QMetaObject::invokeMethod(wait, qOverload<>(&QTimer::start));
    }
    return 1;
}

void ClUsbManager::closeDevice() {
    const QMutexLocker lock(&m_mutex);
    m_controllerCount = 0;
    m_connectWaitTimers.clear();
    while (!m_controllerList.empty()) {
        const std::unique_ptr<ClUsbController> controller = std::move(m_controllerList.front());
        m_controllerList.erase(m_controllerList.begin());
        disconnect(controller.get(), nullptr, this, nullptr);
    }
    m_deviceList = {};
}

bool ClUsbManager::isAccepted(libusb_device* device) const {
    libusb_device_descriptor descriptor{};
    return libusb_get_device_descriptor(device, &descriptor) == LIBUSB_SUCCESS &&
           m_vendorProductList.contains({descriptor.idVendor, descriptor.idProduct});
}

ClUsbController* ClUsbManager::openCamera(libusb_device* device) {
    auto controller = std::make_unique<ClUsbController>(device);
    const int result = controller->open();
    reportOpening(device, result == LIBUSB_ERROR_NOT_FOUND ? controller->claimError() : result);
    if (result != LIBUSB_SUCCESS) {
        return nullptr;
    }
    connect(controller.get(), &ClUsbController::sigClose, this,
            &ClUsbManager::slotRemoveController);
    m_controllerList.push_back(std::move(controller));
    m_controllerCount = m_controllerList.size();
    return m_controllerList.back().get();
}

QTimer* ClUsbManager::makeConnectWait(ClUsbController* controller) {
    std::unique_ptr<QTimer, LaterDeleter> timer(new QTimer);
    timer->setSingleShot(true);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(m_times.connectWait);
    connect(timer.get(), &QTimer::timeout, this, &ClUsbManager::slotConnectWaitEnd);
    timer->moveToThread(thread());
    m_connectWaitTimers.push_back({std::move(timer), controller});
    return m_connectWaitTimers.back().timer.get();
}

void ClUsbManager::slotConnectWaitEnd() {
    const auto ended = std::ranges::find(
        m_connectWaitTimers, sender(), [](const stConnectWait& wait) { return wait.timer.get(); });
    if (ended == m_connectWaitTimers.end()) {
        return;
    }
    ClUsbController* controller = ended->controller;
    m_connectWaitTimers.erase(ended);
    qCInfo(usbLog) << "Camera ready";
    Q_EMIT sigSendCommand(deviceMessage(USB_CMD_DEVICE_OPEN, controller));
}

void ClUsbManager::slotRemoveController(ClUsbController* pclController) {
    const auto found =
        std::ranges::find(m_controllerList, pclController, &std::unique_ptr<ClUsbController>::get);
    // A controller that is being deleted announces its closing too, and is in the list no longer.
    if (found == m_controllerList.end()) {
        return;
    }
    const std::unique_ptr<ClUsbController> removed = std::move(*found);
    m_controllerList.erase(found);
    m_controllerCount = m_controllerList.size();
    // Another camera's controller may get the same address: its wait must not end with this one's.
    std::erase_if(m_connectWaitTimers, [pclController](const stConnectWait& wait) {
        return wait.controller == pclController;
    });
    qCInfo(usbLog) << "Camera gone";
    Q_EMIT sigSendCommand(deviceMessage(USB_CMD_DEVICE_CLOSE, pclController));
}

void ClUsbManager::reportOpening(libusb_device* device, int result) {
    const DevicePlace place = placeOf(device);
    const auto reported = m_openingFailures.find(place);
    const int before = reported == m_openingFailures.end() ? LIBUSB_SUCCESS : reported->second;
    if (result == LIBUSB_SUCCESS) {
        m_openingFailures.erase(place);
        qCInfo(usbLog, "Camera opened on bus %d, device %d", place.first, place.second);
        return;
    }
    m_openingFailures[place] = result;
    if (result == before) {
        return;
    }
    qCWarning(usbLog, "Camera on bus %d, device %d cannot be opened, trying again every second: %s",
              place.first, place.second, libusb_strerror(result));
    if (result == LIBUSB_ERROR_ACCESS) {
        qCWarning(usbLog,
                  "Install the udev rule that comes with the tool and plug the camera in again, or "
                  "add as root to /etc/udev/rules.d/70-nubo-setting-tool.rules: "
                  "SUBSYSTEM==\"usb\", ATTR{idVendor}==\"%04x\", ATTR{idProduct}==\"%04x\", "
                  "TAG+=\"uaccess\"",
                  m_vendorProductList.first().usVendorId, m_vendorProductList.first().usProductId);
    }
}

void ClUsbManager::forgetFailuresBut(const LibusbDeviceList& present) {
    std::erase_if(m_openingFailures, [&present](const auto& failure) {
        return std::ranges::none_of(present.devices(), [&failure](libusb_device* device) {
            return placeOf(device) == failure.first;
        });
    });
}

void ClUsbManager::sendDeviceInfo(libusb_device* device) {
    if (const QString text = DescriptorText::ofAll(device); !text.isEmpty()) {
        sendMessage({{Key::CMD, USB_CMD_DESCRIPTOR_INFO}, {Key::PARAM1, text}});
    }
}

QString ClUsbManager::getDeviceDescriptorInfo(libusb_device_descriptor* descriptor) {
    return DescriptorText::ofDevice(*descriptor);
}

QString ClUsbManager::getConfigDescriptorInfo(libusb_config_descriptor* descriptor, int index) {
    return DescriptorText::ofConfig(*descriptor, index);
}

QString ClUsbManager::getInterfaceDescriptorInfo(libusb_interface_descriptor* descriptor,
                                                 int index) {
    return DescriptorText::ofInterface(*descriptor, index);
}

QString ClUsbManager::getEndpointDescriptorInfo(libusb_endpoint_descriptor* descriptor, int index) {
    return DescriptorText::ofEndpoint(*descriptor, index);
}
