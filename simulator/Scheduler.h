// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <map>
#include <mutex>
#include <thread>

namespace nubo::simulator {

/// Runs actions on a thread of its own, each at its time, in the order of their times.
class Scheduler {
public:
    Scheduler();
    ~Scheduler();
    Scheduler(const Scheduler&) = delete;
    Scheduler& operator=(const Scheduler&) = delete;

    /// From any thread, from an action too.
    void runAfter(std::chrono::milliseconds delay, std::function<void()> action);

    /// Drops the actions whose time has not come and waits for the one that runs, if any. Not from
    /// an action.
    void settle();

    /// Settles, and drops all actions to come too. Not from an action; the destructor does it as
    /// well.
    void stop();

private:
    using Clock = std::chrono::steady_clock;

    void run();

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::multimap<Clock::time_point, std::function<void()>> m_actions;
    bool m_isRunningAction = false;
    bool m_stopping = false;
    std::thread m_thread;
};

}  // namespace nubo::simulator
