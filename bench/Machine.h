// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

namespace bench {

/// What else the computer is doing: "busy" is the share (0 to 1) of the time of its "cores" that
/// has been in use during one second of waiting.
[[nodiscard]] QJsonObject watchMachine();

/// Whether so much else is running that measurements taken now are not to be trusted.
[[nodiscard]] bool isBusy(const QJsonObject& machine);

}  // namespace bench
