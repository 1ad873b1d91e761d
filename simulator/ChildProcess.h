// SPDX-License-Identifier: MIT
#pragma once

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

namespace nubo::simulator {

/// The command that the simulator runs, as a child process of it.
class ChildProcess {
public:
    /// Starts the command, found along PATH, with this process's environment and with no signal
    /// blocked. An empty text, or what went wrong.
    std::string start(const std::vector<std::string>& command);

    bool isRunning() const { return m_process > 0; }

    /// Sends a signal to the child, if it still runs.
    void signal(int number) const;

    /// The exit code, once the child has ended (128 and the signal, when a signal ended it). Never
    /// waits.
    std::optional<int> exitCode();

private:
    pid_t m_process = 0;  ///< 0 while no child runs
};

}  // namespace nubo::simulator
