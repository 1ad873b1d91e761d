// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// How a run ended, as scripts learn it.
enum class ExitCode {
    Done = 0,
    No = 1,        ///< the answer is no: differs, found something, read back differently
    WrongUse = 2,  ///< nothing was sent
    NoCamera = 3,  ///< none such, or several and none chosen
    InUse = 4,     ///< another program holds the camera
    AccessDenied = 5,
    Refused = 6,     ///< by the camera
    LinkFailed = 7,  ///< or the camera went
    PartlyDone = 8,
    Computer = 9,       ///< a file or something else on this computer
    Interrupted = 130,  ///< after the transaction under way
};

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
