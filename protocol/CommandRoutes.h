// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"

#include <QUuid>

#include <span>

class ClCameraTransactions;

/// A request on its way through its route.
struct stRequest {
    VX_CMD message;  ///< on success, a get writes into it what it read
    ClUsbController* controller;
    ClCameraTransactions& camera;
};

/// What is done for a request identifier.
struct stRoute {
    QUuid request;
    QUuid answer;         ///< of the value reply; null when a plain result answers
    unsigned short code;  ///< of the camera command
    unsigned short (*run)(stRequest&);
};

/// The routes of all requests that a camera command answers. A picture comes as the bytes of its
/// file. Thread-safe.
[[nodiscard]] std::span<const stRoute> commandRoutes();

/// The route of @p request, or null. Thread-safe.
[[nodiscard]] const stRoute* commandRoute(const QUuid& request);
