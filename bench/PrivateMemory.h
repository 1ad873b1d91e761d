// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

namespace bench {

/// The memory of this process now: its kinds, as Scene.h names them.
[[nodiscard]] QJsonObject privateMemory();

}  // namespace bench
