// SPDX-License-Identifier: MIT
#include "cli/Actions.h"

#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "settings/SettingSearch.h"

#include <algorithm>

stFailure checkAction(const stArguments& arguments, std::span<const std::string_view> known) {
    const QString action = arguments.values.value(0);
    QStringList names;
    for (const std::string_view name : known) {
        names.append(toText(name));
    }
    if (arguments.values.isEmpty() || names.contains(action)) {
        return {};
    }
    const QString verb = toText(arguments.verb->name);
    const QString closest = closestWord(action, names);
    const QString hint = closest.isEmpty()
                             ? QStringLiteral("; it takes ") + names.join(QLatin1String(", "))
                             : QStringLiteral("; did you mean %1?").arg(closest);
    return {ExitCode::WrongUse, QStringLiteral("%1 takes no \"%2\"%3").arg(verb, action, hint), {}};
}

stFailure readNumber(const stArguments& arguments, const char* option, double least, double most,
                     double& number) {
    if (!arguments.has(option)) {
        return {};
    }
    bool isNumber = false;
    const double given = arguments.option(option).toDouble(&isNumber);
    // What is no number at all ("nan") is not in a range either.
    if (!isNumber || !(given >= least && given <= most)) {
        return {ExitCode::WrongUse,
                QStringLiteral("--%1: %2 is not a number from %3 to %4")
                    .arg(QLatin1String(option), arguments.option(option))
                    .arg(least)
                    .arg(most),
                {}};
    }
    number = given;
    return {};
}

QString cameraName(stRun& run) {
    const QString serial = serialOf(*run.camera);
    return serial.isEmpty() ? run.report.camera().port : serial;
}

stFailure checkAgreement(const stArguments& arguments, const ClConsole& console) {
    if (arguments.has("yes") || console.isInteractive()) {
        return {};
    }
    return {ExitCode::WrongUse,
            QStringLiteral("%1 %2 needs --yes: there is no terminal to ask on")
                .arg(toText(arguments.verb->name), arguments.values.value(0))
                .simplified(),
            {}};
}

bool agreesTo(stRun& run, const QString& question) {
    return run.arguments.has("yes") || isAgreed(run, question.arg(cameraName(run)));
}
