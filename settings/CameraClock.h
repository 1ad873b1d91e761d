// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>

// The camera's clock has no zone. Its times are held as UTC, where every time of day exists: this
// computer's own zone may skip an hour that the camera's does not. Thread-safe.

/// What @p time shows, without its zone. Invalid when it shows no date or no time.
[[nodiscard]] inline QDateTime cameraClock(const QDateTime& time) {
    return {time.date(), time.time(), Qt::UTC};
}

/// What the clock of this computer shows.
[[nodiscard]] inline QDateTime cameraClockNow() {
    return cameraClock(QDateTime::currentDateTime());
}
