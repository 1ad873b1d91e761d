// SPDX-License-Identifier: MIT
#include "simulator/DeviceNode.h"

#include "simulator/UsbDescriptors.h"
#include "simulator/Wire.h"

#include <linux/usbdevice_fs.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace nubo::simulator {

namespace {

constexpr std::uint32_t CAPABILITIES = USBDEVFS_CAP_ZERO_PACKET | USBDEVFS_CAP_NO_PACKET_SIZE_LIM |
                                       USBDEVFS_CAP_BULK_SCATTER_GATHER |
                                       USBDEVFS_CAP_REAP_AFTER_DISCONNECT;

/// The memory that a pointer in @p data leads to, mapped so that changes go back to the client;
/// null when the client's memory cannot be read.
GObjectPtr<UMockdevIoctlData> pointedTo(UMockdevIoctlData* data, std::size_t size,
                                        std::size_t offset = 0) {
    return GObjectPtr<UMockdevIoctlData>(umockdev_ioctl_data_resolve(data, offset, size, nullptr));
}

std::optional<unsigned> pointedNumber(UMockdevIoctlData* argument) {
    unsigned number = 0;
    const auto data = pointedTo(argument, sizeof(number));
    if (!data) {
        return std::nullopt;
    }
    std::memcpy(&number, data->data, sizeof(number));
    return number;
}

using Owner = std::shared_ptr<DeviceNode>;

}  // namespace

DeviceNode::DeviceNode(std::shared_ptr<DeviceRecord> record, DeviceHooks hooks)
    : m_record(std::move(record)),
      m_hooks(std::move(hooks)),
      m_plugging(m_record->log.timesPlugged),
      m_claims(m_record),
      m_transfers(m_record) {
    m_record->log.openHandles = 0;
}

GObjectPtr<UMockdevIoctlBase> DeviceNode::makeHandler() {
    using Handler = gboolean (*)(UMockdevIoctlBase*, UMockdevIoctlClient*, gpointer);
    using Notice = void (*)(UMockdevIoctlBase*, UMockdevIoctlClient*, gpointer);
    const Handler onIoctl = [](UMockdevIoctlBase*, UMockdevIoctlClient* client,
                               gpointer owner) -> gboolean {
        (*static_cast<Owner*>(owner))->handle(client);
        return TRUE;
    };
    const Notice onConnected = [](UMockdevIoctlBase*, UMockdevIoctlClient* client, gpointer owner) {
        (*static_cast<Owner*>(owner))->clientConnected(client);
    };
    const std::array connections = {
        std::pair{"handle-ioctl", reinterpret_cast<GCallback>(onIoctl)},
        std::pair{"client-connected", reinterpret_cast<GCallback>(onConnected)},
    };
    const GClosureNotify release = [](gpointer owner, GClosure*) {
        delete static_cast<Owner*>(owner);
    };
    GObjectPtr<UMockdevIoctlBase> handler(umockdev_ioctl_base_new());
    for (const auto& [signal, callback] : connections) {
        g_signal_connect_data(handler.get(), signal, callback, new Owner(shared_from_this()),
                              release, GConnectFlags{});
    }
    return handler;
}

void DeviceNode::leave() {
    if (m_gone) {
        return;
    }
    m_gone = true;
    m_transfers.finishAll(-ESHUTDOWN);
    m_record->device->unplugged();
}

void DeviceNode::handle(UMockdevIoctlClient* client) {
    Reply reply;
    {
        const std::lock_guard lock(m_hooks.mutex);
        reply = dispatch(client);
    }
    m_hooks.changed.notify_all();
    umockdev_ioctl_client_complete(client, reply.result, reply.error);
}

DeviceNode::Reply DeviceNode::dispatch(UMockdevIoctlClient* client) {
    // clang-format off
    static constexpr std::array HANDLERS = {
        RequestHandler{USBDEVFS_REAPURBNDELAY,    true,  &DeviceNode::reapUrb},
        RequestHandler{USBDEVFS_SUBMITURB,        false, &DeviceNode::submitUrb},
        RequestHandler{USBDEVFS_DISCARDURB,       false, &DeviceNode::discardUrb},
        RequestHandler{USBDEVFS_GET_CAPABILITIES, false, &DeviceNode::getCapabilities},
        RequestHandler{USBDEVFS_GETDRIVER,        false, &DeviceNode::getDriver},
        RequestHandler{USBDEVFS_CLAIMINTERFACE,   false, &DeviceNode::claimInterface},
        RequestHandler{USBDEVFS_RELEASEINTERFACE, false, &DeviceNode::releaseInterface},
        RequestHandler{USBDEVFS_SETINTERFACE,     false, &DeviceNode::clearHalts},
        RequestHandler{USBDEVFS_CLEAR_HALT,       false, &DeviceNode::clearHalt},
        RequestHandler{USBDEVFS_RESET,            false, &DeviceNode::clearHalts},
    };
    // clang-format on
    const unsigned long request = umockdev_ioctl_client_get_request(client);
    const auto row = std::ranges::find(HANDLERS, request, &RequestHandler::request);
    if (row == HANDLERS.end()) {
        return failure(ENOTTY);
    }
    if (m_gone && !row->worksWhenGone) {
        return failure(ENODEV);
    }
    return (this->*row->handle)(client, umockdev_ioctl_client_get_arg(client));
}

DeviceNode::Reply DeviceNode::getCapabilities(UMockdevIoctlClient*, UMockdevIoctlData* argument) {
    const auto capabilities = pointedTo(argument, sizeof(CAPABILITIES));
    if (!capabilities) {
        return failure(EFAULT);
    }
    std::memcpy(capabilities->data, &CAPABILITIES, sizeof(CAPABILITIES));
    return {};
}

DeviceNode::Reply DeviceNode::getDriver(UMockdevIoctlClient*, UMockdevIoctlData*) {
    return failure(ENODATA);
}

DeviceNode::Reply DeviceNode::clearHalt(UMockdevIoctlClient*, UMockdevIoctlData* argument) {
    const std::optional<unsigned> endpoint = pointedNumber(argument);
    if (!endpoint) {
        return failure(EFAULT);
    }
    m_transfers.clearHalt(static_cast<std::uint8_t>(*endpoint));
    return {};
}

/// A device that is reset, or whose interface is set anew, stalls nowhere (USB 2.0, 9.4.5).
DeviceNode::Reply DeviceNode::clearHalts(UMockdevIoctlClient*, UMockdevIoctlData*) {
    m_transfers.clearHalts();
    return {};
}

DeviceNode::Reply DeviceNode::claimInterface(UMockdevIoctlClient* client,
                                             UMockdevIoctlData* argument) {
    const std::optional<unsigned> number = pointedNumber(argument);
    return replyOf(number ? m_claims.claim(client, static_cast<int>(*number)) : ENOENT);
}

DeviceNode::Reply DeviceNode::releaseInterface(UMockdevIoctlClient* client,
                                               UMockdevIoctlData* argument) {
    const std::optional<unsigned> number = pointedNumber(argument);
    return replyOf(number ? m_claims.release(client, static_cast<int>(*number)) : EINVAL);
}

/// Answers requests for string descriptors, and stalls on all other control requests.
DeviceNode::Reply DeviceNode::answerControl(Transfer transfer) {
    constexpr std::uint16_t GET_DESCRIPTOR_OF_DEVICE = 0x0680;
    constexpr std::size_t VALUE_OFFSET = 2;
    constexpr std::size_t SETUP_SIZE = 8;
    constexpr int BITS_PER_BYTE = 8;
    constexpr std::uint16_t STRING_DESCRIPTOR = 3;
    const std::span<std::uint8_t> bytes = transfer.bytes();
    const std::uint16_t value = readU16(bytes, VALUE_OFFSET);
    std::vector<std::uint8_t> answer;
    if (bytes.size() >= SETUP_SIZE && readU16(bytes, 0) == GET_DESCRIPTOR_OF_DEVICE &&
        value >> BITS_PER_BYTE == STRING_DESCRIPTOR) {
        answer = encodeString(static_cast<std::uint8_t>(value), m_record->serialNumber);
    }
    if (answer.empty()) {
        m_transfers.finish(std::move(transfer), -EPIPE);
        return {};
    }
    const std::span<std::uint8_t> room = bytes.subspan(SETUP_SIZE);
    const std::size_t moved = std::min(answer.size(), room.size());
    std::copy_n(answer.begin(), moved, room.begin());
    m_transfers.finish(std::move(transfer), 0, moved);
    return {};
}

DeviceNode::Reply DeviceNode::submitUrb(UMockdevIoctlClient* client, UMockdevIoctlData* argument) {
    Transfer transfer;
    transfer.client = client;
    transfer.urb = pointedTo(argument, sizeof(usbdevfs_urb));
    if (!transfer.urb) {
        return failure(EFAULT);
    }
    const usbdevfs_urb& urb = transfer.header();
    const bool isControl = urb.type == USBDEVFS_URB_TYPE_CONTROL;
    const EndpointDescription* const endpoint = m_claims.endpoint(client, urb.endpoint);
    if (endpoint == nullptr && !isControl) {
        return failure(ENOENT);
    }
    if ((urb.type != USBDEVFS_URB_TYPE_BULK && !isControl) || urb.buffer_length < 0) {
        return failure(EINVAL);
    }
    transfer.memory = m_hooks.memory.take(static_cast<std::size_t>(urb.buffer_length));
    if (!transfer.memory) {
        return failure(ENOMEM);
    }
    if (urb.buffer_length > 0) {
        transfer.buffer = pointedTo(transfer.urb.get(), static_cast<std::size_t>(urb.buffer_length),
                                    offsetof(usbdevfs_urb, buffer));
        if (!transfer.buffer) {
            return failure(EFAULT);
        }
    }
    if (isControl) {
        return answerControl(std::move(transfer));
    }
    transfer.packetSize = endpoint->maxPacketSize;
    const TransferQueue::Outcome outcome = m_transfers.submit(std::move(transfer));
    if (outcome.deviceLeft) {
        leave();
        m_hooks.leaveBus();
    }
    return replyOf(outcome.error);
}

DeviceNode::Reply DeviceNode::discardUrb(UMockdevIoctlClient* client, UMockdevIoctlData* argument) {
    unsigned long address = 0;
    std::memcpy(&address, argument->data, sizeof(address));
    return m_transfers.discard(client, address) ? Reply{} : failure(EINVAL);
}

DeviceNode::Reply DeviceNode::reapUrb(UMockdevIoctlClient* client, UMockdevIoctlData* argument) {
    if (!m_gone) {
        m_transfers.serve();
    }
    const std::optional<Transfer> transfer = m_transfers.reap(client);
    if (!transfer) {
        return failure(m_gone ? ENODEV : EAGAIN);
    }
    const auto slot = pointedTo(argument, sizeof(void*));
    if (!slot) {
        return failure(EFAULT);
    }
    umockdev_ioctl_data_set_ptr(slot.get(), 0, transfer->urb.get());
    if (!m_gone && transfer->isIn() && m_record->device->wantsRestart()) {
        m_hooks.restart();
    }
    if (!m_gone && transfer->isIn() && m_record->device->wantsPowerOff()) {
        m_hooks.leaveBus();
    }
    return {};
}

void DeviceNode::clientConnected(UMockdevIoctlClient* client) {
    {
        const std::lock_guard lock(m_hooks.mutex);
        // A kernel opens no node of a device that has gone. This client's first call says so; when
        // it closes its end is not always noticed, for the testbed is leaving the node as well.
        if (m_gone) {
            return;
        }
        m_claims.addClient(client);
        countHandles(1);
        ++m_record->log.timesOpened;
    }
    m_hooks.changed.notify_all();
    // The testbed does not send "client-vanished"; that the client has closed its handle shows when
    // its object is destroyed.
    const GWeakNotify onVanished = [](gpointer owner, GObject* where) {
        const std::unique_ptr<Owner> self(static_cast<Owner*>(owner));
        (*self)->clientVanished(reinterpret_cast<UMockdevIoctlClient*>(where));
    };
    g_object_weak_ref(G_OBJECT(client), onVanished, new Owner(shared_from_this()));
}

void DeviceNode::clientVanished(UMockdevIoctlClient* client) {
    {
        const std::lock_guard lock(m_hooks.mutex);
        m_claims.removeClient(client);
        m_transfers.forget(client);
        countHandles(-1);
    }
    m_hooks.changed.notify_all();
}

/// The end of a handle on a node that has gone is not always noticed: such a node counts only until
/// there is another one.
void DeviceNode::countHandles(int change) {
    m_openHandles += change;
    if (m_plugging == m_record->log.timesPlugged) {
        m_record->log.openHandles = m_openHandles;
    }
}

}  // namespace nubo::simulator
