// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceRecord.h"
#include "simulator/Fault.h"
#include "simulator/GObjectPtr.h"
#include "simulator/TransferMemory.h"

#include <linux/usbdevice_fs.h>
#include <umockdev.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <vector>

namespace nubo::simulator {

/// One request of the host to move bytes, from its submission until the host reaps it.
struct Transfer {
    using Clock = std::chrono::steady_clock;

    GObjectPtr<UMockdevIoctlData> urb;     ///< a usbdevfs_urb in the client's memory
    GObjectPtr<UMockdevIoctlData> buffer;  ///< null for a transfer of no bytes
    TransferMemory::Share memory;
    UMockdevIoctlClient* client = nullptr;
    std::size_t packetSize = 0;  ///< of the endpoint, in bytes
    bool held = false;           ///< never served
    bool lost = false;           ///< served, but not passed to the device
    Clock::time_point notBefore{};
    std::vector<Fault> rewrites{};
    int status = 0;         ///< how it has finished
    std::size_t moved = 0;  ///< bytes

    usbdevfs_urb& header() const { return *reinterpret_cast<usbdevfs_urb*>(urb->data); }
    std::span<std::uint8_t> bytes() const;
    bool isIn() const { return (header().endpoint & IN_DIRECTION) != 0; }

    static constexpr std::uint8_t IN_DIRECTION = 0x80;
};

/// The transfers of one device node. A transfer is pending until it is served, struck by a fault or
/// given up, then finished until its client reaps it. Not locked: the node holds the bus's mutex.
class TransferQueue {
public:
    /// What became of a submission.
    struct Outcome {
        int error = 0;            ///< errno; 0 when the transfer is accepted
        bool deviceLeft = false;  ///< the device leaves the bus at this moment
    };

    explicit TransferQueue(std::shared_ptr<DeviceRecord> record) : m_record(std::move(record)) {}

    Outcome submit(Transfer transfer);

    /// Serves whatever can be served now.
    void serve();

    /// Ends a transfer without passing it to the device.
    void finish(Transfer transfer, int status, std::size_t moved = 0);

    /// Ends every pending transfer with @p status.
    void finishAll(int status);

    /// Ends the client's pending transfer whose usbdevfs_urb lies at @p address in the client's
    /// memory, with -ENOENT; false when there is none.
    bool discard(UMockdevIoctlClient* client, unsigned long address);

    /// The client's oldest finished transfer, with its outcome written into the client's memory:
    /// only here, because the testbed's thread may be reading that memory until then.
    std::optional<Transfer> reap(UMockdevIoctlClient* client);

    /// The host clears one endpoint, or all of them: they stall no longer.
    void clearHalt(std::uint8_t endpoint) { m_halted.erase(endpoint); }
    void clearHalts() { m_halted.clear(); }

    /// Drops all transfers of a client that has closed its handle.
    void forget(UMockdevIoctlClient* client);

private:
    using Position = std::list<Transfer>::iterator;

    std::vector<Fault> faultsFor(Transfer& transfer);
    void armForAnswer(Transfer& command);
    bool serveOne(Position position);
    void serveOut(Position position);
    bool serveIn(Position position);
    void deliver(Transfer transfer, std::vector<std::uint8_t> packet);
    std::optional<std::vector<std::uint8_t>> nextPacket();
    void add(Transfer transfer);
    Transfer take(Position position);

    std::shared_ptr<DeviceRecord> m_record;
    std::list<Transfer> m_pending;
    std::map<UMockdevIoctlClient*, std::deque<Transfer>> m_finished;
    std::set<std::uint8_t> m_halted;     ///< endpoints that stall
    std::vector<std::uint8_t> m_unsent;  ///< what the last IN transfer had no room for
    std::vector<Fault> m_armed;          ///< faults for the next packet to the host
};

}  // namespace nubo::simulator
