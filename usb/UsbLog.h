// SPDX-License-Identifier: MIT
#pragma once

#include <QLoggingCategory>

/// "nubo.usb": what a user who starts the tool in a terminal should learn about the camera's link.
Q_DECLARE_LOGGING_CATEGORY(usbLog)

/// "nubo.usb.wire": every transfer in hexadecimal, at debug level.
Q_DECLARE_LOGGING_CATEGORY(usbWireLog)
