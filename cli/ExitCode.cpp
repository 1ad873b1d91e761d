// SPDX-License-Identifier: MIT
#include "cli/ExitCode.h"

#include "settings/TableText.h"

#include <algorithm>
#include <array>

namespace {

// clang-format off
constexpr std::array MEANINGS{
    stExitMeaning{ExitCode::Done,         "done",          "done"},
    stExitMeaning{ExitCode::No,           "no",            "the answer is no: diff differs, doctor found something, read back differently"},
    stExitMeaning{ExitCode::WrongUse,     "wrong-use",     "wrong use; nothing was sent"},
    stExitMeaning{ExitCode::NoCamera,     "no-camera",     "no such camera, or several and none chosen"},
    stExitMeaning{ExitCode::InUse,        "in-use",        "in use by another program"},
    stExitMeaning{ExitCode::AccessDenied, "access-denied", "access denied"},
    stExitMeaning{ExitCode::Refused,      "refused",       "the camera refuses"},
    stExitMeaning{ExitCode::LinkFailed,   "link-failed",   "the link failed, or the camera went"},
    stExitMeaning{ExitCode::PartlyDone,   "partly-done",   "partly done"},
    stExitMeaning{ExitCode::Computer,     "computer",      "a file or something else on this computer"},
    stExitMeaning{ExitCode::Interrupted,  "interrupted",   "interrupted, after the transaction under way"},
};
// clang-format on

bool isFailure(ExitCode exit) {
    return exit != ExitCode::Done && exit != ExitCode::No;
}

}  // namespace

std::span<const stExitMeaning> exitMeanings() {
    return MEANINGS;
}

QString exitName(ExitCode exit) {
    return toText(std::ranges::find(MEANINGS, exit, &stExitMeaning::exit)->name);
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
