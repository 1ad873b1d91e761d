// SPDX-License-Identifier: MIT
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/Interruption.h"
#include "cli/Secrets.h"
#include "cli/SettingWriter.h"
#include "cli/Verbs.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

namespace {

struct stSetPlan : stVerbPlan {
    QList<stWantedValue> wanted;
};

/// The text of a secret: behind "@" in a file, for "-" on standard input, for nothing on the
/// terminal.
stFailure takeSecret(const QString& key, ClConsole& console, std::optional<QString>& text) {
    if (!text) {
        if (!console.isInteractive()) {
            return {ExitCode::WrongUse,
                    QStringLiteral("%1 needs a value: %1=@FILE or %1=-").arg(key),
                    {}};
        }
        text = console.askSecret(key);
        if (Interruption::isRequested()) {
            return {ExitCode::Interrupted, QStringLiteral("interrupted"), {}};
        }
        return text ? stFailure{}
                    : stFailure{ExitCode::WrongUse, QStringLiteral("%1: no value").arg(key), {}};
    }
    if (*text == QLatin1String("-")) {
        return readSecret(*text, console, *text);
    }
    if (text->startsWith(u'@')) {
        return readSecret(text->mid(1), console, *text);
    }
    console.warn(QStringLiteral("%1: other users of this computer can see what stands on the "
                                "command line; use %1=@FILE or %1=-")
                     .arg(key));
    return {};
}

stFailure addWanted(const QString& word, ClConsole& console, QList<stWantedValue>& wanted) {
    const qsizetype end = word.indexOf(u'=');
    const QString key = end < 0 ? word : word.left(end);
    const stSetting* const row = findSetting(key.toStdString());
    if (row == nullptr) {
        return {ExitCode::WrongUse, noSuchSetting(key), {}};
    }
    if (row->isReadOnly()) {
        return {ExitCode::WrongUse, QStringLiteral("%1 cannot be set, only read").arg(key), {}};
    }
    std::optional<QString> text = end < 0 ? std::nullopt : std::optional(word.mid(end + 1));
    if (row->is(SECRET)) {
        if (const stFailure failure = takeSecret(key, console, text)) {
            return failure;
        }
    } else if (!text) {
        return {ExitCode::WrongUse,
                QStringLiteral("%1 needs a value: %1=VALUE, %2").arg(key, rangeText(*row)),
                {}};
    }
    const stParsedValue parsed = parseValue(*row, *text);
    if (!parsed.isValid()) {
        return {ExitCode::WrongUse, parsed.error, {}};
    }
    if (std::ranges::find(wanted, row, &stWantedValue::setting) != wanted.end()) {
        return {ExitCode::WrongUse, QStringLiteral("%1 stands twice").arg(key), {}};
    }
    const bool isNow = row->kind == SettingKind::Clock &&
                       text->compare(QLatin1String("now"), Qt::CaseInsensitive) == 0;
    wanted.append({row, parsed.value, isNow});
    return {};
}

}  // namespace

stFailure prepareSet(const stArguments& arguments, ClConsole& console,
                     std::unique_ptr<stVerbPlan>& plan) {
    auto set = std::make_unique<stSetPlan>();
    for (const QString& word : arguments.values) {
        if (const stFailure failure = addWanted(word, console, set->wanted)) {
            return failure;
        }
    }
    plan = std::move(set);
    return {};
}

void runSet(stRun& run) {
    const QList<stWantedValue>& wanted = static_cast<const stSetPlan&>(*run.plan).wanted;
    const QList<stDifference> differences = readDifferences(run, wanted);
    if (!run.report.hasFailed()) {
        writeDifferences(run, differences, false);
    }
}
