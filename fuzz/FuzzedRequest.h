// SPDX-License-Identifier: MIT
#pragma once

#include "fuzz/FuzzInput.h"
#include "protocol/CommandMessage.h"

/// A request as a page might send it, made from a fuzz input:
///
///     offset  width  field
///          0      2  code of the camera command that the request leads to; with any other number,
///                    the identifier of that place in the list of all, modulo their number
///          2      1  controller: 0 the live one, 1 none, 2 null, 3 one that is gone, 4 a text
///          3      1  type of the arguments: 0 none, 1 number, 2 switch, 3 text (UTF-8), 4 size,
///                    5 time (milliseconds since 1970), 6 bytes; one argument stands in all keys
///          4      1  byte count n
///          5      n  the argument
///
/// @p liveController is the one that the request names with 0.
[[nodiscard]] VX_CMD fuzzedRequest(FuzzInput& input, void* liveController);
