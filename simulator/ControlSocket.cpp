// SPDX-License-Identifier: MIT
#include "simulator/ControlSocket.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace nubo::simulator {

namespace {

constexpr std::size_t LONGEST_LINE = 4096;

FileDescriptor newSocket() {
    return FileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
}

/// Removes the file when it is a socket that nobody listens to.
void removeLeftOver(const sockaddr_un& address) {
    struct stat file {};
    if (::lstat(address.sun_path, &file) != 0 || !S_ISSOCK(file.st_mode)) {
        return;
    }
    const FileDescriptor probe = newSocket();
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    if (::connect(probe.number(), generic, sizeof(address)) != 0 && errno == ECONNREFUSED) {
        ::unlink(address.sun_path);
    }
}

bool sendLine(int socket, std::string line) {
    line += '\n';
    const ssize_t sent = ::send(socket, line.data(), line.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
    return sent == static_cast<ssize_t>(line.size());
}

}  // namespace

ControlSocket::~ControlSocket() {
    if (m_listener) {
        ::unlink(m_path.c_str());
    }
}

std::string ControlSocket::listen(const std::string& path) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof(address.sun_path)) {
        return "the path of the control socket is too long";
    }
    std::memcpy(address.sun_path, path.data(), path.size());
    removeLeftOver(address);
    FileDescriptor listener = newSocket();
    const auto* const generic = reinterpret_cast<const sockaddr*>(&address);
    if (::bind(listener.number(), generic, sizeof(address)) != 0) {
        return path + ": " + std::strerror(errno);
    }
    m_path = path;
    m_listener = std::move(listener);
    return ::listen(m_listener.number(), SOMAXCONN) == 0 ? "" : path + ": " + std::strerror(errno);
}

void ControlSocket::appendTo(std::vector<pollfd>& waiting) const {
    if (!m_listener) {
        return;
    }
    waiting.push_back({m_listener.number(), POLLIN, 0});
    for (const Client& client : m_clients) {
        waiting.push_back({client.socket.number(), POLLIN, 0});
    }
}

void ControlSocket::serve(const Runner& runner) {
    if (!m_listener) {
        return;
    }
    while (FileDescriptor socket{
        ::accept4(m_listener.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK)}) {
        m_clients.push_back({std::move(socket)});
    }
    m_clients.remove_if([&](Client& client) { return !serveClient(client, runner); });
}

bool ControlSocket::serveClient(Client& client, const Runner& runner) {
    std::array<char, LONGEST_LINE> bytes{};
    while (true) {
        const ssize_t count = ::recv(client.socket.number(), bytes.data(), bytes.size(), 0);
        if (count < 0) {
            return errno == EAGAIN || errno == EINTR;
        }
        if (count == 0) {
            if (!client.unfinished.empty()) {
                sendLine(client.socket.number(), runner(client.unfinished));
            }
            return false;
        }
        client.unfinished.append(bytes.data(), static_cast<std::size_t>(count));
        for (std::size_t end = 0; (end = client.unfinished.find('\n')) != std::string::npos;) {
            const std::string line = client.unfinished.substr(0, end);
            client.unfinished.erase(0, end + 1);
            if (!sendLine(client.socket.number(), runner(line))) {
                return false;
            }
        }
        if (client.unfinished.size() > LONGEST_LINE) {
            sendLine(client.socket.number(), "error: the line is too long");
            return false;
        }
    }
}

}  // namespace nubo::simulator
