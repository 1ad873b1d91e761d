// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Readings.h"
#include "cli/Verbs.h"
#include "protocol/NuboCommands.h"
#include "settings/SettingTable.h"

#include <array>

namespace {

constexpr std::array<std::string_view, 1> ACTIONS{"format"};
constexpr int FORMAT_TIMEOUT_MS = 3000;  // a large card takes its time

constexpr std::array CARD{
    &setting("sd.total"),
    &setting("sd.used"),
    &setting("sd.free"),
    &setting("sd.file-system"),
};

void formatCard(stRun& run) {
    if (!agreesTo(run,
                  QStringLiteral("Format the SD card of camera %1? All that is on it is lost."))) {
        return;
    }
    ClNuboCommandFormatSd command;
    if (const unsigned short result =
            run.camera->execNuboCommand(command, nullptr, FORMAT_TIMEOUT_MS)) {
        run.report.addError(QStringLiteral("sd format"), result);
        return;
    }
    run.report.setHasActed();
    run.report.addLine(QStringLiteral("formatted"));
}

}  // namespace

stFailure prepareCard(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& /*plan*/) {
    const stFailure failure = checkAction(arguments, ACTIONS);
    return failure || arguments.values.isEmpty() ? failure : checkAgreement(arguments, console);
}

void runCard(stRun& run) {
    if (!run.arguments.values.isEmpty()) {
        formatCard(run);
    }
    if (!run.report.hasFailed()) {
        tellReadings(*run.camera, run.report, CARD);
    }
}
