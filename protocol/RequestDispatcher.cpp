// SPDX-License-Identifier: MIT
#include "protocol/RequestDispatcher.h"

#include "protocol/ClCameraAccess.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"
#include "protocol/ResultCodes.h"

#include <QBuffer>
#include <QImage>
#include <QImageReader>
#include <QLoggingCategory>

namespace {

Q_LOGGING_CATEGORY(dispatcherLog, "nubo.protocol", QtInfoMsg)

unsigned short refuse(stRequest& request) {
    qCWarning(dispatcherLog).noquote()
        << "No command of the camera for" << getUsbCommand(getCommand(request.message));
    return USB_ERROR_BAD_PARAM;
}

constexpr stRoute NO_ROUTE{{}, {}, 0, refuse};

/// The picture that the bytes of a JPEG file show; null when they are none. Nothing but JPEG is
/// tried: what the camera sends must not choose among the decoders installed.
QImage asPicture(const QByteArray& bytes) {
    QBuffer buffer;
    buffer.setData(bytes);
    QImageReader reader(&buffer, "jpg");
    reader.setAutoDetectImageFormat(false);
    return reader.read();
}

}  // namespace

void dispatchRequest(const VX_CMD& request, ClCameraAccess& camera) {
    const QUuid command = getCommand(request);
    if (command == USB_CMD_SEND_DATA) {
        camera.readRawData(getController(request));
        return;
    }
    const stRoute* const found = commandRoute(command);
    const stRoute& route = found == nullptr ? NO_ROUTE : *found;

    stRequest running{request, getController(request), camera};
    const unsigned short result = route.run(running);
    if (result == USB_ERROR_SUCCESS && !route.answer.isNull()) {
        running.message.insert(Key::CMD, route.answer);
        if (route.answer == USB_CMD_RES_JPEG) {
            QVariant& picture = running.message[Key::PARAM2];
            picture = asPicture(picture.toByteArray());
        }
        camera.sendMessage(running.message);
    } else {
        camera.sendCommunicationResult(running.controller, command, result);
    }
}
