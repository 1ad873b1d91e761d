// SPDX-License-Identifier: MIT
#pragma once

#include "cli/ClConsole.h"
#include "cli/Interruption.h"
#include "cli/Nuboctl.h"
#include "simulator/RootHub.h"
#include "simulator/VirtualCamera.h"
#include "simulator/VirtualUsbBus.h"
#include "simulator/Wire.h"

#include <QList>
#include <QStringList>

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>

/// A camera that keeps the codes of the commands that it received.
class RecordingCamera : public nubo::simulator::VirtualCamera {
public:
    void receive(std::span<const std::uint8_t> packet) override {
        using namespace nubo::simulator;
        if (packet.size() >= HEADER_SIZE && isOfType(packet, PacketType::Command)) {
            const std::uint16_t code = readU16(packet, CODE_OFFSET);
            if (code == m_interruptedAt) {
                Interruption::request();
            }
            const std::lock_guard lock(m_codesMutex);
            m_codes.append(QByteArray::number(code, 16).rightJustified(4, '0'));
        }
        VirtualCamera::receive(packet);
    }
    /// From now on the user presses Ctrl-C as soon as the camera has received this command; 0: no
    /// more.
    void interruptAt(std::uint16_t code) { m_interruptedAt = code; }
    /// The codes since the last call, in hexadecimal.
    QByteArrayList takeCodes() {
        const std::lock_guard lock(m_codesMutex);
        return std::exchange(m_codes, {});
    }
    [[nodiscard]] QString item(const char* name) const {
        return QString::fromLatin1(QByteArray::fromStdString(get(name).value_or("no item")));
    }

private:
    std::atomic<std::uint16_t> m_interruptedAt = 0;
    std::mutex m_codesMutex;
    QByteArrayList m_codes;
};

/// What a run of the program left behind.
struct stRunResult {
    int exit = -1;
    QString out{};
    QString err{};
};

/// Runs of nuboctl in this process, on a virtual bus.
struct CliBench {
    CliBench() { nubo::simulator::plugRootHub(bus); }
    ~CliBench() { bus.settle(); }
    CliBench(const CliBench&) = delete;
    CliBench& operator=(const CliBench&) = delete;

    std::shared_ptr<RecordingCamera> plug(const nubo::simulator::DeviceOptions& options = {}) {
        auto camera = std::make_shared<RecordingCamera>();
        ids.push_back(bus.plug(camera, options));
        return camera;
    }

    [[nodiscard]] static stRunResult run(const QStringList& words) {
        stRunResult result;
        QByteArray out;
        QByteArray err;
        ClConsole console(
            [&out](const QByteArray& bytes) {
                out += bytes;
                return true;
            },
            [&err](const QByteArray& bytes) {
                err += bytes;
                return true;
            });
        result.exit = static_cast<int>(runNuboctl(words, console));
        result.out = QString::fromUtf8(out);
        result.err = QString::fromUtf8(err);
        return result;
    }

    nubo::simulator::VirtualUsbBus bus;
    std::vector<nubo::simulator::DeviceId> ids;
};
