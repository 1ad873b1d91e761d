// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/CameraItems.h"
#include "simulator/VirtualCamera.h"
#include "simulator/Wire.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <mutex>

/// The simulated camera, noting what it was sent that no camera takes. Any thread.
class WitnessCamera : public nubo::simulator::VirtualCamera {
public:
    void receive(std::span<const std::uint8_t> packet) override {
        using namespace nubo::simulator;
        {
            const std::lock_guard lock(m_mutex);
            m_codes[readU16(packet, ID_OFFSET)] = readU16(packet, CODE_OFFSET);
        }
        VirtualCamera::receive(packet);
    }

    std::optional<std::vector<std::uint8_t>> send() override {
        using namespace nubo::simulator;
        const auto packet = VirtualCamera::send();
        if (packet && isOfType(*packet, PacketType::Answer)) {
            const auto result = static_cast<CameraResult>(readU16(*packet, CODE_OFFSET));
            if (result == CameraResult::DataLength || result == CameraResult::ParameterRange ||
                result == CameraResult::UnknownCommand) {
                const std::lock_guard lock(m_mutex);
                m_refused.append(QStringLiteral("command 0x%1 with 0x%2")
                                     .arg(m_codes[readU16(*packet, ID_OFFSET)], 4, 16, QChar(u'0'))
                                     .arg(readU16(*packet, CODE_OFFSET), 4, 16, QChar(u'0')));
            }
        }
        return packet;
    }

    /// The commands whose parameters the camera has refused since the last call.
    [[nodiscard]] QStringList takeRefused() {
        const std::lock_guard lock(m_mutex);
        m_codes.clear();
        return std::exchange(m_refused, {});
    }

    /// All that the camera can be asked for, as texts.
    [[nodiscard]] QMap<QString, QString> items() const {
        QMap<QString, QString> values;
        for (const auto& item : nubo::simulator::cameraItems()) {
            values.insert(
                QString::fromLatin1(item.name.data(), static_cast<qsizetype>(item.name.size())),
                QString::fromLatin1(QByteArray::fromStdString(get(item.name).value_or("none"))));
        }
        return values;
    }

private:
    std::mutex m_mutex;
    QMap<std::uint16_t, std::uint16_t> m_codes;  ///< of the commands, by transaction
    QStringList m_refused;
};
