// SPDX-License-Identifier: MIT
#include "bench/Rows.h"

#include "bench/Children.h"
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

// clang-format off
constexpr std::array ROWS{
    stRow{"start",                 "start to first painted window",     "empty window",            "",     1.3, measureStart},
    stRow{"start-processor",       "  processor time of it",            "empty window",            "",     {},  measureStartProcessor},
    stRow{"memory-state",          "private memory, camera state page", "empty window",            " MiB", 5.0, measureStateMemory},
    stRow{"memory-state-unshared", "  if no library were shared",       "empty window",            " MiB", {},  measureStateMemoryUnshared},
    stRow{"memory-state-written",  "  of it written",                   "empty window",            " MiB", {},  measureStateMemoryWritten},
    stRow{"memory-all",            "private memory, after all pages",   "empty window",            " MiB", 8.0, measureAllPagesMemory},
    stRow{"memory-all-unshared",   "  if no library were shared",       "empty window",            " MiB", {},  measureAllPagesMemoryUnshared},
    stRow{"memory-all-written",    "  of it written",                   "empty window",            " MiB", {},  measureAllPagesMemoryWritten},
    stRow{"search",                "search pass, camera known",         "libusb list, descriptors", "",    1.1, measureSearch},
    stRow{"round-trip",            "request to reply, page to page",    "two queued signals",      "",     1.5, measureRoundTrip},
    stRow{"get",                   "plain get on the virtual bus",      "libusb write and read",   "",     1.1, measureGet},
    stRow{"picture",               "16 MiB picture on the virtual bus", "same transfers by libusb",  "",     1.1, measurePicture},
};
// clang-format on

}  // namespace

std::span<const stRow> rows() {
    return ROWS;
}

}  // namespace bench
