// SPDX-License-Identifier: MIT
#include "tests/usb/UserInterface.h"

#include "protocol/CommandIdentifiers.h"
#include "tests/support/Patience.h"
#include "usb/ClUsbManager.h"

#include <QSignalSpy>
#include <QTest>

namespace {

bool isDeviceMessage(const VX_CMD& message) {
    const QUuid command = getCommand(message);
    return command == USB_CMD_DEVICE_OPEN || command == USB_CMD_DEVICE_CLOSE;
}

/// A request without page and arguments.
VX_CMD bareRequest(const QUuid& request, ClUsbController* camera) {
    return {
        {Key::CMD, request},
        {Key::PARAM1, QVariant::fromValue(static_cast<void*>(camera))},
    };
}

}  // namespace

UserInterface::UserInterface(ClUsbManager& manager) {
    registerCommandTypes();
    m_clock.start();
    connect(this, &UserInterface::sigSendCommand, &manager, &ClUsbManager::slotReceiveCommand);
    connect(&manager, &ClUsbManager::sigSendCommand, this, [this](const VX_CMD& message) {
        m_arrivals.append({message, now()});
        Q_EMIT sigArrived();
    });
}

QList<ClUsbController*> UserInterface::controllersOf(const QUuid& command) const {
    QList<ClUsbController*> controllers;
    for (const stArrival& arrival : m_arrivals) {
        if (getCommand(arrival.message) == command) {
            controllers.append(getController(arrival.message));
        }
    }
    return controllers;
}

QList<ClUsbController*> UserInterface::opened() const {
    return controllersOf(USB_CMD_DEVICE_OPEN);
}

QList<ClUsbController*> UserInterface::closed() const {
    return controllersOf(USB_CMD_DEVICE_CLOSE);
}

QList<VX_CMD> UserInterface::answers() const {
    QList<VX_CMD> answers;
    for (const stArrival& arrival : m_arrivals) {
        if (!isDeviceMessage(arrival.message)) {
            answers.append(arrival.message);
        }
    }
    return answers;
}

bool UserInterface::waitForOpened(qsizetype count) const {
    return QTest::qWaitFor([&] { return opened().size() >= count; }, PATIENCE_MS);
}

bool UserInterface::waitForClosed(qsizetype count) const {
    return QTest::qWaitFor([&] { return closed().size() >= count; }, PATIENCE_MS);
}

void UserInterface::send(const QUuid& request, ClUsbController* camera) {
    Q_EMIT sigSendCommand(bareRequest(request, camera));
}

VX_CMD UserInterface::ask(const QUuid& request, ClUsbController* camera) {
    return ask(bareRequest(request, camera));
}

VX_CMD UserInterface::ask(const VX_CMD& request) {
    const qsizetype before = answers().size();
    // Not qWaitFor(), which sleeps for 10 ms between two looks: some tests ask a thousand times.
    QSignalSpy arrivals(this, &UserInterface::sigArrived);
    Q_EMIT sigSendCommand(request);
    while (answers().size() == before && arrivals.wait(PATIENCE_MS)) {
    }
    return answers().value(before);
}

QByteArray outcomeOf(const VX_CMD& answer) {
    const QByteArray name = getUsbCommand(getCommand(answer)).toLatin1();
    const QUuid command = getCommand(answer);
    if (command != USB_CMD_ERROR && command != USB_NUBO_CMD_RESPONSE) {
        return name;
    }
    return name + " 0x" + QByteArray::number(answer.value(Key::PARAM3).toUInt(), 16);
}
