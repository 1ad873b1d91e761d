// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Interruption.h"
#include "cli/Readings.h"
#include "cli/Verbs.h"
#include "settings/SettingTable.h"

#include <array>

namespace {

constexpr std::array IDENTITY{
    &setting("identity.model"),    &setting("identity.serial"),  &setting("camera.name"),
    &setting("identity.firmware"), &setting("identity.created"), &setting("identity.country"),
    &setting("identity.lens"),     &setting("identity.mac"),
};

constexpr std::array STATE{
    &setting("battery.charge"),   &setting("battery.state"), &setting("wifi.link"),
    &setting("wifi.linked-ssid"), &setting("wifi.channel"),  &setting("wifi.signal"),
    &setting("sd.total"),         &setting("sd.free"),       &setting("sd.file-system"),
    &setting("recording.state"),  &setting("camera.clock"),
};

struct stStatusPlan : stVerbPlan {
    int pauseMs = 0;  ///< between two looks; 0: one is enough
};

}  // namespace

void runInfo(stRun& run) {
    tellReadings(*run.camera, run.report, IDENTITY);
}

stFailure prepareStatus(const stArguments& arguments, ClConsole& /*console*/,
                        std::unique_ptr<stVerbPlan>& plan) {
    auto status = std::make_unique<stStatusPlan>();
    if (arguments.has("watch")) {
        constexpr double LONGEST_S = 86'400;
        constexpr double MS_PER_SECOND = 1000;
        bool isNumber = false;
        const double seconds = arguments.option("watch").toDouble(&isNumber);
        if (!isNumber || !(seconds > 0 && seconds <= LONGEST_S)) {
            return {ExitCode::WrongUse,
                    QStringLiteral("--watch: %1 is not a number of seconds up to a day")
                        .arg(arguments.option("watch")),
                    {}};
        }
        status->pauseMs = std::max(1, static_cast<int>(seconds * MS_PER_SECOND));
    }
    plan = std::move(status);
    return {};
}

void runStatus(stRun& run) {
    const int pauseMs = static_cast<const stStatusPlan&>(*run.plan).pauseMs;
    if (pauseMs == 0) {
        tellReadings(*run.camera, run.report, STATE);
        return;
    }
    run.report.setIsTold();
    do {
        ClReport look(run.report.camera(), false);
        run.camera->settings().forget();
        tellReadings(*run.camera, look, STATE);
        if (!look.isLinkUp()) {
            run.report.take(look);
            return;
        }
        if (!run.arguments.has("all")) {
            look.addLine({});
        }
        printReport(look, run.arguments, run.console);
    } while (run.console.pause(pauseMs));
    if (Interruption::isRequested()) {
        run.report.fail({ExitCode::Interrupted, QStringLiteral("interrupted"), {}});
    }
}
