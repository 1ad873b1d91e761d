// SPDX-License-Identifier: MIT
#pragma once

#include <QSize>
#include <QString>

// What a window of the benchmarks is to do besides its own work. The program that starts it says so
// by environment, so that the start-up code that is measured knows nothing of it.
namespace bench {

/// The size of the window, the tool's own and the empty one that it is measured against.
inline constexpr QSize WINDOW_SIZE{600, 620};

/// Names the scene: one of those below.
inline constexpr const char* SCENE_VARIABLE = "NUBO_BENCH_SCENE";
/// Prints how many milliseconds have passed to the first painted window and how many of them were
/// computed, and ends.
inline constexpr const char* FIRST_PAINT_SCENE = "first-paint";
/// Prints the private memory, of the tool also after a walk through all pages, and ends.
inline constexpr const char* MEMORY_SCENE = "memory";

/// Of the runs of nuboctl: which.
inline constexpr const char* NUBOCTL_GET_SCENE = "nuboctl-get";
inline constexpr const char* NUBOCTL_PICTURE_SCENE = "nuboctl-picture";
inline constexpr const char* NUBOCTL_EXPORT_SCENE = "nuboctl-export";

/// When the process was started: nanoseconds of the monotonic clock.
inline constexpr const char* STARTED_VARIABLE = "NUBO_BENCH_STARTED";

// What the scenes print: of the start,
inline const QString PASSED = QStringLiteral("passed");
inline const QString COMPUTED = QStringLiteral("computed");
// of memory, the moment
inline const QString SETTLED = QStringLiteral("settled");
inline const QString CAMERA_STATE = QStringLiteral("cameraState");
inline const QString ALL_PAGES = QStringLiteral("allPages");
// and the kind, in KiB: what the process has written, what it has read of mapped files and no other
// process has mapped, and what others have mapped too.
inline const QString WRITTEN = QStringLiteral("written");
inline const QString CLEAN = QStringLiteral("clean");
inline const QString SHARED = QStringLiteral("shared");

}  // namespace bench
