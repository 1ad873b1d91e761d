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

// WifiVerbs.cpp
stFailure prepareWifi(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& plan);
void runWifi(stRun& run);

// CardVerb.cpp
stFailure prepareCard(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& plan);
void runCard(stRun& run);

// ClockVerb.cpp
stFailure prepareClock(const stArguments& arguments, ClConsole& console,
                       std::unique_ptr<stVerbPlan>& plan);
void runClock(stRun& run);

// RecordVerb.cpp
stFailure prepareRecord(const stArguments& arguments, ClConsole& console,
                        std::unique_ptr<stVerbPlan>& plan);
void runRecord(stRun& run);

// PowerVerbs.cpp
stFailure prepareRestart(const stArguments& arguments, ClConsole& console,
                         std::unique_ptr<stVerbPlan>& plan);
stFailure prepareReset(const stArguments& arguments, ClConsole& console,
                       std::unique_ptr<stVerbPlan>& plan);
void runRestart(stRun& run);
void runPowerOff(stRun& run);
void runReset(stRun& run);

// DataVerbs.cpp
stFailure preparePicture(const stArguments& arguments, ClConsole& console,
                         std::unique_ptr<stVerbPlan>& plan);
stFailure prepareAudio(const stArguments& arguments, ClConsole& console,
                       std::unique_ptr<stVerbPlan>& plan);
void runPicture(stRun& run);
void runAudio(stRun& run);

// StreamUrlVerb.cpp
void runStreamUrl(stRun& run);

// FirmwareVerb.cpp
stFailure prepareFirmware(const stArguments& arguments, ClConsole& console,
                          std::unique_ptr<stVerbPlan>& plan);
void runFirmware(stRun& run);

// CompletionVerb.cpp
stFailure prepareCompletion(const stArguments& arguments, ClConsole& console,
                            std::unique_ptr<stVerbPlan>& plan);
void runCompletion(stRun& run);

// RawVerb.cpp
stFailure prepareRaw(const stArguments& arguments, ClConsole& console,
                     std::unique_ptr<stVerbPlan>& plan);
void runRaw(stRun& run);

// DescriptorsVerb.cpp
void runDescriptors(stRun& run);

// MonitorVerb.cpp
stFailure prepareMonitor(const stArguments& arguments, ClConsole& console,
                         std::unique_ptr<stVerbPlan>& plan);
void runMonitor(stRun& run);

// DoctorVerb.cpp
void runDoctor(stRun& run);
