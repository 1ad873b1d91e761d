// SPDX-License-Identifier: MIT
#pragma once

#include "cli/Verb.h"

// What the verbs of the table do, each in the file of its subject.

// ListVerb.cpp
void runList(stRun& run);

// StatusVerbs.cpp
stFailure prepareStatus(const stArguments& arguments, ClConsole& console,
                        std::unique_ptr<stVerbPlan>& plan);
void runInfo(stRun& run);
void runStatus(stRun& run);

// GetVerbs.cpp
stFailure prepareGet(const stArguments& arguments, ClConsole& console,
                     std::unique_ptr<stVerbPlan>& plan);
void runGet(stRun& run);
void runDescribe(stRun& run);

// SetVerb.cpp
stFailure prepareSet(const stArguments& arguments, ClConsole& console,
                     std::unique_ptr<stVerbPlan>& plan);
void runSet(stRun& run);

// HelpVerb.cpp
stFailure prepareHelp(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& plan);
void runHelp(stRun& run);

// ProfileVerbs.cpp
stFailure prepareExport(const stArguments& arguments, ClConsole& console,
                        std::unique_ptr<stVerbPlan>& plan);
void runExport(stRun& run);
stFailure prepareDiff(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& plan);
void runDiff(stRun& run);
stFailure prepareApply(const stArguments& arguments, ClConsole& console,
                       std::unique_ptr<stVerbPlan>& plan);
void runApply(stRun& run);
