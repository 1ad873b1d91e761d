// SPDX-License-Identifier: MIT
#include "simulator/FilePermissions.h"

#include <linux/capability.h>
#include <sys/prctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

namespace nubo::simulator {

bool passesOverFilePermissions() {
    return ::geteuid() == 0 && ::prctl(PR_CAPBSET_READ, CAP_DAC_OVERRIDE) == 1;
}

std::string heedFilePermissions() {
    if (!passesOverFilePermissions()) {
        return {};
    }
    // A program that root starts gets the rights of the bounding set, and no others.
    for (const int right : {CAP_DAC_OVERRIDE, CAP_DAC_READ_SEARCH}) {
        if (::prctl(PR_CAPBSET_DROP, right) != 0) {
            return std::string("root's rights cannot be given up: ") + std::strerror(errno);
        }
    }
    return {};
}

}  // namespace nubo::simulator
