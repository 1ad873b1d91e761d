// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace nubo::simulator {

/// One finished bulk transfer.
struct TransferRecord {
    std::uint8_t endpoint = 0;
    std::size_t requested = 0;  ///< bytes offered (OUT) or room for bytes (IN)
    std::size_t moved = 0;      ///< bytes that went over
    int status = 0;             ///< 0, or a negative errno: -ENOENT was given up by the host
};

/// What has happened to one device since it was first plugged in.
struct DeviceLog {
    static constexpr std::size_t TRANSFERS_KEPT = 10000;

    std::vector<int> claims;         ///< interface numbers, in order of success
    std::vector<int> refusedClaims;  ///< interface numbers
    std::vector<int> releases;       ///< interface numbers, as far as the host released by itself
    std::deque<TransferRecord> transfers;  ///< the latest TRANSFERS_KEPT, in order of their end
    std::uint64_t transferCount = 0;       ///< all finished transfers
    std::uint64_t commandCount = 0;        ///< OUT transfers that carried a command
    std::size_t pendingTransfers = 0;      ///< submitted and not yet finished
    int openHandles = 0;  ///< on the node of the latest plugging-in, even if it has gone
    int timesOpened = 0;
    int timesPlugged = 0;

    void addTransfer(const TransferRecord& record) {
        if (transfers.size() == TRANSFERS_KEPT) {
            transfers.pop_front();
        }
        transfers.push_back(record);
        ++transferCount;
    }
};

}  // namespace nubo::simulator
