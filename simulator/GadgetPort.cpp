// SPDX-License-Identifier: MIT
#include "simulator/GadgetPort.h"

#include <chrono>
#include <utility>

namespace nubo::simulator {

namespace {

/// From the host's controller having taken an answer until its program has it: a host that loses
/// the device before would lose the answer.
constexpr std::chrono::milliseconds ANSWER_TIME{250};

constexpr const char* NOT_OF_A_GADGET = "a gadget cannot do this: it is a matter of the host";

const AlternateSetting& interfaceOf(const DeviceOptions& options) {
    return options.description.interfaces.front().alternates.front();
}

}  // namespace

GadgetPort::GadgetPort(std::shared_ptr<VirtualDevice> device, DeviceOptions options)
    : m_device(std::move(device)),
      m_options(std::move(options)),
      m_pipe(m_device, {[this] { leaveAfter({}); }, [this] { leaveAfter(ANSWER_TIME); },
                        [this] { restartLater(); }}) {}

GadgetPort::~GadgetPort() {
    m_scheduler.stop();
    // Ends what the pipe's threads wait for.
    m_setup.unbind();
}

std::string GadgetPort::open(const std::string& controller) {
    const std::string failure = m_setup.create(controller);
    return failure.empty() ? m_pipe.open(m_setup.endpoints(), interfaceOf(m_options)) : failure;
}

std::string GadgetPort::plug() {
    const std::lock_guard lock(m_mutex);
    return m_plugged ? "the camera is plugged in already" : plugLocked();
}

std::string GadgetPort::unplug() {
    const std::lock_guard lock(m_mutex);
    if (!m_plugged) {
        ++m_changes;
        return "the camera is not plugged in";
    }
    unplugLocked();
    return {};
}

std::string GadgetPort::plugLocked() {
    m_pipe.plugged();
    std::string failure = m_setup.describe(m_options.description, m_device->serialNumber());
    if (failure.empty()) {
        failure = m_setup.bind();
    }
    m_plugged = failure.empty();
    ++m_changes;
    return failure;
}

void GadgetPort::unplugLocked() {
    m_setup.unbind();
    m_pipe.unplugged();
    m_plugged = false;
    ++m_changes;
}

// The pipe asks for it in the middle of its work: it is done on the thread of the scheduler.
void GadgetPort::leaveAfter(std::chrono::milliseconds time) {
    m_scheduler.runAfter(time, [this] {
        const std::lock_guard lock(m_mutex);
        if (m_plugged) {
            unplugLocked();
        }
    });
}

void GadgetPort::restartLater() {
    m_scheduler.runAfter(ANSWER_TIME, [this] {
        const std::lock_guard lock(m_mutex);
        if (!m_plugged) {
            return;
        }
        unplugLocked();
        m_scheduler.runAfter(m_options.restartDelay, [this, changes = m_changes] {
            const std::lock_guard again(m_mutex);
            if (m_changes == changes) {
                plugLocked();
            }
        });
    });
}

std::string GadgetPort::addFault(const Fault& fault) {
    std::string refusal = GadgetPipe::refusal(fault);
    if (refusal.empty()) {
        m_pipe.addFault(fault);
    }
    return refusal;
}

std::string GadgetPort::setAccess(NodeAccess) {
    return NOT_OF_A_GADGET;
}

std::string GadgetPort::setBusy(bool) {
    return NOT_OF_A_GADGET;
}

std::string GadgetPort::status() const {
    const DeviceLog log = m_pipe.log();
    const std::lock_guard lock(m_mutex);
    std::string place = "unplugged";
    if (m_plugged) {
        place = m_setup.controller() + (m_pipe.isConfigured() ? "" : " without a host");
    }
    return place + ", transfers " + std::to_string(log.transferCount) + ", commands " +
           std::to_string(log.commandCount);
}

}  // namespace nubo::simulator
