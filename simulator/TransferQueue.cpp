// SPDX-License-Identifier: MIT
#include "simulator/TransferQueue.h"

#include "simulator/Wire.h"

#include <algorithm>
#include <cerrno>
#include <functional>
#include <iterator>
#include <utility>

namespace nubo::simulator {

namespace {

/// True for a fault that strikes the first packet of a data phase, and is kept until one comes.
bool waitsForData(const Fault& fault) {
    return fault.kind == FaultKind::WrongDataHead;
}

/// Moves the faults that @p matches picks from one list to the end of the other.
template <class Predicate>
void moveFaults(std::vector<Fault>& from, std::vector<Fault>& to, Predicate matches) {
    std::ranges::copy_if(from, std::back_inserter(to), matches);
    std::erase_if(from, matches);
}

}  // namespace

std::span<std::uint8_t> Transfer::bytes() const {
    if (!buffer) {
        return {};
    }
    return {buffer->data, static_cast<std::size_t>(buffer->data_len)};
}

TransferQueue::Outcome TransferQueue::submit(Transfer transfer) {
    if (m_halted.contains(transfer.header().endpoint)) {
        finish(std::move(transfer), -EPIPE);
        return {};
    }
    for (const Fault& fault : faultsFor(transfer)) {
        const FaultInfo& info = faultInfo(fault.kind);
        switch (info.effect) {
            case FaultEffect::Refuse:
                return {info.code, false};
            case FaultEffect::LeaveBefore:
                return {ENODEV, true};
            case FaultEffect::Leave:
                add(std::move(transfer));
                return {0, true};
            case FaultEffect::LeaveBroken:
                finish(std::move(transfer), info.code);
                return {0, true};
            case FaultEffect::Halt:
                m_halted.insert(transfer.header().endpoint);
                [[fallthrough]];
            case FaultEffect::Finish:
                finish(std::move(transfer), info.code);
                return {};
            case FaultEffect::Hold:
                transfer.held = true;
                break;
            case FaultEffect::Delay:
                transfer.notBefore =
                    Transfer::Clock::now() + std::chrono::milliseconds(fault.argument);
                break;
            case FaultEffect::Rewrite:
                (transfer.isIn() ? transfer.rewrites : m_armed).push_back(fault);
                break;
        }
    }
    add(std::move(transfer));
    serve();
    return {};
}

std::vector<Fault> TransferQueue::faultsFor(Transfer& transfer) {
    std::vector<Fault> struck = m_record->faults.strike(FaultUnit::Transfer);
    if (transfer.isIn()) {
        moveFaults(m_armed, struck, std::not_fn(waitsForData));
    } else if (isOfType(transfer.bytes(), PacketType::Command)) {
        armForAnswer(transfer);
    }
    return struck;
}

void TransferQueue::armForAnswer(Transfer& command) {
    ++m_record->log.commandCount;
    m_armed = m_record->faults.strike(FaultUnit::Command);
    command.lost = std::erase_if(m_armed, [](const Fault& fault) {
                       return fault.kind == FaultKind::Timeout;
                   }) > 0;
}

void TransferQueue::serve() {
    auto next = m_pending.begin();
    while (next != m_pending.end()) {
        const bool served = serveOne(next++);
        if (served) {
            next = m_pending.begin();
        }
    }
}

bool TransferQueue::serveOne(Position position) {
    if (position->held || position->notBefore > Transfer::Clock::now()) {
        return false;
    }
    if (position->isIn()) {
        return serveIn(position);
    }
    serveOut(position);
    return true;
}

void TransferQueue::serveOut(Position position) {
    Transfer transfer = take(position);
    const std::span<const std::uint8_t> packet = transfer.bytes();
    if (!transfer.lost) {
        m_record->device->receive(packet);
    }
    finish(std::move(transfer), 0, packet.size());
}

bool TransferQueue::serveIn(Position position) {
    std::optional<std::vector<std::uint8_t>> packet = nextPacket();
    if (!packet) {
        return false;
    }
    deliver(take(position), std::move(*packet));
    return true;
}

std::optional<std::vector<std::uint8_t>> TransferQueue::nextPacket() {
    if (!m_unsent.empty()) {
        return std::exchange(m_unsent, {});
    }
    return m_record->device->send();
}

void TransferQueue::deliver(Transfer transfer, std::vector<std::uint8_t> packet) {
    const std::span<std::uint8_t> room = transfer.bytes();
    if (isOfType(packet, PacketType::Data)) {
        moveFaults(m_armed, transfer.rewrites, waitsForData);
    }
    for (const Fault& fault : transfer.rewrites) {
        if (fault.kind == FaultKind::EmptyPacket) {
            m_unsent = packet;
        }
        rewritePacket(fault, room.size(), packet);
    }
    const std::size_t moved = std::min(packet.size(), room.size());
    std::copy_n(packet.begin(), moved, room.begin());
    int status = 0;
    if (moved < packet.size()) {
        // With room for a whole number of USB packets, the host reads the rest with its next
        // transfer.
        if (room.size() % transfer.packetSize == 0) {
            m_unsent.assign(packet.begin() + static_cast<std::ptrdiff_t>(moved), packet.end());
        } else {
            status = -EOVERFLOW;
        }
    }
    finish(std::move(transfer), status, moved);
}

void TransferQueue::add(Transfer transfer) {
    m_pending.push_back(std::move(transfer));
    m_record->log.pendingTransfers = m_pending.size();
}

Transfer TransferQueue::take(Position position) {
    Transfer transfer = std::move(*position);
    m_pending.erase(position);
    m_record->log.pendingTransfers = m_pending.size();
    return transfer;
}

void TransferQueue::finish(Transfer transfer, int status, std::size_t moved) {
    transfer.status = status;
    transfer.moved = moved;
    const usbdevfs_urb& urb = transfer.header();
    if (urb.type == USBDEVFS_URB_TYPE_BULK) {
        m_record->log.addTransfer({urb.endpoint, transfer.bytes().size(), moved, status});
    }
    UMockdevIoctlClient* const client = transfer.client;
    m_finished[client].push_back(std::move(transfer));
}

void TransferQueue::finishAll(int status) {
    while (!m_pending.empty()) {
        finish(take(m_pending.begin()), status);
    }
}

bool TransferQueue::discard(UMockdevIoctlClient* client, unsigned long address) {
    const auto position = std::ranges::find_if(m_pending, [&](const Transfer& transfer) {
        return transfer.client == client && transfer.urb->client_addr == address;
    });
    if (position == m_pending.end()) {
        return false;
    }
    finish(take(position), -ENOENT);
    return true;
}

std::optional<Transfer> TransferQueue::reap(UMockdevIoctlClient* client) {
    const auto finished = m_finished.find(client);
    if (finished == m_finished.end() || finished->second.empty()) {
        return std::nullopt;
    }
    Transfer transfer = std::move(finished->second.front());
    finished->second.pop_front();
    transfer.header().status = transfer.status;
    transfer.header().actual_length = static_cast<int>(transfer.moved);
    return transfer;
}

void TransferQueue::forget(UMockdevIoctlClient* client) {
    std::erase_if(m_pending, [&](const Transfer& transfer) { return transfer.client == client; });
    m_record->log.pendingTransfers = m_pending.size();
    m_finished.erase(client);
}

}  // namespace nubo::simulator
