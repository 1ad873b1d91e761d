// SPDX-License-Identifier: MIT
#include "usb/UsbLog.h"

Q_LOGGING_CATEGORY(usbLog, "nubo.usb", QtInfoMsg)
Q_LOGGING_CATEGORY(usbWireLog, "nubo.usb.wire", QtInfoMsg)
