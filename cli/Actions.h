// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Verb.h"

/// Whether the first value of the verb is one of @p known. No value at all is fine.
[[nodiscard]] stFailure checkAction(const stArguments& arguments,
                                    std::span<const std::string_view> known);

/// Takes the number of an option, from @p least to @p most; without the option @p number stays.
[[nodiscard]] stFailure readNumber(const stArguments& arguments, const char* option, double least,
                                   double most, double& number);

/// The camera's serial number for people, or its port while that is unknown.
[[nodiscard]] QString cameraName(stRun& run);

/// Refuses what needs an agreement that nobody can give: no --yes, and no terminal. For prepare.
[[nodiscard]] stFailure checkAgreement(const stArguments& arguments, const ClConsole& console);

/// Whether the user agrees to @p question, in which %1 stands for the camera's name.
[[nodiscard]] bool agreesTo(stRun& run, const QString& question);

inline constexpr int MS_PER_SECOND = 1000;
