// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <span>
#include <string_view>

/// How a run ended, as scripts learn it.
enum class ExitCode {
    Done = 0,
    No = 1,
    WrongUse = 2,
    NoCamera = 3,
    InUse = 4,
    AccessDenied = 5,
    Refused = 6,
    LinkFailed = 7,
    PartlyDone = 8,
    Computer = 9,
    Interrupted = 130,
};

/// What an exit code is called, and what it means.
struct stExitMeaning {
    ExitCode exit;
    std::string_view name;  ///< in JSON, as in "no-camera"
    std::string_view meaning;
};

/// All exit codes, in their order.
[[nodiscard]] std::span<const stExitMeaning> exitMeanings();

/// The name of an exit code in JSON, as in "no-camera".
[[nodiscard]] QString exitName(ExitCode exit);

/// Why a run ended before its verb could do its work.
struct stFailure {
    ExitCode exit = ExitCode::Done;
    QString message{};
    QString holder{};  ///< the program that holds the camera, as in "nubo-setting-tool (pid 4711)"

    [[nodiscard]] explicit operator bool() const { return exit != ExitCode::Done; }
};

/// What several cameras' runs come to: their common exit code; PartlyDone when some have failed.
[[nodiscard]] ExitCode joined(ExitCode one, ExitCode other);
