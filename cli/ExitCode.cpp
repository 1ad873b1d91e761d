// SPDX-License-Identifier: MIT
#include "cli/ExitCode.h"

#include <algorithm>
#include <array>

namespace {

struct stExitName {
    ExitCode exit;
    const char* name;
};

constexpr std::array NAMES{
    stExitName{ExitCode::Done, "done"},
    stExitName{ExitCode::No, "no"},
    stExitName{ExitCode::WrongUse, "wrong-use"},
    stExitName{ExitCode::NoCamera, "no-camera"},
    stExitName{ExitCode::InUse, "in-use"},
    stExitName{ExitCode::AccessDenied, "access-denied"},
    stExitName{ExitCode::Refused, "refused"},
    stExitName{ExitCode::LinkFailed, "link-failed"},
    stExitName{ExitCode::PartlyDone, "partly-done"},
    stExitName{ExitCode::Computer, "computer"},
    stExitName{ExitCode::Interrupted, "interrupted"},
};

bool isFailure(ExitCode exit) {
    return exit != ExitCode::Done && exit != ExitCode::No;
}

}  // namespace

QString exitName(ExitCode exit) {
    return QString::fromLatin1(std::ranges::find(NAMES, exit, &stExitName::exit)->name);
}

ExitCode joined(ExitCode one, ExitCode other) {
    if (one == other) {
        return one;
    }
    if (one == ExitCode::Interrupted || other == ExitCode::Interrupted) {
        return ExitCode::Interrupted;
    }
    return isFailure(one) || isFailure(other) ? ExitCode::PartlyDone : ExitCode::No;
}
