// SPDX-License-Identifier: MIT
#pragma once

#include <QTest>

/// How long a test waits for what must happen: long enough for a busy machine.
inline constexpr int PATIENCE_MS = 20'000;

#define TRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT(actual, expected, PATIENCE_MS)
#define TRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT(condition, PATIENCE_MS)
