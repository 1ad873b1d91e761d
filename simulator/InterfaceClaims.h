// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceRecord.h"

#include <umockdev.h>

#include <cstdint>
#include <map>
#include <memory>
#include <set>

namespace nubo::simulator {

/// Which interfaces of a device the clients of its node have claimed. Not locked: the node holds
/// the bus's mutex.
class InterfaceClaims {
public:
    explicit InterfaceClaims(std::shared_ptr<DeviceRecord> record);

    void addClient(UMockdevIoctlClient* client);
    /// Ends the claims of a client that has closed its handle.
    void removeClient(UMockdevIoctlClient* client);

    /// @return 0, or the errno of the refusal
    int claim(UMockdevIoctlClient* client, int number);
    /// @return 0, or the errno when @p client has not claimed it
    int release(UMockdevIoctlClient* client, int number);

    /// The endpoint of that address in an interface that @p client has claimed; null without one.
    const EndpointDescription* endpoint(UMockdevIoctlClient* client, std::uint8_t address) const;

private:
    const std::shared_ptr<DeviceRecord> m_record;
    std::map<UMockdevIoctlClient*, std::set<int>> m_claims;  ///< one entry per open handle
};

}  // namespace nubo::simulator
