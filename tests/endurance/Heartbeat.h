// SPDX-License-Identifier: MIT
#pragma once

#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>

/// Beats on the main thread as long as its event loop turns, and reports how long it was kept from
/// doing so. What the machine has given to others does not count: a thread that is ready and has to
/// wait for a processor is as responsive as can be.
class Heartbeat {
public:
    Heartbeat() {
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { beat(); });
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.start(INTERVAL);
    }

    /// How late the latest beat of all was.
    [[nodiscard]] std::chrono::milliseconds latest() const {
        return std::chrono::duration_cast<std::chrono::milliseconds>(m_latest);
    }

private:
    using Clock = std::chrono::steady_clock;
    static constexpr std::chrono::milliseconds INTERVAL{10};

    void beat() {
        const Clock::time_point now = Clock::now();
        const std::chrono::nanoseconds waited = waitedForProcessor();
        m_latest = std::max(m_latest, now - m_before - INTERVAL - (waited - m_waitedBefore));
        m_before = now;
        m_waitedBefore = waited;
    }

    /// How long this thread was ready to run, and did not, since it began.
    static std::chrono::nanoseconds waitedForProcessor() {
        long long running = 0;
        long long waiting = 0;
        if (std::FILE* file = std::fopen("/proc/thread-self/schedstat", "re")) {
            if (std::fscanf(file, "%lld %lld", &running, &waiting) != 2) {
                waiting = 0;
            }
            std::fclose(file);
        }
        return std::chrono::nanoseconds(waiting);
    }

    QTimer m_timer;
    Clock::time_point m_before = Clock::now();
    std::chrono::nanoseconds m_waitedBefore = waitedForProcessor();
    std::chrono::nanoseconds m_latest{0};
};
