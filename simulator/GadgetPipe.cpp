// SPDX-License-Identifier: MIT
#include "simulator/GadgetPipe.h"

#include "simulator/FunctionDescriptors.h"
#include "simulator/MessageCutter.h"
#include "simulator/Wire.h"

#include <fcntl.h>
#include <linux/usb/functionfs.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <utility>

namespace nubo::simulator {

namespace {

constexpr std::uint8_t IN_ENDPOINT = 0x81;
constexpr std::uint8_t OUT_ENDPOINT = 0x02;
/// The host has room for so many bytes each time it asks for a packet.
constexpr std::size_t HOST_ROOM = 1024;
/// After a failure of an endpoint, until its reason has been told on ep0.
constexpr std::chrono::milliseconds SETTLE_TIME{10};

bool writeAll(const FileDescriptor& file, const std::vector<std::uint8_t>& bytes) {
    return ::write(file.number(), bytes.data(), bytes.size()) ==
           static_cast<::ssize_t>(bytes.size());
}

/// The size of the endpoint's packets at the speed of now; nothing when no host has configured it.
std::optional<std::size_t> packetSize(const FileDescriptor& endpoint) {
    usb_endpoint_descriptor descriptor{};
    if (::ioctl(endpoint.number(), FUNCTIONFS_ENDPOINT_DESC, &descriptor) != 0) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(descriptor.wMaxPacketSize);
}

/// What the host sees of a cable that is pulled, its own kernel decides.
bool leavesBus(const Fault& fault) {
    return fault.kind == FaultKind::DeviceGone || fault.kind == FaultKind::LinkError;
}

/// True for a fault that alters the first packet of a data phase, and is kept until one comes.
bool waitsForData(const Fault& fault) {
    return fault.kind == FaultKind::WrongDataHead;
}

}  // namespace

GadgetPipe::GadgetPipe(std::shared_ptr<VirtualDevice> device, GadgetHooks hooks)
    : m_device(std::move(device)),
      m_hooks(std::move(hooks)) {}

GadgetPipe::~GadgetPipe() {
    end();
}

std::string GadgetPipe::open(const std::filesystem::path& folder, const AlternateSetting& setting) {
    const auto openFile = [&](const char* name, int flags) {
        return FileDescriptor(::open((folder / name).c_str(), flags | O_CLOEXEC));
    };
    m_control = openFile("ep0", O_RDWR);
    if (!m_control || !writeAll(m_control, encodeFunction(setting)) ||
        !writeAll(m_control, encodeFunctionStrings())) {
        return (folder / "ep0").string() + ": " + std::strerror(errno);
    }
    // What does not wait for a host fails at once instead of going to the next one.
    m_in = openFile("ep1", O_RDWR | O_NONBLOCK);
    m_out = openFile("ep2", O_RDWR | O_NONBLOCK);
    m_wake = FileDescriptor(::eventfd(0, EFD_CLOEXEC));
    if (!m_in || !m_out || !m_wake) {
        return folder.string() + ": " + std::strerror(errno);
    }
    m_threads.emplace_back([this] { watchEvents(); });
    m_threads.emplace_back([this] { readPackets(); });
    m_threads.emplace_back([this] { sendPackets(); });
    return {};
}

void GadgetPipe::end() {
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    if (m_wake) {
        ::eventfd_write(m_wake.number(), 1);
    }
    for (std::thread& thread : m_threads) {
        thread.join();
    }
    m_threads.clear();
}

void GadgetPipe::plugged() {
    const std::lock_guard lock(m_mutex);
    ++m_plugging;
    ++m_log.timesPlugged;
    m_armed.clear();
    m_device->plugged();
}

void GadgetPipe::unplugged() {
    const std::lock_guard lock(m_mutex);
    ++m_plugging;
    m_configured = false;
    m_device->unplugged();
}

void GadgetPipe::watchEvents() {
    std::array<pollfd, 2> waiting = {pollfd{m_control.number(), POLLIN, 0},
                                     pollfd{m_wake.number(), POLLIN, 0}};
    while (true) {
        const bool hasCome = ::poll(waiting.data(), waiting.size(), -1) > 0;
        const std::lock_guard lock(m_mutex);
        if (m_stopping) {
            return;
        }
        if (!hasCome || (waiting.front().revents & POLLIN) == 0) {
            continue;
        }
        std::array<usb_functionfs_event, 4> events{};
        const ::ssize_t size = ::read(m_control.number(), events.data(), sizeof(events));
        const auto count = size < 0 ? 0 : static_cast<std::size_t>(size) / sizeof(events[0]);
        for (const usb_functionfs_event& event : std::span(events).first(count)) {
            handleEvent(event);
        }
        m_changed.notify_all();
    }
}

void GadgetPipe::handleEvent(const usb_functionfs_event& event) {
    switch (event.type) {
        case FUNCTIONFS_ENABLE:
            m_configured = true;
            break;
        case FUNCTIONFS_DISABLE:
        case FUNCTIONFS_UNBIND:
            m_configured = false;
            break;
        case FUNCTIONFS_SETUP: {
            // The camera knows no requests of its own. A transfer in the wrong direction is the way
            // to stall.
            std::uint8_t nothing = 0;
            const bool isIn = (event.u.setup.bRequestType & USB_DIR_IN) != 0;
            [[maybe_unused]] const ::ssize_t stalled =
                isIn ? ::read(m_control.number(), &nothing, 0)
                     : ::write(m_control.number(), &nothing, 0);
            break;
        }
        default:
            break;
    }
}

/// Waits for so long, but not beyond the end; false at the end.
bool GadgetPipe::wait(Lock& lock, std::chrono::milliseconds time) {
    return !m_changed.wait_for(lock, time, [this] { return m_stopping; });
}

void GadgetPipe::readPackets() {
    MessageCutter cutter;
    std::vector<std::uint8_t> room(MessageCutter::PIECE);
    Lock lock(m_mutex);
    while (!m_stopping) {
        if (!m_configured) {
            cutter.reset();
            m_changed.wait(lock);
            continue;
        }
        lock.unlock();
        const auto size = packetSize(m_out);
        const std::size_t asked = size ? cutter.wanted(*size) : 0;
        const ::ssize_t count = size ? ::read(m_out.number(), room.data(), asked) : -1;
        lock.lock();
        if (count < 0) {
            cutter.reset();
            wait(lock, SETTLE_TIME);
            continue;
        }
        const auto bytes = std::span(room).first(static_cast<std::size_t>(count));
        if (const auto piece = cutter.take(bytes, asked)) {
            receive(*piece);
        }
    }
}

void GadgetPipe::receive(const Packet& piece) {
    m_log.addTransfer({OUT_ENDPOINT, piece.size(), piece.size(), 0});
    bool lost = false;
    for (const Fault& fault : m_faults.strike(FaultUnit::Transfer)) {
        if (leavesBus(fault)) {
            m_hooks.leaveBus();
            return;
        }
        m_armed.push_back(fault);
    }
    if (isOfType(piece, PacketType::Command)) {
        ++m_log.commandCount;
        std::ranges::copy(m_faults.strike(FaultUnit::Command), std::back_inserter(m_armed));
        lost = std::erase_if(m_armed, [](const Fault& fault) {
                   return fault.kind == FaultKind::Timeout;
               }) > 0;
    }
    if (!lost) {
        m_device->receive(piece);
        m_changed.notify_all();
    }
}

void GadgetPipe::sendPackets() {
    Lock lock(m_mutex);
    while (!m_stopping) {
        const auto time = m_device->sendTime();
        if (!time || !m_configured) {
            m_changed.wait(lock);
        } else if (*time > std::chrono::steady_clock::now()) {
            m_changed.wait_until(lock, *time);
        } else {
            sendNext(lock);
        }
    }
}

/// Sends the next packet, with what strikes it.
void GadgetPipe::sendNext(Lock& lock) {
    const std::uint64_t plugging = m_plugging;
    std::optional<Packet> packet = m_device->send();
    if (!packet) {
        return;
    }
    const bool isData = isOfType(*packet, PacketType::Data);
    std::vector<Fault> struck = m_faults.strike(FaultUnit::Transfer);
    const auto applies = [&](const Fault& fault) { return isData || !waitsForData(fault); };
    std::ranges::copy_if(m_armed, std::back_inserter(struck), applies);
    std::erase_if(m_armed, applies);
    bool emptyFirst = false;
    for (const Fault& fault : struck) {
        switch (fault.kind) {
            case FaultKind::DeviceGone:
            case FaultKind::LinkError:
                m_hooks.leaveBus();
                return;
            case FaultKind::Halt:
                halt();
                return;
            case FaultKind::Delay:
                wait(lock, std::chrono::milliseconds(fault.argument));
                break;
            case FaultKind::EmptyPacket:
                emptyFirst = true;
                break;
            default:
                rewritePacket(fault, HOST_ROOM, *packet);
                break;
        }
    }
    // What was meant for an earlier host does not go to this one.
    if (m_stopping || plugging != m_plugging || (emptyFirst && !sendPacket(lock, {})) ||
        !sendPacket(lock, *packet)) {
        return;
    }
    if (m_device->wantsRestart()) {
        m_hooks.restart();
    }
    if (m_device->wantsPowerOff()) {
        m_hooks.powerOff();
    }
}

/// Waits until the host has taken the packet; false when it never will.
bool GadgetPipe::sendPacket(Lock& lock, const Packet& packet) {
    lock.unlock();
    bool sent = writeAll(m_in, packet);
    const auto size = packetSize(m_in);
    // The end of a packet that leaves the host room, and no USB packet unfilled, is an empty one.
    if (sent && size && !packet.empty() && packet.size() % *size == 0 &&
        packet.size() % HOST_ROOM != 0) {
        sent = writeAll(m_in, {});
    }
    const int failure = sent ? 0 : -errno;
    lock.lock();
    m_log.addTransfer({IN_ENDPOINT, HOST_ROOM, sent ? packet.size() : 0, failure});
    return sent;
}

/// A transfer in the wrong direction is the way to halt an endpoint.
void GadgetPipe::halt() {
    std::uint8_t nothing = 0;
    [[maybe_unused]] const ::ssize_t halted = ::read(m_in.number(), &nothing, sizeof(nothing));
    m_log.addTransfer({IN_ENDPOINT, HOST_ROOM, 0, -EPIPE});
}

std::string GadgetPipe::refusal(const Fault& fault) {
    switch (fault.kind) {
        case FaultKind::Busy:
            return "a gadget cannot do this: the host's kernel takes or refuses a transfer";
        case FaultKind::Stall:
            return "a gadget cannot do this: its endpoint stalls until the host clears it (see "
                   "halt)";
        case FaultKind::Babble:
            return "a gadget cannot do this: its controller keeps to the size of the packets";
        case FaultKind::UnplugBefore:
            return "a gadget cannot do this: it learns of a transfer when it is under way (see "
                   "device-gone)";
        case FaultKind::Timeout:
            return fault.unit == FaultUnit::Command
                       ? ""
                       : "a gadget cannot do this: it learns of a transfer when it has been served "
                         "(\"fault timeout command N\" leaves the answer out)";
        default:
            return {};
    }
}

void GadgetPipe::addFault(const Fault& fault) {
    const std::lock_guard lock(m_mutex);
    m_faults.add(fault);
}

void GadgetPipe::clearFaults() {
    const std::lock_guard lock(m_mutex);
    m_faults.clear();
}

DeviceLog GadgetPipe::log() const {
    const std::lock_guard lock(m_mutex);
    return m_log;
}

bool GadgetPipe::isConfigured() const {
    const std::lock_guard lock(m_mutex);
    return m_configured;
}

}  // namespace nubo::simulator
