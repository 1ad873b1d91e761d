// SPDX-License-Identifier: MIT
#include "protocol/ResultCodes.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

struct stCodeName {
    unsigned short code;
    const char* name;
};

constexpr std::array NUBO_CODES{
    stCodeName{NUBO_CMD_ERROR_UNKNOWN, "NUBO_CMD_ERROR_UNKNOWN"},
    stCodeName{NUBO_CMD_ERROR_TIMEOUT, "NUBO_CMD_ERROR_TIMEOUT"},
    stCodeName{NUBO_CMD_ERROR_DATALENGTH, "NUBO_CMD_ERROR_DATALENGTH"},
    stCodeName{NUBO_CMD_ERROR_COMMAND, "NUBO_CMD_ERROR_COMMAND"},
    stCodeName{NUBO_CMD_ERROR_PARAM, "NUBO_CMD_ERROR_PARAM"},
    stCodeName{NUBO_CMD_ERROR_EXEC, "NUBO_CMD_ERROR_EXEC"},
    stCodeName{NUBO_CMD_ERROR_BUSY, "NUBO_CMD_ERROR_BUSY"},
    stCodeName{NUBO_CMD_ERROR_INTERNAL, "NUBO_CMD_ERROR_INTERNAL"},
    stCodeName{NUBO_CMD_ERROR_NOT_SD_SPACE, "NUBO_CMD_ERROR_NOT_SD_SPACE"},
    stCodeName{NUBO_CMD_ERROR_NO_SD_ACCESS, "NUBO_CMD_ERROR_NO_SD_ACCESS"},
    stCodeName{NUBO_CMD_ERROR_BATTERY_LOW, "NUBO_CMD_ERROR_BATTERY_LOW"},
};

constexpr std::array USB_CODES{
    stCodeName{USB_ERROR_SUCCESS, "USB_ERROR_SUCCESS"},
    stCodeName{USB_ERROR_BAD_PARAM, "USB_ERROR_BAD_PARAM"},
    stCodeName{USB_ERROR_BUSY, "USB_ERROR_BUSY"},
    stCodeName{USB_ERROR_TIMEOUT, "USB_ERROR_TIMEOUT"},
    stCodeName{USB_ERROR_RECEIVE_DATA, "USB_ERROR_RECEIVE_DATA"},
    stCodeName{USB_ERROR_OTHER, "USB_ERROR_OTHER"},
};

QString nameOf(unsigned short code, std::span<const stCodeName> names) {
    const auto found = std::ranges::find(names, code, &stCodeName::code);
    if (found == names.end()) {
        return QStringLiteral("Unknown:%1").arg(static_cast<qint16>(code));
    }
    return QString::fromLatin1(found->name);
}

}  // namespace

QString getNuboCommanderrorString(unsigned short code) {
    return nameOf(code, NUBO_CODES);
}

QString resultText(unsigned short result) {
    const bool isCameraError = result != USB_ERROR_SUCCESS && !isTransportError(result);
    const QString name =
        isCameraError ? getNuboCommanderrorString(result) : getUsberrorString(result);
    return QStringLiteral("%1 (0x%2)").arg(name).arg(result, 4, 16, QLatin1Char('0'));
}

QString getUsberrorString(unsigned short code) {
    return nameOf(code, USB_CODES);
}
