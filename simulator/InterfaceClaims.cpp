// SPDX-License-Identifier: MIT
#include "simulator/InterfaceClaims.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <utility>

namespace nubo::simulator {

InterfaceClaims::InterfaceClaims(std::shared_ptr<DeviceRecord> record)
    : m_record(std::move(record)) {}

void InterfaceClaims::addClient(UMockdevIoctlClient* client) {
    m_claims[client] = {};
}

void InterfaceClaims::removeClient(UMockdevIoctlClient* client) {
    m_claims.erase(client);
}

int InterfaceClaims::claim(UMockdevIoctlClient* client, int number) {
    const auto& interfaces = m_record->options.description.interfaces;
    if (number < 0 || static_cast<std::size_t>(number) >= interfaces.size()) {
        return ENOENT;
    }
    const bool isTaken = std::ranges::any_of(m_claims, [&](const auto& other) {
        return other.first != client && other.second.contains(number);
    });
    if (isTaken || m_record->options.busyInterfaces.contains(number)) {
        m_record->log.refusedClaims.push_back(number);
        return EBUSY;
    }
    m_claims[client].insert(number);
    m_record->log.claims.push_back(number);
    return 0;
}

int InterfaceClaims::release(UMockdevIoctlClient* client, int number) {
    if (m_claims[client].erase(number) == 0) {
        return EINVAL;
    }
    m_record->log.releases.push_back(number);
    return 0;
}

const EndpointDescription* InterfaceClaims::endpoint(UMockdevIoctlClient* client,
                                                     std::uint8_t address) const {
    const auto claims = m_claims.find(client);
    if (claims == m_claims.end()) {
        return nullptr;
    }
    for (const int number : claims->second) {
        const auto& interfaces = m_record->options.description.interfaces;
        for (const auto& setting : interfaces[static_cast<std::size_t>(number)].alternates) {
            const auto found =
                std::ranges::find(setting.endpoints, address, &EndpointDescription::address);
            if (found != setting.endpoints.end()) {
                return &*found;
            }
        }
    }
    return nullptr;
}

}  // namespace nubo::simulator
