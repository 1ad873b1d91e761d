// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"

// What the USB side has to say about a camera, written out. Of a camera only the address counts:
// nobody looks behind the pointer of a controller.

inline int firstCamera = 0;
inline int secondCamera = 0;
inline void* const FIRST = &firstCamera;
inline void* const SECOND = &secondCamera;

inline VX_CMD message(const QUuid& command, void* camera) {
    return {{QStringLiteral("CMD"), command},
            {QStringLiteral("PARAM1"), QVariant::fromValue(camera)}};
}

inline VX_CMD opened(void* camera) {
    return message(USB_CMD_DEVICE_OPEN, camera);
}

inline VX_CMD closed(void* camera) {
    return message(USB_CMD_DEVICE_CLOSE, camera);
}

/// The answer to a request, which @p number distinguishes from others.
inline VX_CMD answer(void* camera, int number) {
    VX_CMD made = message(USB_RES_NUBO_CMD_GET_BATTERY, camera);
    made.insert(QStringLiteral("PARAM3"), number);
    return made;
}
