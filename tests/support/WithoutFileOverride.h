// SPDX-License-Identifier: MIT
#pragma once

#include <linux/capability.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>

/// Takes from the calling thread, and from the threads that it starts, what lets root pass over
/// file permissions; as long as this object lives.
class WithoutFileOverride {
public:
    WithoutFileOverride() {
        syscall(SYS_capget, &m_header, m_kept.data());
        auto reduced = m_kept;
        reduced[0].effective &= ~(1U << CAP_DAC_OVERRIDE | 1U << CAP_DAC_READ_SEARCH);
        syscall(SYS_capset, &m_header, reduced.data());
    }
    ~WithoutFileOverride() { syscall(SYS_capset, &m_header, m_kept.data()); }
    WithoutFileOverride(const WithoutFileOverride&) = delete;
    WithoutFileOverride& operator=(const WithoutFileOverride&) = delete;

private:
    __user_cap_header_struct m_header{_LINUX_CAPABILITY_VERSION_3, 0};
    std::array<__user_cap_data_struct, _LINUX_CAPABILITY_U32S_3> m_kept{};
};
