// SPDX-License-Identifier: MIT
#pragma once

#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>

namespace bench {

/// What a benchmark program has found, as the one line of its standard output.
inline void print(const QJsonObject& result) {
    std::puts(QJsonDocument(result).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

}  // namespace bench
