// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// Result codes of transfers and transactions, 16 bits wide: 0, the codes of the transport from
// 0xEF00 to 0xEF05, and the camera's own codes (the code field of its answers) from 0xFFF5 up. The
// two ranges never meet, so one comparison tells a failed link from a camera that refuses.

inline constexpr unsigned short USB_ERROR_SUCCESS = 0x0000;
/// The camera is not, or no longer, on the bus. Diagnostics have no name for this code.
inline constexpr unsigned short USB_NO_DEVICE = 0xEF00;
inline constexpr unsigned short USB_ERROR_BAD_PARAM = 0xEF01;
inline constexpr unsigned short USB_ERROR_BUSY = 0xEF02;
inline constexpr unsigned short USB_ERROR_TIMEOUT = 0xEF03;
inline constexpr unsigned short USB_ERROR_RECEIVE_DATA = 0xEF04;
inline constexpr unsigned short USB_ERROR_OTHER = 0xEF05;

inline constexpr unsigned short NUBO_CMD_ERROR_UNKNOWN = 0xFFFF;
inline constexpr unsigned short NUBO_CMD_ERROR_TIMEOUT = 0xFFFE;
inline constexpr unsigned short NUBO_CMD_ERROR_DATALENGTH = 0xFFFD;
inline constexpr unsigned short NUBO_CMD_ERROR_COMMAND = 0xFFFC;
inline constexpr unsigned short NUBO_CMD_ERROR_PARAM = 0xFFFB;
inline constexpr unsigned short NUBO_CMD_ERROR_EXEC = 0xFFFA;
inline constexpr unsigned short NUBO_CMD_ERROR_BUSY = 0xFFF9;
inline constexpr unsigned short NUBO_CMD_ERROR_INTERNAL = 0xFFF8;
inline constexpr unsigned short NUBO_CMD_ERROR_NOT_SD_SPACE = 0xFFF7;
inline constexpr unsigned short NUBO_CMD_ERROR_NO_SD_ACCESS = 0xFFF6;
inline constexpr unsigned short NUBO_CMD_ERROR_BATTERY_LOW = 0xFFF5;

/// Whether @p result says that the USB link failed (0xEF00 to 0xEF05).
[[nodiscard]] constexpr bool isTransportError(unsigned short result) {
    return result >= USB_NO_DEVICE && result <= USB_ERROR_OTHER;
}

/// The name of a camera code for diagnostics, or "Unknown:" and the code as a signed decimal, which
/// is also what success (0) gives.
[[nodiscard]] QString getNuboCommanderrorString(unsigned short code);

/// The name of @p result for diagnostics, whichever of the two kinds it is, and the code, as in
/// "USB_ERROR_TIMEOUT (0xef03)".
[[nodiscard]] QString resultText(unsigned short result);

/// The name of a transport code for diagnostics, or "Unknown:" and the code as a signed decimal,
/// which is also what USB_NO_DEVICE gives.
[[nodiscard]] QString getUsberrorString(unsigned short code);
