// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUuid>

#include <span>

// A constant for each identifier of the list, under its own name:
//   USB_REQ_NUBO_CMD_GET_<item>  a page asks the camera for a value
//   USB_RES_NUBO_CMD_GET_<item>  the answer that carries the value
//   USB_NUBO_CMD_SET_<item>      a page sets a value; a plain result answers
//   USB_NUBO_CMD_<action>        a page orders an action; a plain result answers
//   USB_CMD_<event>              messages of the USB side that belong to no single command
#define NUBO_IDENTIFIER(NAME, ...) inline constexpr QUuid NAME{__VA_ARGS__};
#define NUBO_SHARED_IDENTIFIER(NAMESPACE, NAME, ...) \
    namespace NAMESPACE {                            \
    inline constexpr QUuid NAME{__VA_ARGS__};        \
    }
#include "protocol/CommandIdentifiers.inc"
#undef NUBO_SHARED_IDENTIFIER
#undef NUBO_IDENTIFIER

/// One command identifier and its symbolic name.
struct stCommandIdentifier {
    QUuid uuid;
    const char* name;  ///< ASCII
};

/// Every command identifier, in the order in which getUsbCommand() looks. Thread-safe.
[[nodiscard]] std::span<const stCommandIdentifier> commandIdentifiers();

/// The symbolic name of @p command for diagnostics, or "Unknown:" and the UUID in braces.
/// Thread-safe.
[[nodiscard]] QString getUsbCommand(const QUuid& command);
