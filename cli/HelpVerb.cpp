// SPDX-License-Identifier: MIT
#include "cli/ClReport.h"
#include "cli/HelpText.h"
#include "cli/Verbs.h"

stFailure prepareHelp(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& plan) {
    const bool isOfKey =
        !arguments.values.isEmpty() && findVerb(arguments.values.front()) == nullptr;
    return isOfKey ? prepareGet(arguments, console, plan) : stFailure{};
}

void runHelp(stRun& run) {
    if (run.plan != nullptr) {
        runDescribe(run);
        return;
    }
    const stVerb* const verb =
        run.arguments.values.isEmpty() ? nullptr : findVerb(run.arguments.values.front());
    const QString text = verb == nullptr ? overviewHelp() : verbHelp(*verb);
    run.report.addLine(text.chopped(1));
    run.report.addMember(QStringLiteral("help"),
                         verb == nullptr ? overviewJson() : verbJson(*verb));
}
