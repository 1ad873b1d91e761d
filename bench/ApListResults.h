// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

// What the benchmark of the access-point list prints, each with the values of a row of the table.
namespace bench {

inline const QString MIDDLING_ROWS = QStringLiteral("middlingRows");
inline const QString LONG_ROWS = QStringLiteral("longRows");
inline const QString LONG_LIST = QStringLiteral("longList");

}  // namespace bench
