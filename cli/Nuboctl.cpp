// SPDX-License-Identifier: MIT
#include "cli/Nuboctl.h"

#include "cli/Arguments.h"
#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/HelpText.h"
#include "cli/Interruption.h"
#include "protocol/ResultCodes.h"
#include "settings/SettingTable.h"

#include <algorithm>
#include <numeric>
#include <thread>

namespace {

struct stWork {
    const stArguments& arguments;
    ClConsole& console;
    ClCameraFinder& finder;
    const stVerbPlan* plan;
};

ExitCode tell(const stFailure& failure, bool isJson, ClConsole& console) {
    if (isJson) {
        printJson(console, failureJson(failure));
    }
    console.error(failure.message);
    return failure.exit;
}

ExitCode tell(const ClReport& report, const stWork& work) {
    printReport(report, work.arguments, work.console);
    return report.exit();
}

void traceTransfers(ClSession& session, ClConsole& console) {
    if (console.isTracing()) {
        session.port().setTrace(
            [&console](ClPiecewisePort::Direction direction, const QByteArray& bytes) {
                const bool isOut = direction == ClPiecewisePort::Direction::Out;
                console.trace((isOut ? QStringLiteral("out ") : QStringLiteral("in  ")) +
                              QString::fromLatin1(bytes.toHex(' ')));
            });
    }
}

/// Programs are told which camera it is; people see it. A camera may refuse to tell: what was asked
/// for may be done all the same.
void identify(ClSession& session, ClReport& report, bool isWanted) {
    if (!isWanted) {
        return;
    }
    QVariant serial;
    QVariant firmware;
    for (const auto& [row, value] : {std::pair(&setting("identity.serial"), &serial),
                                     std::pair(&setting("identity.firmware"), &firmware)}) {
        const unsigned short result = session.settings().read(*row, *value);
        if (result == NOT_BEGUN || isTransportError(result)) {
            report.addError(toText(row->key), result);
            return;
        }
    }
    report.setIdentity(serial.toString(), firmware.toString());
}

ExitCode runOn(stCamera camera, const stWork& work, int number = 1) {
    const stArguments& arguments = work.arguments;
    stFailure failure;
    const std::unique_ptr<ClSession> session = openCamera(arguments, work.finder, camera, failure);
    ClReport report({camera.serial, camera.port, camera.bus, camera.number, {}},
                    arguments.has("show-secrets") || arguments.has("secrets"));
    if (session) {
        traceTransfers(*session, work.console);
        work.console.note(QStringLiteral("camera at %1 opened").arg(camera.port));
        identify(*session, report, arguments.isJson() || arguments.has("all"));
        if (report.isLinkUp()) {
            stRun run{arguments,   work.console, report, session.get(),
                      work.finder, work.plan,    number};
            arguments.verb->run(run);
        }
    } else {
        report.fail(failure);
    }
    return tell(report, work);
}

ExitCode runOnAll(const std::vector<stCamera>& cameras, const stWork& work) {
    std::vector<ExitCode> exits(cameras.size());
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < cameras.size(); ++i) {
        threads.emplace_back(
            [&, i] { exits[i] = runOn(cameras[i], work, static_cast<int>(i) + 1); });
    }
    std::ranges::for_each(threads, &std::thread::join);
    return std::accumulate(exits.begin() + 1, exits.end(), exits.front(), joined);
}

ExitCode runOnCameras(const stWork& work) {
    std::vector<stCamera> cameras;
    if (const stFailure failure = chooseCameras(work.arguments, work.finder, cameras)) {
        return tell(failure, work.arguments.isJson(), work.console);
    }
    return cameras.size() == 1 ? runOn(cameras.front(), work) : runOnAll(cameras, work);
}

ExitCode runWithoutCamera(const stWork& work) {
    ClReport report;
    stRun run{work.arguments, work.console, report, nullptr, work.finder, work.plan};
    work.arguments.verb->run(run);
    return tell(report, work);
}

ExitCode runVerb(const stArguments& arguments, ClConsole& console) {
    const stVerb& verb = *arguments.verb;
    std::unique_ptr<stVerbPlan> plan;
    if (verb.prepare != nullptr) {
        if (const stFailure failure = verb.prepare(arguments, console, plan)) {
            return tell(failure, arguments.isJson(), console);
        }
    }
    ClCameraFinder finder;
    const stWork work{arguments, console, finder, plan.get()};
    if (verb.camera == VerbCamera::None || (plan != nullptr && !plan->needsCamera)) {
        return runWithoutCamera(work);
    }
    if (const stFailure failure = finder.start()) {
        return tell(failure, arguments.isJson(), console);
    }
    return verb.camera == VerbCamera::Bus ? runWithoutCamera(work) : runOnCameras(work);
}

void applyVerbosity(const stArguments& arguments, ClConsole& console) {
    using enum ClConsole::Verbosity;
    if (arguments.has("quiet")) {
        console.setVerbosity(Quiet);
    } else if (arguments.has("verbose")) {
        const QStringList times = arguments.options.value(QStringLiteral("verbose"));
        console.setVerbosity(times.size() > 1 ? Trace : Verbose);
    }
}

}  // namespace

ExitCode runNuboctl(const QStringList& words, ClConsole& console) {
    stArguments arguments;
    if (const stFailure failure = parseArguments(words, arguments)) {
        return tell(failure, arguments.isJson(), console);
    }
    applyVerbosity(arguments, console);
    ExitCode exit = ExitCode::Done;
    if (arguments.has("version")) {
        console.print(QStringLiteral("nuboctl " NUBO_VERSION "\n"));
    } else if (arguments.has("help")) {
        console.print(arguments.verb == nullptr ? overviewHelp() : verbHelp(*arguments.verb));
    } else if (arguments.verb == nullptr) {
        exit = tell({ExitCode::WrongUse, QStringLiteral("no verb; try \"nuboctl help\""), {}},
                    arguments.isJson(), console);
    } else {
        exit = runVerb(arguments, console);
    }
    if (console.hasFailed() && Interruption::isRequested()) {
        console.error(QStringLiteral("interrupted before all results were written"));
        return ExitCode::Interrupted;
    }
    if (console.hasFailed()) {
        console.error(QStringLiteral("results could not be written"));
        return ExitCode::Computer;
    }
    return exit;
}
