// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/FileDescriptor.h"

#include <poll.h>

#include <functional>
#include <list>
#include <string>
#include <string_view>
#include <vector>

namespace nubo::simulator {

/// A Unix stream socket that takes lines and answers each with one line, to any number of clients.
class ControlSocket {
public:
    /// Runs one line and returns its answer.
    using Runner = std::function<std::string(std::string_view line)>;

    ControlSocket() = default;
    /// Removes the socket's file.
    ~ControlSocket();
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

    /// An empty text, or what went wrong. A file that is there already is not overwritten, unless
    /// it is a socket that nobody listens to.
    std::string listen(const std::string& path);

    /// Appends what to wait for; nothing before listen().
    void appendTo(std::vector<pollfd>& waiting) const;

    /// Takes new clients, runs the lines that have come, and drops clients that have gone. Never
    /// waits.
    void serve(const Runner& runner);

private:
    struct Client {
        FileDescriptor socket;
        std::string unfinished{};
    };

    static bool serveClient(Client& client, const Runner& runner);

    std::string m_path;
    FileDescriptor m_listener;
    std::list<Client> m_clients;
};

}  // namespace nubo::simulator
