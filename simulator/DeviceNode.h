// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/DeviceRecord.h"
#include "simulator/GObjectPtr.h"
#include "simulator/InterfaceClaims.h"
#include "simulator/TransferMemory.h"
#include "simulator/TransferQueue.h"

#include <umockdev.h>

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>

namespace nubo::simulator {

/// What a node needs of its bus, which outlives it. The functions are called with the mutex held,
/// so they only schedule the change.
struct DeviceHooks {
    std::mutex& mutex;
    std::condition_variable& changed;  ///< notified whenever the record may have changed
    TransferMemory& memory;
    std::function<void()> leaveBus;  ///< the device has gone: take it from the bus
    std::function<void()> restart;   ///< the device wants to go and to come back
};

/// The calls that clients make on one device node, from plugging in to unplugging: opening,
/// claiming, moving bytes, closing. The testbed's thread calls in, leave() comes from any thread.
class DeviceNode : public std::enable_shared_from_this<DeviceNode> {
public:
    DeviceNode(std::shared_ptr<DeviceRecord> record, DeviceHooks hooks);

    /// A new handler to attach to the node; it keeps this object alive.
    GObjectPtr<UMockdevIoctlBase> makeHandler();

    /// From now on every call fails with ENODEV; pending transfers have ended with -ESHUTDOWN and
    /// can still be reaped. The caller holds the mutex. Without effect the second time.
    void leave();

private:
    struct Reply {
        long result = 0;
        int error = 0;
    };
    struct RequestHandler {
        unsigned long request;
        bool worksWhenGone;
        Reply (DeviceNode::*handle)(UMockdevIoctlClient*, UMockdevIoctlData*);
    };

    static Reply failure(int error) { return {-1, error}; }
    static Reply replyOf(int error) { return error == 0 ? Reply{} : failure(error); }

    void handle(UMockdevIoctlClient* client);
    Reply dispatch(UMockdevIoctlClient* client);
    Reply getCapabilities(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply getDriver(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply claimInterface(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply releaseInterface(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply clearHalt(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply clearHalts(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply answerControl(Transfer transfer);
    Reply submitUrb(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply discardUrb(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    Reply reapUrb(UMockdevIoctlClient* client, UMockdevIoctlData* argument);
    void clientConnected(UMockdevIoctlClient* client);
    void clientVanished(UMockdevIoctlClient* client);
    void countHandles(int change);

    const std::shared_ptr<DeviceRecord> m_record;
    const DeviceHooks m_hooks;
    const int m_plugging;  ///< counted as in DeviceLog::timesPlugged
    int m_openHandles = 0;
    bool m_gone = false;
    InterfaceClaims m_claims;
    TransferQueue m_transfers;
};

}  // namespace nubo::simulator
