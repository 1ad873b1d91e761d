// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace nubo::simulator {

enum class FaultKind {
    Timeout,
    DeviceGone,
    Busy,
    Stall,
    Halt,
    ShortPacket,
    EmptyPacket,
    OverlongPacket,
    ForeignId,
    CameraError,
    WrongDataHead,
    Babble,
    Delay,
    UnplugBefore,
    LinkError,
};

/// What a fault does to the transfer that it strikes.
enum class FaultEffect {
    Refuse,       ///< the transfer is not accepted; code = errno of the submission
    Finish,       ///< the transfer ends at once; code = its status, a negative errno
    Halt,         ///< as Finish, and all of the endpoint's later ones until the host clears it
    Hold,         ///< the transfer waits until the host gives it up
    Delay,        ///< the transfer is served later
    Leave,        ///< the device leaves the bus with the transfer on its way
    LeaveBefore,  ///< the device leaves the bus before the transfer is accepted
    LeaveBroken,  ///< the transfer ends at once (code as of Finish), and the device leaves the bus
    Rewrite,      ///< the packet to the host is altered on its way
};

/// The number that goes with a fault.
enum class FaultArgument {
    None,
    Milliseconds,
    Bytes,  ///< how many bytes of the packet are left
    Code,   ///< 16-bit result code
};

/// One row of the table of faults.
struct FaultInfo {
    FaultKind kind;
    std::string_view name;
    FaultEffect effect;
    int code;
    FaultArgument argument;
    std::string_view explanation;
};

/// All kinds of faults, in the order of FaultKind.
std::span<const FaultInfo> faultTable();
const FaultInfo& faultInfo(FaultKind kind);
std::optional<FaultKind> faultByName(std::string_view name);

/// What is counted until a fault strikes.
enum class FaultUnit {
    /// Transfers of both directions. A rewriting fault that is due on an OUT transfer strikes the
    /// next packet to the host.
    Transfer,
    /// OUT transfers that carry a command. The fault strikes the answer: the next IN transfer that
    /// is submitted. A timeout loses the command, so that no IN transfer ever gets its answer.
    Command,
};

struct Fault {
    static constexpr unsigned FOREVER = std::numeric_limits<unsigned>::max();

    FaultKind kind = FaultKind::Timeout;
    std::uint32_t argument = 0;  ///< see FaultInfo::argument
    FaultUnit unit = FaultUnit::Transfer;
    unsigned nth = 1;    ///< counted from now; 1 is the next one
    unsigned count = 1;  ///< how many in a row are struck
};

/// The faults that wait for their moment.
class FaultPlan {
public:
    void add(const Fault& fault);
    void clear();

    /// Counts one transfer or command; the faults that strike it, in the order they were added.
    std::vector<Fault> strike(FaultUnit unit);

private:
    std::vector<Fault> m_waiting;
};

/// Alters @p packet as the rewriting fault says; other faults leave it alone. @p requested is the
/// number of bytes that the host has room for.
void rewritePacket(const Fault& fault, std::size_t requested, std::vector<std::uint8_t>& packet);

}  // namespace nubo::simulator
