// SPDX-License-Identifier: MIT
#pragma once

#include <atomic>
#include <cstddef>
#include <memory>

namespace nubo::simulator {

/// The memory that the kernel lends to transfers under way, of all devices together. A transfer
/// that would exceed it is refused, as the kernel does with usbfs_memory_mb at its default of 16.
class TransferMemory {
public:
    static constexpr std::size_t LIMIT = 16 * 1024 * 1024;

    /// What one transfer has borrowed; the last copy gives it back, on any thread.
    using Share = std::shared_ptr<const void>;

    /// A share for a transfer of so many bytes, or null when too little is left. One thread at a
    /// time.
    Share take(std::size_t size) {
        const std::size_t whole = size + TRANSFER_HEAD + (size / PAGE_GROUP + 1) * PAGE_GROUP_HEAD;
        if (*m_used + whole > LIMIT) {
            return nullptr;
        }
        *m_used += whole;
        return {m_used.get(), [used = m_used, whole](const void*) { *used -= whole; }};
    }

private:
    // What the kernel keeps of a transfer beside its bytes, rounded.
    static constexpr std::size_t TRANSFER_HEAD = 320;
    static constexpr std::size_t PAGE_GROUP = 16 * 1024;
    static constexpr std::size_t PAGE_GROUP_HEAD = 32;

    std::shared_ptr<std::atomic<std::size_t>> m_used =
        std::make_shared<std::atomic<std::size_t>>(0);
};

}  // namespace nubo::simulator
