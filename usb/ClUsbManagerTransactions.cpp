// SPDX-License-Identifier: MIT
//
// The manager's transactions: they lock, check the list of live controllers and hand over to the
// protocol.

#include "protocol/ClNuboTransactions.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/RequestDispatcher.h"
#include "protocol/ResultCodes.h"
#include "usb/ClUsbController.h"
#include "usb/ClUsbManager.h"
#include "usb/UsbLog.h"

#include <QMutexLocker>

#include <algorithm>

namespace {
constexpr int RAW_READ_TIMEOUT_MS = 1000;
constexpr unsigned char RAW_READ_ENDPOINT = 0xFF;  // the controller's own IN endpoint
}  // namespace

/// Passes transfers on to a controller as long as it is live: one that finds its device gone is
/// deleted inside the transfer.
class ClUsbManager::LivePort : public ClBulkPort {
public:
    LivePort(const ClUsbManager& manager, ClUsbController* controller)
        : m_manager(manager),
          m_controller(controller) {}

    int write(const QByteArray& data, int timeoutMs, unsigned char endpoint) override {
        return m_manager.isLive(m_controller) ? m_controller->write(data, timeoutMs, endpoint)
                                              : USB_NO_DEVICE;
    }

    QByteArray read(int timeoutMs, unsigned char endpoint, int* status) override {
        if (!m_manager.isLive(m_controller)) {
            *status = USB_NO_DEVICE;
            return {};
        }
        return m_controller->read(timeoutMs, endpoint, status);
    }

private:
    const ClUsbManager& m_manager;
    ClUsbController* m_controller;
};

bool ClUsbManager::isLive(const ClUsbController* controller) const {
    return std::ranges::find(m_controllerList, controller,
                             &std::unique_ptr<ClUsbController>::get) != m_controllerList.end();
}

template <class Transaction>
unsigned short ClUsbManager::transact(ClUsbController* controller, Transaction transaction) {
    if (!isLive(controller)) {
        return USB_NO_DEVICE;
    }
    const QMutexLocker lock(&m_mutex);
    LivePort port(*this, controller);
    ClNuboTransactions transactions(port, m_isTerminating);
    return transaction(transactions);
}

unsigned short ClUsbManager::execNuboCommand(ClNuboCommand& command, ClUsbController* controller,
                                             int timeoutMs) {
    return transact(controller, [&](ClNuboTransactions& transactions) {
        return transactions.command(command, timeoutMs);
    });
}

unsigned short ClUsbManager::execNuboDataWrite(ClNuboCommand& command, ClNuboCommandDataSend& data,
                                               ClUsbController* controller) {
    return transact(controller, [&](ClNuboTransactions& transactions) {
        return transactions.dataWrite(command, data);
    });
}

unsigned short ClUsbManager::execNuboDataRead(ClNuboCommand& command,
                                              ClNuboCommandDataReceive& data,
                                              ClUsbController* controller) {
    return transact(controller, [&](ClNuboTransactions& transactions) {
        return transactions.dataRead(command, data);
    });
}

unsigned short ClUsbManager::execNuboGetWifiInfo(ClUsbController* controller, stWifiInfo* info) {
    if (!isLive(controller) || info == nullptr) {
        return USB_ERROR_BAD_PARAM;
    }
    return transact(controller, [info](ClNuboTransactions& transactions) {
        return transactions.wifiInfo(*info);
    });
}

unsigned short ClUsbManager::execNuboGetAccesspointList(ClUsbController* controller,
                                                        QList<stAccesspointInfo>* list) {
    if (!isLive(controller) || list == nullptr) {
        return USB_ERROR_BAD_PARAM;
    }
    return transact(controller, [list](ClNuboTransactions& transactions) {
        return transactions.accesspointList(*list);
    });
}

void ClUsbManager::readRawData(ClUsbController* controller) {
    if (!isLive(controller)) {
        return;
    }
    QByteArray bytes;
    {
        const QMutexLocker lock(&m_mutex);
        bytes = controller->read(RAW_READ_TIMEOUT_MS, RAW_READ_ENDPOINT, nullptr);
    }
    if (isLive(controller)) {
        sendMessage({{Key::CMD, USB_CMD_NOTIFY_RECEIVE_DATA},
                     {Key::PARAM1, QVariant::fromValue(static_cast<void*>(controller))},
                     {Key::PARAM2, bytes}});
    }
}

void ClUsbManager::sendMessage(const VX_CMD& message) {
    Q_EMIT sigSendCommand(message);
}

void ClUsbManager::sendCommunicationResult(void* controller, QUuid command, unsigned short result) {
    if (result != USB_ERROR_SUCCESS) {
        qCWarning(usbLog).noquote() << getUsbCommand(command) << "failed:" << resultText(result);
    }
    sendMessage(communicationResult(controller, command, result));
}

void ClUsbManager::slotReceiveCommand(const VX_CMD& clCommand) {
    // Requests that have piled up are still delivered after quit(): nobody waits for them any more.
    if (!m_isTerminating) {
        dispatchRequest(clCommand, *this);
    }
}
