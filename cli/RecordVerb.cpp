// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Verbs.h"
#include "protocol/NuboCommands.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <array>

namespace {

constexpr std::array<std::string_view, 3> ACTIONS{"start", "stop", "status"};
constexpr const stSetting& STATE = setting("recording.state");

}  // namespace

stFailure prepareRecord(const stArguments& arguments, ClConsole& /*console*/,
                        std::unique_ptr<stVerbPlan>& /*plan*/) {
    return checkAction(arguments, ACTIONS);
}

void runRecord(stRun& run) {
    const QString& action = run.arguments.values.first();
    const bool isAsking = action == QLatin1String("status");
    const bool starts = action == QLatin1String("start");
    if (!isAsking) {
        ClNuboCommandCtrlRec command(starts);
        if (const unsigned short result = run.camera->run(command)) {
            run.report.addError(QStringLiteral("record ") + action, result);
            return;
        }
        run.report.setHasActed();
    }
    QVariant state;
    if (const unsigned short result = run.camera->settings().read(STATE, state)) {
        run.report.addError(toText(STATE.key), result);
        return;
    }
    const QString text = valueText(STATE, state);
    run.report.addReading(STATE, state, text);
    const QString wanted = starts ? QStringLiteral("running") : QStringLiteral("stopped");
    if (!isAsking && text != wanted) {
        run.report.fail({ExitCode::No, QStringLiteral("the recording is %1 still").arg(text), {}});
    }
}
