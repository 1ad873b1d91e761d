// SPDX-License-Identifier: MIT
#include "simulator/ChildProcess.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstring>

namespace nubo::simulator {

namespace {

constexpr int SIGNAL_EXIT_BASE = 128;

}  // namespace

std::string ChildProcess::start(const std::vector<std::string>& command) {
    std::vector<std::string> words = command;
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (std::string& word : words) {
        arguments.push_back(word.data());
    }
    arguments.push_back(nullptr);

    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
    const int error = posix_spawnp(&m_process, arguments.front(), nullptr, &attributes,
                                   arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    if (error != 0) {
        m_process = 0;
        return command.front() + ": " + std::strerror(error);
    }
    return {};
}

void ChildProcess::signal(int number) const {
    if (m_process > 0) {
        ::kill(m_process, number);
    }
}

std::optional<int> ChildProcess::exitCode() {
    int status = 0;
    if (m_process == 0 || ::waitpid(m_process, &status, WNOHANG) != m_process) {
        return std::nullopt;
    }
    m_process = 0;
    return WIFSIGNALED(status) ? SIGNAL_EXIT_BASE + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace nubo::simulator
