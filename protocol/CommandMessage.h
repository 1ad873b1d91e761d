// SPDX-License-Identifier: MIT
#pragma once

#include <QList>
#include <QString>
#include <QVariantMap>

class ClUsbController;

/// The command message: the one kind of message between the user interface and the USB side. It
/// crosses threads by value in queued signals.
///
/// Every message names what it is about under Key::CMD. A plain result carries the controller in
/// Key::PARAM1, the identifier of the request it answers in Key::PARAM2 and the 16-bit result code
/// in Key::PARAM3. A value reply is the request's own map with the answer's identifier under
/// Key::CMD and the values from Key::PARAM2 on.
using VX_CMD = QVariantMap;

/// The keys of a command message.
namespace Key {
inline const QString CMD = QStringLiteral("CMD");        ///< QUuid: the command identifier
inline const QString SENDER = QStringLiteral("Sender");  ///< QObject*: the page that asked
inline const QString PARAM1 = QStringLiteral("PARAM1");  ///< void*: the camera's controller
inline const QString PARAM2 = QStringLiteral("PARAM2");
inline const QString PARAM3 = QStringLiteral("PARAM3");
inline const QString PARAM4 = QStringLiteral("PARAM4");
inline const QString PARAM5 = QStringLiteral("PARAM5");
inline const QString PARAM6 = QStringLiteral("PARAM6");
inline const QString PARAM7 = QStringLiteral("PARAM7");
inline const QString PARAM8 = QStringLiteral("PARAM8");

/// The keys of a command's arguments and values in order: PARAM2 to PARAM8.
inline const QList<QString> VALUES{PARAM2, PARAM3, PARAM4, PARAM5, PARAM6, PARAM7, PARAM8};
}  // namespace Key

/// The command identifier of @p message; a null UUID when there is none. Thread-safe.
[[nodiscard]] QUuid getCommand(const VX_CMD& message);

/// The controller that Key::PARAM1 names, or null when the key is missing or holds no pointer. The
/// pointer may dangle: it is an identity, to be checked against the list of live controllers before
/// use. Thread-safe.
[[nodiscard]] ClUsbController* getController(const VX_CMD& message);

/// The plain result message that answers @p request with @p result. Its identifier is
/// USB_CMD_ERROR for a failure of the transport and USB_NUBO_CMD_RESPONSE for everything else, the
/// camera's own error codes and success included. Thread-safe.
[[nodiscard]] VX_CMD communicationResult(void* controller, const QUuid& request,
                                         unsigned short result);

/// Makes VX_CMD and AccesspointList known to the meta-type system under these names, as queued
/// signals need it. May be called again. Main thread, before the first connection.
void registerCommandTypes();
