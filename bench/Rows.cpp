// SPDX-License-Identifier: MIT
#include "bench/Rows.h"

#include "bench/ApListResults.h"
#include "bench/Children.h"
#include "bench/Scene.h"
#include "bench/WindowRows.h"

#include <array>

namespace bench {

namespace {

QJsonObject measureSearch() {
    return run(QStringLiteral("bench-search"), Bus::Simulated);
}

QJsonObject measureRoundTrip() {
    return run(QStringLiteral("bench-round-trip"));
}

QJsonObject measureGet() {
    return run(QStringLiteral("bench-get"), Bus::TwoCameras);
}

QJsonObject measurePicture() {
    return run(QStringLiteral("bench-picture"), Bus::LargePictures);
}

QJsonObject measureNuboctlGet() {
    return run(QStringLiteral("bench-nuboctl"), Bus::Simulated, NUBOCTL_GET_SCENE);
}

QJsonObject measureNuboctlPicture() {
    return run(QStringLiteral("bench-nuboctl"), Bus::LargePictures, NUBOCTL_PICTURE_SCENE);
}

QJsonObject measureNuboctlExport() {
    return run(QStringLiteral("bench-nuboctl"), Bus::SlowCameras, NUBOCTL_EXPORT_SCENE);
}

/// All three come from one series of runs.
QJsonObject apListResult(const QString& name) {
    static const QJsonObject results = run(QStringLiteral("bench-ap-list"));
    return results.value(name).toObject();
}

QJsonObject measureLongRows() {
    return apListResult(LONG_ROWS);
}

QJsonObject measureMiddlingRows() {
    return apListResult(MIDDLING_ROWS);
}

QJsonObject measureLongList() {
    return apListResult(LONG_LIST);
}

// clang-format off
constexpr std::array ROWS{
    stRow{"start",                 "start to first painted window",     "window, one line of text", "",     1.2, measureStart},
    stRow{"start-processor",       "  processor time of it",            "window, one line of text", "",     {},  measureStartProcessor},
    stRow{"memory-state",          "private memory, camera state page", "window, one line of text", " MiB", 5.0, measureStateMemory},
    stRow{"memory-state-unshared", "  if no library were shared",       "window, one line of text", " MiB", {},  measureStateMemoryUnshared},
    stRow{"memory-state-written",  "  of it written",                   "window, one line of text", " MiB", {},  measureStateMemoryWritten},
    stRow{"memory-all",            "private memory, after all pages",   "window, one line of text", " MiB", 8.0, measureAllPagesMemory},
    stRow{"memory-all-unshared",   "  if no library were shared",       "window, one line of text", " MiB", {},  measureAllPagesMemoryUnshared},
    stRow{"memory-all-written",    "  of it written",                   "window, one line of text", " MiB", {},  measureAllPagesMemoryWritten},
    stRow{"search",                "search pass, camera known",         "libusb list, descriptors", "",    1.1, measureSearch},
    stRow{"round-trip",            "request to reply, page to page",    "two queued signals",      "",     1.5, measureRoundTrip},
    stRow{"get",                   "plain get on the virtual bus",      "libusb write and read",   "",     1.1, measureGet},
    stRow{"picture",               "1 MiB picture on the virtual bus",  "same transfers by libusb",  "",     1.1, measurePicture},
    stRow{"nuboctl-get",           "nuboctl get, from exec to exit",    "same by libusb alone",     "",     1.5, measureNuboctlGet},
    stRow{"nuboctl-picture",       "nuboctl picture of 1 MiB",          "same by libusb alone",     "",     1.1, measureNuboctlPicture},
    stRow{"nuboctl-export",        "nuboctl export --all, 16 cameras",  "one of them",              "",     1.5, measureNuboctlExport},
    stRow{"list",                  "filling 500 access points, a row",  "64 of them",              "",     1.1, measureLongRows},
    stRow{"list-256",              "  256 access points, a row",        "64 of them",              "",     {},  measureMiddlingRows},
    stRow{"list-whole",            "filling 500 access points",         "no yardstick; 64 of them", " ms", 150, measureLongList},
};
// clang-format on

}  // namespace

std::span<const stRow> rows() {
    return ROWS;
}

}  // namespace bench
