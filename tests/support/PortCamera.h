// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClCameraAccess.h"
#include "protocol/ClNuboTransactions.h"
#include "protocol/ResultCodes.h"

#include <QList>

#include <utility>

/// The USB side with one live camera behind a bulk port: runs requests as the USB manager does, on
/// the thread that calls. Messages are collected.
///
/// @tparam Port a ClBulkPort whose stop() is the stop flag of the transactions
template <class Port>
class PortCamera : public ClCameraAccess {
public:
    /// Makes the port of @p arguments.
    template <class... Arguments>
    explicit PortCamera(Arguments&&... arguments) : m_port(std::forward<Arguments>(arguments)...) {}

    /// The live camera, as requests name it: only the address counts, nobody looks behind it.
    [[nodiscard]] void* camera() { return m_camera; }
    void setCamera(void* camera) { m_camera = camera; }
    [[nodiscard]] const Port& port() const { return m_port; }
    [[nodiscard]] const QList<VX_CMD>& messages() const { return m_messages; }
    /// The controllers that raw data was asked of.
    [[nodiscard]] const QList<void*>& rawReads() const { return m_rawReads; }

    unsigned short execNuboCommand(ClNuboCommand& command, ClUsbController* controller,
                                   int timeoutMs) override {
        return isLive(controller) ? m_transactions.command(command, timeoutMs) : USB_NO_DEVICE;
    }
    unsigned short execNuboDataWrite(ClNuboCommand& command, ClNuboCommandDataSend& data,
                                     ClUsbController* controller) override {
        return isLive(controller) ? m_transactions.dataWrite(command, data) : USB_NO_DEVICE;
    }
    unsigned short execNuboDataRead(ClNuboCommand& command, ClNuboCommandDataReceive& data,
                                    ClUsbController* controller) override {
        return isLive(controller) ? m_transactions.dataRead(command, data) : USB_NO_DEVICE;
    }
    unsigned short execNuboGetWifiInfo(ClUsbController* controller, stWifiInfo* info) override {
        return isLive(controller) ? m_transactions.wifiInfo(*info) : USB_ERROR_BAD_PARAM;
    }
    unsigned short execNuboGetAccesspointList(ClUsbController* controller,
                                              QList<stAccesspointInfo>* list) override {
        return isLive(controller) ? m_transactions.accesspointList(*list) : USB_ERROR_BAD_PARAM;
    }
    void readRawData(ClUsbController* controller) override { m_rawReads.append(controller); }
    void sendMessage(const VX_CMD& message) override { m_messages.append(message); }
    void sendCommunicationResult(void* controller, QUuid command, unsigned short result) override {
        sendMessage(communicationResult(controller, command, result));
    }

private:
    [[nodiscard]] bool isLive(const void* controller) const { return controller == m_camera; }

    Port m_port;
    void* m_camera = &m_port;
    ClNuboTransactions m_transactions{m_port, m_port.stop()};
    QList<VX_CMD> m_messages;
    QList<void*> m_rawReads;
};
