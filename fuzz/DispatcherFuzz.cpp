// SPDX-License-Identifier: MIT
//
// A request's whole way: message in, packets on the wire, one message out. The input has the parts
// that FuzzedRequest.h and FuzzedPort.h draw: first the request, then the port.
#include "fuzz/Check.h"
#include "fuzz/FuzzTarget.h"
#include "fuzz/FuzzedPort.h"
#include "fuzz/FuzzedRequest.h"
#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandRoutes.h"
#include "protocol/RequestDispatcher.h"
#include "protocol/ResultCodes.h"
#include "tests/support/PortCamera.h"

#include <algorithm>

namespace {

using FuzzedCamera = PortCamera<FuzzedPort>;

// Refused requests and broken pictures are the daily business here: nobody wants a line for each.
[[maybe_unused]] const QtMessageHandler DEFAULT_HANDLER =
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});

const stRoute* routeOf(const QUuid& request) {
    const auto routes = commandRoutes();
    const auto found = std::ranges::find(routes, request, &stRoute::request);
    return found == routes.end() ? nullptr : &*found;
}

void checkValueReply(const VX_CMD& request, const VX_CMD& reply, const stRoute* route,
                     const FuzzedPort& port) {
    FUZZ_CHECK(route != nullptr && !route->answer.isNull());
    FUZZ_CHECK(getCommand(reply) == route->answer);
    FUZZ_CHECK(port.hasAnswered(USB_ERROR_SUCCESS) || port.isCutShort());
    FUZZ_CHECK(reply.value(Key::PARAM2).isValid());
    FUZZ_CHECK(reply.contains(Key::SENDER));
    FUZZ_CHECK(getController(reply) == getController(request));
}

/// Whether the tool itself may end a transaction with @p result, whatever the port says.
bool isOwnResult(unsigned short result, const VX_CMD& request) {
    switch (result) {
        case USB_ERROR_BAD_PARAM:  // there is nothing to send
            return request.value(Key::PARAM2).toByteArray().isEmpty();
        case USB_ERROR_TIMEOUT:       // packets came, but none that was waited for
        case USB_ERROR_RECEIVE_DATA:  // the head of a data phase is wrong
            return true;
        default:
            return false;
    }
}

void checkResult(const VX_CMD& request, const VX_CMD& message, const stRoute* route,
                 const FuzzedCamera& camera, bool isLive) {
    const FuzzedPort& port = camera.port();
    const auto result = message.value(Key::PARAM3).value<unsigned short>();
    FUZZ_CHECK(message == communicationResult(getController(request), getCommand(request), result));
    if (route == nullptr) {
        FUZZ_CHECK(result == USB_ERROR_BAD_PARAM);
    } else if (!isLive) {
        FUZZ_CHECK(result == USB_NO_DEVICE || result == USB_ERROR_BAD_PARAM);
    } else if (result == USB_ERROR_SUCCESS) {
        FUZZ_CHECK(route->answer.isNull());
        FUZZ_CHECK(port.hasAnswered(result) || port.isCutShort());
    } else {
        FUZZ_CHECK(port.hasFailed(result) || port.hasAnswered(result) ||
                   isOwnResult(result, request));
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    static char liveController;
    const VX_CMD request = fuzzedRequest(input, &liveController);
    FuzzedCamera camera(input);
    camera.setCamera(&liveController);
    dispatchRequest(request, camera);

    const bool isRawData = getCommand(request) == USB_CMD_SEND_DATA;
    FUZZ_CHECK(camera.rawReads().size() == (isRawData ? 1 : 0));
    FUZZ_CHECK(camera.messages().size() == (isRawData ? 0 : 1));
    const stRoute* route = routeOf(getCommand(request));
    const bool isLive = getController(request) == static_cast<void*>(&liveController);
    FUZZ_CHECK((route != nullptr && isLive) || camera.port().isUnused());
    for (const VX_CMD& message : camera.messages()) {
        const QUuid identifier = getCommand(message);
        if (identifier == USB_CMD_ERROR || identifier == USB_NUBO_CMD_RESPONSE) {
            checkResult(request, message, route, camera, isLive);
        } else {
            checkValueReply(request, message, route, camera.port());
        }
    }
    return 0;
}
