// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonObject>

// The rows that set the tool's window against an empty one. Each returns what stRow::measure does;
// those about the start come from one series of runs, and so do those about memory.
namespace bench {

[[nodiscard]] QJsonObject measureStart();
[[nodiscard]] QJsonObject measureStartProcessor();
[[nodiscard]] QJsonObject measureStateMemory();
[[nodiscard]] QJsonObject measureStateMemoryUnshared();
[[nodiscard]] QJsonObject measureStateMemoryWritten();
[[nodiscard]] QJsonObject measureAllPagesMemory();
[[nodiscard]] QJsonObject measureAllPagesMemoryUnshared();
[[nodiscard]] QJsonObject measureAllPagesMemoryWritten();

}  // namespace bench
