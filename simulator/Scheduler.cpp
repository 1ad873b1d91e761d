// SPDX-License-Identifier: MIT
#include "simulator/Scheduler.h"

#include <utility>

namespace nubo::simulator {

Scheduler::Scheduler() {
    m_thread = std::thread(&Scheduler::run, this);
}

Scheduler::~Scheduler() {
    stop();
}

void Scheduler::settle() {
    std::unique_lock lock(m_mutex);
    m_actions.clear();
    m_changed.wait(lock, [this] { return !m_isRunningAction; });
}

void Scheduler::stop() {
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
    }
    m_changed.notify_all();
    if (m_thread.joinable()) {
        m_thread.join();
    }
}

void Scheduler::runAfter(std::chrono::milliseconds delay, std::function<void()> action) {
    {
        const std::lock_guard lock(m_mutex);
        m_actions.emplace(Clock::now() + delay, std::move(action));
    }
    m_changed.notify_all();
}

void Scheduler::run() {
    std::unique_lock lock(m_mutex);
    while (!m_stopping) {
        if (m_actions.empty()) {
            m_changed.wait(lock);
            continue;
        }
        const auto first = m_actions.begin();
        // A copy: the action may be cancelled during the wait.
        const Clock::time_point due = first->first;
        if (due > Clock::now()) {
            m_changed.wait_until(lock, due);
            continue;
        }
        const std::function<void()> action = std::move(first->second);
        m_actions.erase(first);
        m_isRunningAction = true;
        lock.unlock();
        action();
        lock.lock();
        m_isRunningAction = false;
        m_changed.notify_all();
    }
}

}  // namespace nubo::simulator
