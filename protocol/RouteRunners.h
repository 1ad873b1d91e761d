// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/ClCameraAccess.h"
#include "protocol/CommandRoutes.h"
#include "protocol/DataPackets.h"
#include "protocol/MessageValues.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"

#include <functional>
#include <utility>

/// What the routes do, and the values that they take from the camera's answers.
namespace RouteRunner {

inline constexpr int PLAIN_TIMEOUT_MS = 1000;

// Values of an answer, beside the getters of the command classes.
template <int Number>
unsigned int number(const ClNuboCommand& answer) {
    return answer.param(Number);
}

template <int Number>
int signedNumber(const ClNuboCommand& answer) {
    return static_cast<int>(answer.param(Number));
}

template <int Number>
bool isOn(const ClNuboCommand& answer) {
    return answer.valueToBool(answer.param(Number));
}

inline QString text(const ClNuboCommandString& answer) {
    return answer.string();
}

inline QString address(const ClNuboCommandIpv4& answer) {
    return answer.getAddress();
}

/// Asks the camera, and writes what @p Values make of its answer into the message.
template <class Command, auto... Values>
unsigned short get(stRequest& request) {
    Command command;
    const unsigned short result =
        request.camera.execNuboCommand(command, request.controller, PLAIN_TIMEOUT_MS);
    if (result == USB_ERROR_SUCCESS) {
        setValues(request.message, std::invoke(Values, std::as_const(command))...);
    }
    return result;
}

/// Sends a command made of the message's arguments, which have the types @p Arguments from PARAM2
/// on.
template <class Command, class... Arguments>
unsigned short set(stRequest& request) {
    auto command = [&message = request.message]<std::size_t... I>(std::index_sequence<I...>) {
        return Command(
            message.value(Key::VALUES[static_cast<qsizetype>(I)]).template value<Arguments>()...);
    }
    (std::index_sequence_for<Arguments...>());
    return request.camera.execNuboCommand(command, request.controller, PLAIN_TIMEOUT_MS);
}

unsigned short getWifiInfo(stRequest& request);
unsigned short getAccesspointList(stRequest& request);
unsigned short sendFirmware(stRequest& request);

/// Reads a block of data, and writes its bytes into the message.
template <class Command>
unsigned short readData(stRequest& request) {
    Command command;
    ClNuboCommandDataReceive data;
    const unsigned short result =
        request.camera.execNuboDataRead(command, data, request.controller);
    if (result == USB_ERROR_SUCCESS) {
        setValues(request.message, data.receivedData());
    }
    return result;
}

}  // namespace RouteRunner
