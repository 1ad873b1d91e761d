// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ClPiecewisePort.h"
#include "protocol/ClCameraAccess.h"
#include "settings/ClSettingAccess.h"
#include "usb/ClUsbController.h"

/// What a transaction that was not begun gives, because the user wishes to end: a code of neither
/// the transport nor the camera.
inline constexpr unsigned short NOT_BEGUN = 0xEE00;

/// One camera, claimed for the life of this object. Its operations run on the caller's thread, and
/// are over within the time-outs of their transfers. Those that take a controller ignore it.
class ClSession : public ClCameraTransactions {
public:
    /// @p device is borrowed.
    explicit ClSession(libusb_device* device) : m_controller(device), m_port(m_controller) {}

    /// Opens the device and claims its interface. @return 0, or the libusb error that tells a user
    /// most.
    [[nodiscard]] int open();

    [[nodiscard]] ClSettingAccess& settings() { return m_settings; }
    [[nodiscard]] ClPiecewisePort& port() { return m_port; }

    /// Sends @p command and parses the answer into it.
    [[nodiscard]] unsigned short run(ClNuboCommand& command);

    [[nodiscard]] unsigned short execNuboCommand(ClNuboCommand& command,
                                                 ClUsbController* controller,
                                                 int timeoutMs) override;
    [[nodiscard]] unsigned short execNuboDataWrite(ClNuboCommand& command,
                                                   ClNuboCommandDataSend& data,
                                                   ClUsbController* controller) override;
    [[nodiscard]] unsigned short execNuboDataRead(ClNuboCommand& command,
                                                  ClNuboCommandDataReceive& data,
                                                  ClUsbController* controller) override;
    [[nodiscard]] unsigned short execNuboGetWifiInfo(ClUsbController* controller,
                                                     stWifiInfo* info) override;
    [[nodiscard]] unsigned short execNuboGetAccesspointList(
        ClUsbController* controller, QList<stAccesspointInfo>* list) override;

private:
    template <class Transaction>
    [[nodiscard]] unsigned short transact(Transaction transaction);

    ClUsbController m_controller;
    ClPiecewisePort m_port;
    ClSettingAccess m_settings{*this};
};
