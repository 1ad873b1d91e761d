// SPDX-License-Identifier: MIT
#include "protocol/CommandMessage.h"

#include "protocol/CommandIdentifiers.h"
#include "protocol/NuboRecords.h"
#include "protocol/ResultCodes.h"

QUuid getCommand(const VX_CMD& message) {
    return message.value(Key::CMD).toUuid();
}

ClUsbController* getController(const VX_CMD& message) {
    return static_cast<ClUsbController*>(message.value(Key::PARAM1).value<void*>());
}

VX_CMD communicationResult(void* controller, const QUuid& request, unsigned short result) {
    return {
        {Key::CMD, isTransportError(result) ? USB_CMD_ERROR : USB_NUBO_CMD_RESPONSE},
        {Key::PARAM1, QVariant::fromValue(controller)},
        {Key::PARAM2, request},
        {Key::PARAM3, QVariant::fromValue(result)},
    };
}

void registerCommandTypes() {
    qRegisterMetaType<VX_CMD>("VX_CMD");
    qRegisterMetaType<AccesspointList>("AccesspointList");
}
