// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandMessage.h"

/// Writes @p values into @p message from PARAM2 on, each as a variant of just its type.
template <class... Values>
void setValues(VX_CMD& message, const Values&... values) {
    auto key = Key::VALUES.cbegin();
    (message.insert(*key++, QVariant::fromValue(values)), ...);
}

/// Reads @p values from @p message from PARAM2 on. One that is missing reads as 0 or empty.
template <class... Values>
void getValues(const VX_CMD& message, Values&... values) {
    auto key = Key::VALUES.cbegin();
    ((values = message.value(*key++).template value<Values>()), ...);
}
