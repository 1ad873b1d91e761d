// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/VirtualCamera.h"
#include "simulator/Wire.h"

#include <QByteArray>
#include <QList>

#include <mutex>

/// A command as it arrives at the camera.
struct stReceivedCommand {
    int code;
    QByteArray arguments;  ///< what follows the packet's head

    bool operator==(const stReceivedCommand&) const = default;
};

/// The commands with these codes, whose five parameters are 0.
inline QList<stReceivedCommand> plainCommands(const QList<int>& codes) {
    constexpr qsizetype PARAMETERS_SIZE = 20;
    QList<stReceivedCommand> commands;
    for (const int code : codes) {
        commands.append({code, QByteArray(PARAMETERS_SIZE, '\0')});
    }
    return commands;
}

/// The simulated camera, noting the commands that it receives. Any thread.
class RecordingCamera : public nubo::simulator::VirtualCamera {
public:
    void receive(std::span<const std::uint8_t> packet) override {
        using namespace nubo::simulator;
        std::vector<std::uint8_t> taken(packet.begin(), packet.end());
        {
            const std::lock_guard lock(m_mutex);
            const QByteArray bytes(reinterpret_cast<const char*>(taken.data()),
                                   static_cast<qsizetype>(taken.size()));
            const int code = readU16(packet, CODE_OFFSET);
            m_packets.append(bytes);
            m_commands.append({code, bytes.mid(HEADER_SIZE)});
            if (m_unknownCodes.contains(code)) {
                writeU16(taken, CODE_OFFSET, NO_CODE);
            }
        }
        VirtualCamera::receive(taken);
    }

    [[nodiscard]] QList<stReceivedCommand> commands() const {
        const std::lock_guard lock(m_mutex);
        return m_commands;
    }

    [[nodiscard]] QList<int> codes() const {
        QList<int> codes;
        for (const stReceivedCommand& command : commands()) {
            codes.append(command.code);
        }
        return codes;
    }

    /// The whole commands, with a transaction id of 0.
    [[nodiscard]] QList<QByteArray> packets() const {
        const std::lock_guard lock(m_mutex);
        QList<QByteArray> packets = m_packets;
        for (QByteArray& packet : packets) {
            packet.replace(nubo::simulator::ID_OFFSET, sizeof(quint16), QByteArray(2, '\0'));
        }
        return packets;
    }

    void forgetCodes() {
        const std::lock_guard lock(m_mutex);
        m_packets.clear();
        m_commands.clear();
    }

    /// From now on the camera does not know the commands with these codes.
    void setUnknownCodes(const QList<int>& codes) {
        const std::lock_guard lock(m_mutex);
        m_unknownCodes = codes;
    }

private:
    static constexpr std::uint16_t NO_CODE = 0x7FFF;

    mutable std::mutex m_mutex;
    QList<QByteArray> m_packets;
    QList<stReceivedCommand> m_commands;
    QList<int> m_unknownCodes;
};
