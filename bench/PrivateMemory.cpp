// SPDX-License-Identifier: MIT
#include "bench/PrivateMemory.h"

#include "bench/Scene.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <string_view>

namespace bench {

namespace {

int kibibytes(std::string_view rollup, std::string_view field) {
    const std::size_t place = rollup.find(field);
    return place == std::string_view::npos ? 0 : std::atoi(rollup.data() + place + field.size());
}

}  // namespace

QJsonObject privateMemory() {
    // Read before anything is allocated for the answer.
    std::array<char, 4096> text{};
    const int file = ::open("/proc/self/smaps_rollup", O_RDONLY | O_CLOEXEC);
    const ssize_t size = ::read(file, text.data(), text.size() - 1);
    ::close(file);
    const std::string_view rollup(text.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
    return {
        {WRITTEN, kibibytes(rollup, "Private_Dirty:")},
        {CLEAN, kibibytes(rollup, "Private_Clean:")},
        {SHARED, kibibytes(rollup, "Shared_Clean:")},
    };
}

}  // namespace bench
