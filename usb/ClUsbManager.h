// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClCameraAccess.h"
#include "usb/LibusbOwners.h"
#include "usb/UsbTimes.h"

#include <QList>
#include <QMutex>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <map>
#include <memory>
#include <utility>
#include <vector>

class ClNuboTransactions;

/// One USB identity that the tool takes for its camera.
struct stVendorProduct {
    unsigned short usVendorId = 0;
    unsigned short usProductId = 0;

    bool operator==(const stVendorProduct&) const = default;
};

/// The program's whole USB side: searches the bus once a second, opens every camera it finds,
/// announces it after three seconds (stUsbTimes), and runs the user interface's requests on it.
///
/// The manager is a thread object that lives on its own thread. The main window creates it, calls
/// initialize() (which makes the first search pass, still on the main thread) and destroys it; in
/// between, every slot runs on the worker thread, and so do all transfers, removals and later
/// passes. Both sides talk through sigSendCommand() and slotReceiveCommand() only, queued and by
/// value.
///
/// A camera goes from opened and waiting to announced (USB_CMD_DEVICE_OPEN) to removed
/// (USB_CMD_DEVICE_CLOSE). One that is removed while it waits is never announced. Both messages
/// carry the controller in PARAM1 as an identity; after the close message it exists no longer.
class ClUsbManager : public QThread, public ClCameraAccess {
    Q_OBJECT

public:
    explicit ClUsbManager(QObject* parent = nullptr, const stUsbTimes& times = {});
    /// Ends a running transaction, the thread, every controller and libusb, in this order and
    /// without a close message. Main thread; returns when the thread has ended.
    ~ClUsbManager() override;

    /// Starts libusb and the search for the identities of @p list. Main thread, once.
    /// @return 0, or libusb's error code, after which no search ever runs.
    [[nodiscard]] int initialize(const QList<stVendorProduct>& list);
    [[nodiscard]] bool isInitialized() const { return m_isInitialized; }

    /// Whether a camera is open and no transaction is running at this moment. Never waits. Any
    /// thread.
    [[nodiscard]] bool canCommunication();

    /// One search pass. @return 1 when the bus could be read and had devices on it, else 0.
    int openDevice();
    /// Deletes all controllers, without messages, and lets go of the devices on the bus.
    void closeDevice();

    unsigned short execNuboCommand(ClNuboCommand& command, ClUsbController* controller,
                                   int timeoutMs) override;
    unsigned short execNuboDataWrite(ClNuboCommand& command, ClNuboCommandDataSend& data,
                                     ClUsbController* controller) override;
    unsigned short execNuboDataRead(ClNuboCommand& command, ClNuboCommandDataReceive& data,
                                    ClUsbController* controller) override;
    unsigned short execNuboGetWifiInfo(ClUsbController* controller, stWifiInfo* info) override;
    unsigned short execNuboGetAccesspointList(ClUsbController* controller,
                                              QList<stAccesspointInfo>* list) override;
    void readRawData(ClUsbController* controller) override;
    void sendMessage(const VX_CMD& message) override;
    void sendCommunicationResult(void* controller, QUuid command, unsigned short result) override;

    /// Emits the text of all descriptors of @p device as USB_CMD_DESCRIPTOR_INFO; nothing when none
    /// can be read.
    void sendDeviceInfo(libusb_device* device);
    QString getDeviceDescriptorInfo(libusb_device_descriptor* descriptor);
    /// In this and the next two, a negative @p index gives the header without a number.
    QString getConfigDescriptorInfo(libusb_config_descriptor* descriptor, int index);
    QString getInterfaceDescriptorInfo(libusb_interface_descriptor* descriptor, int index);
    QString getEndpointDescriptorInfo(libusb_endpoint_descriptor* descriptor, int index);

Q_SIGNALS:
    void sigSendCommand(const VX_CMD& clCommand);

public Q_SLOTS:
    void slotRemoveController(ClUsbController* pclController);
    void slotReceiveCommand(const VX_CMD& clCommand);
    void slotDeviceSearch();
    void slotConnectWaitEnd();

private:
    struct LaterDeleter {
        void operator()(QObject* object) const { object->deleteLater(); }
    };
    struct stConnectWait {
        std::unique_ptr<QTimer, LaterDeleter> timer;  ///< lives on the worker thread
        ClUsbController* controller;
    };
    /// Where a device sits on the bus: bus number and device address.
    using DevicePlace = std::pair<int, int>;
    class LivePort;

    int searchBus();  ///< as openDevice() does once initialised
    [[nodiscard]] bool isLive(const ClUsbController* controller) const;
    [[nodiscard]] bool isAccepted(libusb_device* device) const;
    /// @return its controller, in the list; null when it cannot be opened.
    ClUsbController* openCamera(libusb_device* device);
    /// @return the timer of the wait, in the list and not started.
    QTimer* makeConnectWait(ClUsbController* controller);
    /// Logs the outcome of an attempt to open @p device, if it differs from the last one. @p result
    /// is 0 or the libusb error that tells a user most.
    void reportOpening(libusb_device* device, int result);
    /// Forgets the reported failures of devices that are no longer on the bus.
    void forgetFailuresBut(const LibusbDeviceList& present);
    template <class Transaction>
    [[nodiscard]] unsigned short transact(ClUsbController* controller, Transaction transaction);

    const stUsbTimes m_times;
    LibusbContext m_context;
    LibusbDeviceList m_deviceList;  ///< of the latest pass: keeps the controllers' devices alive
    std::unique_ptr<QTimer> m_searchTimer;      ///< lives on the main thread
    std::atomic<bool> m_isInitialized = false;  ///< the first pass is over: the worker may search
    QList<stVendorProduct> m_vendorProductList;
    QMutex m_mutex;  ///< held by every transaction for its whole length
    std::atomic<bool> m_isTerminating = false;
    std::vector<std::unique_ptr<ClUsbController>> m_controllerList;  ///< in the order of opening
    std::atomic<std::size_t> m_controllerCount = 0;  ///< of the list, for other threads to ask
    std::vector<stConnectWait> m_connectWaitTimers;
    std::map<DevicePlace, int> m_openingFailures;  ///< libusb errors that have been reported
};
