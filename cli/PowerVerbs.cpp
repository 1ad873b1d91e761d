// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/ReturnWait.h"
#include "cli/Verbs.h"
#include "protocol/NuboCommands.h"

namespace {

struct stPowerPlan : stVerbPlan {
    double patienceS = 0;  ///< for the camera to come back; 0: not waited for
};

bool act(stRun& run, ClNuboCommand&& command, const QString& what, const QString& done) {
    if (const unsigned short result = run.camera->run(command)) {
        run.report.addError(what, result);
        return false;
    }
    run.report.setHasActed();
    run.report.addLine(done);
    return true;
}

enum class Leaving { Surely, Perhaps };

/// Waits for the camera, where it is wished.
void waitBack(stRun& run, Leaving leaving) {
    constexpr int PERHAPS_MS = 3000;
    const double patienceS = static_cast<const stPowerPlan&>(*run.plan).patienceS;
    if (patienceS == 0) {
        return;
    }
    const int patienceMs = static_cast<int>(patienceS * MS_PER_SECOND);
    const stCameraIdentity& before = run.report.camera();
    stCameraIdentity after;
    const stFailure failure = waitForReturn(
        before, {leaving == Leaving::Surely ? patienceMs : PERHAPS_MS, patienceMs}, after);
    if (failure) {
        run.report.fail(failure);
    } else if (after.device != before.device) {
        run.report.addLine(QStringLiteral("back as %1:%2").arg(after.bus).arg(after.device));
        run.report.addMember(QStringLiteral("back"), cameraJson(after));
    } else if (leaving == Leaving::Surely) {
        run.report.fail(
            {ExitCode::LinkFailed,
             QStringLiteral("the camera has not left the bus within %1 s").arg(patienceS),
             {}});
    }
}

}  // namespace

stFailure prepareRestart(const stArguments& arguments, ClConsole& /*console*/,
                         std::unique_ptr<stVerbPlan>& plan) {
    constexpr double LONGEST_S = 86'400;
    auto power = std::make_unique<stPowerPlan>();
    const stFailure failure = readNumber(arguments, "wait-back", 1, LONGEST_S, power->patienceS);
    plan = std::move(power);
    return failure;
}

stFailure prepareReset(const stArguments& arguments, ClConsole& console,
                       std::unique_ptr<stVerbPlan>& plan) {
    const stFailure failure = prepareRestart(arguments, console, plan);
    return failure ? failure : checkAgreement(arguments, console);
}

void runRestart(stRun& run) {
    if (act(run, ClNuboCommandRestart(), QStringLiteral("restart"), QStringLiteral("restarts"))) {
        waitBack(run, Leaving::Surely);
    }
}

void runPowerOff(stRun& run) {
    static_cast<void>(act(run, ClNuboCommandPowerOff(), QStringLiteral("poweroff"),
                          QStringLiteral("switches itself off")));
}

void runReset(stRun& run) {
    const bool isAgreedTo =
        agreesTo(run, QStringLiteral("Put all settings of camera %1 back to their defaults?"));
    if (!isAgreedTo || !act(run, ClNuboCommandInitSetting(), QStringLiteral("reset"),
                            QStringLiteral("settings are at their defaults"))) {
        return;
    }
    waitBack(run, Leaving::Perhaps);
}
