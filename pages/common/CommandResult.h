// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"
#include "protocol/ResultCodes.h"

#include <QUuid>

/// What a plain result message says; of any other message, neither a success nor a failure.
struct stCommandResult {
    explicit stCommandResult(const VX_CMD& message)
        : command(message.value(Key::PARAM2).toUuid()),
          code(message.value(Key::PARAM3).value<unsigned short>()) {
        const QUuid kind = getCommand(message);
        isSuccess = kind == USB_NUBO_CMD_RESPONSE && code == USB_ERROR_SUCCESS;
        // A camera that has gone is no failure to report: the not-connected page is about to show.
        isFailure = (kind == USB_NUBO_CMD_RESPONSE && !isSuccess) ||
                    (kind == USB_CMD_ERROR && code != USB_NO_DEVICE);
    }

    QUuid command;  ///< the request that the result answers
    unsigned short code;
    bool isSuccess = false;
    bool isFailure = false;
};
