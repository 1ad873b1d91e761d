// SPDX-License-Identifier: MIT
#include "protocol/RequestDispatcher.h"

#include "protocol/ClCameraAccess.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"

#include <QLoggingCategory>

#include <algorithm>
#include <array>

namespace {

Q_LOGGING_CATEGORY(dispatcherLog, "nubo.protocol", QtInfoMsg)

constexpr int PLAIN_TIMEOUT_MS = 1000;

/// A request on its way: a handler runs its transaction and, on success, writes the values that it
/// read into the message.
struct stRequest {
    VX_CMD message;
    ClUsbController* controller;
    ClCameraAccess& camera;
};

using Handler = unsigned short (*)(stRequest&);

struct stRoute {
    QUuid request;
    QUuid answer;  ///< null when a plain result answers
    Handler run;
};

/// Writes @p values into the message from PARAM2 on, each as a variant of just its type.
template <class... Values>
void setValues(VX_CMD& message, const Values&... values)
{
    auto key = Key::VALUES.cbegin();
    (message.insert(*key++, QVariant::fromValue(values)), ...);
}

template <class Command>
unsigned short act(stRequest& request)
{
    Command command;
    return request.camera.execNuboCommand(command, request.controller, PLAIN_TIMEOUT_MS);
}

template <class Command, auto StoreAnswer>
unsigned short get(stRequest& request)
{
    Command command;
    const unsigned short result =
        request.camera.execNuboCommand(command, request.controller, PLAIN_TIMEOUT_MS);
    if (result == USB_ERROR_SUCCESS) {
        StoreAnswer(command, request.message);
    }
    return result;
}

void storeTwoNumbers(const ClNuboCommand& answer, VX_CMD& message)
{
    setValues(message, answer.param(1), answer.param(2));
}

void storeSdInfo(const ClNuboCommandGetSdInfo& answer, VX_CMD& message)
{
    setValues(message, answer.getSdSize(), answer.getSdUsedSize(), answer.param(5));
}

unsigned short getWifiInfo(stRequest& request)
{
    stWifiInfo info;
    const unsigned short result = request.camera.execNuboGetWifiInfo(request.controller, &info);
    if (result == USB_ERROR_SUCCESS) {
        setValues(request.message, info.status, info.firstText, info.secondText, info.channel,
                  info.encryption, static_cast<int>(info.reserved), static_cast<int>(info.signal));
    }
    return result;
}

// clang-format off
constexpr std::array ROUTES{
    stRoute{USB_REQ_NUBO_CMD_GET_BATTERY,   USB_RES_NUBO_CMD_GET_BATTERY,   get<ClNuboCommandGetBatteryState, storeTwoNumbers>},
    stRoute{USB_REQ_NUBO_CMD_GET_SDINFO,    USB_RES_NUBO_CMD_GET_SDINFO,    get<ClNuboCommandGetSdInfo, storeSdInfo>},
    stRoute{USB_REQ_NUBO_CMD_GET_WIFI_INFO, USB_RES_NUBO_CMD_GET_WIFI_INFO, getWifiInfo},
    stRoute{USB_NUBO_CMD_RESTART,           {},                             act<ClNuboCommandRestart>},
    stRoute{USB_NUBO_CMD_FORMAT_SD,         {},                             act<ClNuboCommandFormatSd>},
    stRoute{USB_NUBO_CMD_INIT_SETTING,      {},                             act<ClNuboCommandInitSetting>},
};
// clang-format on

unsigned short refuse(stRequest& request)
{
    qCWarning(dispatcherLog).noquote()
        << "No command of the camera for" << getUsbCommand(getCommand(request.message));
    return USB_ERROR_BAD_PARAM;
}

constexpr stRoute NO_ROUTE{{}, {}, refuse};

}  // namespace

void dispatchRequest(const VX_CMD& request, ClCameraAccess& camera)
{
    const QUuid command = getCommand(request);
    const auto found = std::ranges::find(ROUTES, command, &stRoute::request);
    const stRoute& route = found == ROUTES.end() ? NO_ROUTE : *found;

    stRequest running{request, getController(request), camera};
    const unsigned short result = route.run(running);
    if (result == USB_ERROR_SUCCESS && !route.answer.isNull()) {
        running.message.insert(Key::CMD, route.answer);
        camera.sendMessage(running.message);
    } else {
        camera.sendCommunicationResult(running.controller, command, result);
    }
}
