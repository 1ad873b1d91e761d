// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/SettingWriter.h"
#include "cli/Verbs.h"
#include "settings/CameraClock.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <array>

namespace {

constexpr std::array<std::string_view, 1> ACTIONS{"sync"};
constexpr const stSetting& CLOCK = setting("camera.clock");

void tellClock(stRun& run) {
    QVariant clock;
    if (const unsigned short result = run.camera->settings().read(CLOCK, clock)) {
        run.report.addError(toText(CLOCK.key), result);
        return;
    }
    const qint64 ahead = cameraClockNow().secsTo(clock.toDateTime());
    const QString off =
        ahead == 0 ? QStringLiteral("as this computer's")
                   : QStringLiteral("%1 s %2 this computer's")
                         .arg(qAbs(ahead))
                         .arg(ahead > 0 ? QLatin1String("ahead of") : QLatin1String("behind"));
    run.report.addReading(CLOCK, clock, QStringLiteral("%1, %2").arg(valueText(CLOCK, clock), off));
    run.report.addMember(QStringLiteral("secondsAhead"), ahead);
}

}  // namespace

stFailure prepareClock(const stArguments& arguments, ClConsole& /*console*/,
                       std::unique_ptr<stVerbPlan>& /*plan*/) {
    return checkAction(arguments, ACTIONS);
}

void runClock(stRun& run) {
    if (run.arguments.values.isEmpty()) {
        tellClock(run);
        return;
    }
    const QList<stDifference> differences =
        readDifferences(run, {{&CLOCK, cameraClockNow(), true}});
    if (!run.report.hasFailed()) {
        writeDifferences(run, differences, false);
    }
}
