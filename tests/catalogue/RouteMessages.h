// SPDX-License-Identifier: MIT
#pragma once

#include "protocol/CommandIdentifiers.h"
#include "protocol/CommandMessage.h"

#include <QDebug>

/// The message with which @p page asks @p controller for @p request.
[[nodiscard]] inline VX_CMD requestMessage(const QUuid& request, const QVariantList& arguments,
                                           QObject* page, void* controller) {
    VX_CMD message{{QStringLiteral("CMD"), request},
                   {QStringLiteral("Sender"), QVariant::fromValue(page)},
                   {QStringLiteral("PARAM1"), QVariant::fromValue(controller)}};
    for (qsizetype i = 0; i < arguments.size(); ++i) {
        message.insert(QStringLiteral("PARAM%1").arg(i + 2), arguments[i]);
    }
    return message;
}

/// The plain result message that answers @p request with @p result.
[[nodiscard]] inline VX_CMD resultMessage(const QUuid& request, void* controller,
                                          unsigned short result) {
    const bool isTransportError = result >= 0xEF00 && result <= 0xEF05;
    return {{QStringLiteral("CMD"), isTransportError ? USB_CMD_ERROR : USB_NUBO_CMD_RESPONSE},
            {QStringLiteral("PARAM1"), QVariant::fromValue(controller)},
            {QStringLiteral("PARAM2"), request},
            {QStringLiteral("PARAM3"), QVariant::fromValue(result)}};
}

/// @p message in words, with the type of each value, so that messages can be compared to the type.
[[nodiscard]] inline QStringList typedText(const VX_CMD& message) {
    QStringList lines;
    for (auto entry = message.cbegin(); entry != message.cend(); ++entry) {
        QString value;
        QDebug(&value).nospace() << entry.value();
        lines.append(entry.key() + QStringLiteral(": ") + value);
    }
    return lines;
}
