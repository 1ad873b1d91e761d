// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace nubo::simulator {

/// Tells apart the packets of the host on an endpoint where only short reads show an end.
///
/// A packet of the wire that fills its last USB packet ends without a sign: a device that asked for
/// more would wait for the next one. So it asks for what the head of the packet declares, and no
/// more. Long packets are passed on in pieces.
class MessageCutter {
public:
    /// All pieces but the last of a packet are of this size: a multiple of every USB packet's.
    static constexpr std::size_t PIECE = 16 * 1024;

    /// For how many bytes to ask next: a multiple of @p usbPacket, the size of the endpoint's
    /// packets.
    std::size_t wanted(std::size_t usbPacket) const;

    /// Takes what has come, of so many bytes asked for; the piece that it completes, if it does.
    std::optional<std::vector<std::uint8_t>> take(std::span<const std::uint8_t> bytes,
                                                  std::size_t asked);

    /// Forgets what has not been completed.
    void reset();

private:
    std::vector<std::uint8_t> m_piece;
    std::uint64_t m_left = 0;  ///< bytes of the packet that have not come
};

}  // namespace nubo::simulator
