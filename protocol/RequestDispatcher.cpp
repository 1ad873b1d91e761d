// SPDX-License-Identifier: MIT
#include "protocol/RequestDispatcher.h"

#include "protocol/ClCameraAccess.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"
#include "protocol/ResultCodes.h"

#include <QLoggingCategory>

#include <algorithm>

namespace {

Q_LOGGING_CATEGORY(dispatcherLog, "nubo.protocol", QtInfoMsg)

unsigned short refuse(stRequest& request) {
    qCWarning(dispatcherLog).noquote()
        << "No command of the camera for" << getUsbCommand(getCommand(request.message));
    return USB_ERROR_BAD_PARAM;
}

constexpr stRoute NO_ROUTE{{}, {}, 0, refuse};

}  // namespace

void dispatchRequest(const VX_CMD& request, ClCameraAccess& camera) {
    const QUuid command = getCommand(request);
    if (command == USB_CMD_SEND_DATA) {
        camera.readRawData(getController(request));
        return;
    }
    const auto routes = commandRoutes();
    const auto found = std::ranges::find(routes, command, &stRoute::request);
    const stRoute& route = found == routes.end() ? NO_ROUTE : *found;

    stRequest running{request, getController(request), camera};
    const unsigned short result = route.run(running);
    if (result == USB_ERROR_SUCCESS && !route.answer.isNull()) {
        running.message.insert(Key::CMD, route.answer);
        camera.sendMessage(running.message);
    } else {
        camera.sendCommunicationResult(running.controller, command, result);
    }
}
