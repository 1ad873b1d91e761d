// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"

class ClCameraAccess;

/// Runs the transaction that @p request asks for and answers it through @p camera with exactly one
/// message: a value reply after a successful get, a plain result message in every other case. An
/// identifier that asks for nothing the camera could do is logged and answered with
/// USB_ERROR_BAD_PARAM, so that nobody waits for an answer in vain. USB thread only; blocks for the
/// length of the transaction.
void dispatchRequest(const VX_CMD& request, ClCameraAccess& camera);
