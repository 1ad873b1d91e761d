// SPDX-License-Identifier: MIT
#include "protocol/RouteRunners.h"

#include "protocol/Answers.h"
#include "protocol/DataPackets.h"

unsigned short RouteRunner::getWifiInfo(stRequest& request) {
    stWifiInfo info;
    const unsigned short result = request.camera.execNuboGetWifiInfo(request.controller, &info);
    if (result == USB_ERROR_SUCCESS) {
        setWifiInfo(request.message, info);
    }
    return result;
}

unsigned short RouteRunner::getAccesspointList(stRequest& request) {
    AccesspointList list;
    const unsigned short result =
        request.camera.execNuboGetAccesspointList(request.controller, &list);
    if (result == USB_ERROR_SUCCESS) {
        setValues(request.message, list);
    }
    return result;
}

unsigned short RouteRunner::sendFirmware(stRequest& request) {
    const auto image = request.message.value(Key::PARAM2).toByteArray();
    if (image.isEmpty()) {
        return USB_ERROR_BAD_PARAM;
    }
    ClNuboCommandExecFwUpdateData command(static_cast<unsigned int>(image.size()));
    ClNuboCommandDataSend data(command.id(), image);
    return request.camera.execNuboDataWrite(command, data, request.controller);
}
