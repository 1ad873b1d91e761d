// SPDX-License-Identifier: MIT
#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Profile.h"
#include "cli/ProfileText.h"
#include "cli/SettingWriter.h"
#include "cli/Verbs.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QSaveFile>

#include <algorithm>

namespace {

const QString STANDARD = QStringLiteral("-");

struct stProfilePlan : stVerbPlan {
    QList<stProfileEntry> entries;
    std::optional<QList<stProfileEntry>> others;  ///< of a second file
};

const stProfilePlan& profilesOf(const stRun& run) {
    return static_cast<const stProfilePlan&>(*run.plan);
}

/// What a profile of the camera holds; false when something could not be read.
bool readKept(stRun& run, QList<stSettingChange>& values) {
    for (const stSetting& row : settings()) {
        const bool isWanted = row.isKept() && (!row.is(SECRET) || run.arguments.has("secrets"));
        if (!isWanted) {
            continue;
        }
        QVariant value;
        const unsigned short result = run.camera->settings().read(row, value);
        if (result != 0) {
            run.report.addError(toText(row.key), result);
            return false;
        }
        values.append({&row, value});
    }
    return true;
}

/// The serial number of the camera, for what stands for it in values and names.
QString serialFor(const stRun& run) {
    const QString& known = run.report.camera().serial;
    return known.isEmpty() ? serialOf(*run.camera) : known;
}

QString profileOf(const stRun& run, const QList<stSettingChange>& values) {
    QString text = QStringLiteral("# Settings of camera %1\n").arg(serialFor(run));
    for (const stSettingChange& value : values) {
        text += QStringLiteral("%1 = %2\n")
                    .arg(toText(value.setting->key), profileValue(*value.setting, value.value));
    }
    return text;
}

/// Aside, and then renamed: a file is there whole, or not at all. Secrets are for the owner alone.
stFailure writeFile(const QString& path, const QString& text, bool isSecret) {
    QSaveFile file(path);
    bool isWritten = file.open(QIODevice::WriteOnly);
    if (isWritten && isSecret) {
        isWritten = file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    }
    isWritten = isWritten && file.write(text.toUtf8()) >= 0 && file.commit();
    return isWritten ? stFailure{}
                     : stFailure{ExitCode::Computer,
                                 QStringLiteral("%1: %2").arg(path, file.errorString()),
                                 {}};
}

/// The values of @p entries for one camera; the failure names the first that is none.
stFailure wantedOf(const QList<stProfileEntry>& entries, const QString& serial, int number,
                   QList<stWantedValue>& wanted) {
    for (const stProfileEntry& entry : entries) {
        const stParsedValue parsed =
            parseValue(*entry.setting, filledIn(entry.text, serial, number));
        if (!parsed.isValid()) {
            const QString line =
                entry.line == 0 ? QString() : QStringLiteral("line %1: ").arg(entry.line);
            return {ExitCode::WrongUse, line + parsed.error, {}};
        }
        wanted.append({entry.setting, parsed.value});
    }
    return {};
}

bool isNamedBy(const QString& option, const stSetting& row) {
    const QList<const stSetting*> named = matchingSettings(option);
    return std::ranges::find(named, &row) != named.end();
}

/// Leaves of @p entries what --only and --skip leave.
stFailure select(const stArguments& arguments, QList<stProfileEntry>& entries) {
    const QStringList only = arguments.options.value(QStringLiteral("only"));
    const QStringList skip = arguments.options.value(QStringLiteral("skip"));
    for (const QString& pattern : only + skip) {
        if (matchingSettings(pattern).isEmpty()) {
            return {ExitCode::WrongUse, noSuchSetting(pattern), {}};
        }
    }
    entries.removeIf([&](const stProfileEntry& entry) {
        const auto names = [&entry](const QString& pattern) {
            return isNamedBy(pattern, *entry.setting);
        };
        return (!only.isEmpty() && std::ranges::none_of(only, names)) ||
               std::ranges::any_of(skip, names);
    });
    return {};
}

void tellDifference(ClReport& report, const stSetting& row, const QVariant& before,
                    const QVariant& after, QJsonArray& list) {
    report.addLine(QStringLiteral("%1: %2 -> %3")
                       .arg(toText(row.key), report.shown(row, before), report.shown(row, after)));
    list.append(QJsonObject{{QStringLiteral("key"), toText(row.key)},
                            {QStringLiteral("old"), report.shownJson(row, before)},
                            {QStringLiteral("new"), report.shownJson(row, after)}});
}

void diffFiles(stRun& run) {
    QList<stWantedValue> before;
    QList<stWantedValue> after;
    for (const auto& [entries, wanted] : {std::pair(&profilesOf(run).entries, &before),
                                          std::pair(&*profilesOf(run).others, &after)}) {
        if (const stFailure failure = wantedOf(*entries, {}, 1, *wanted)) {
            run.report.fail(failure);
            return;
        }
    }
    QJsonArray list;
    for (const stSetting& row : settings()) {
        const auto valueIn = [&row](const QList<stWantedValue>& values) {
            const auto found = std::ranges::find(values, &row, &stWantedValue::setting);
            return found == values.cend() ? QVariant() : found->value;
        };
        const QVariant old = valueIn(before);
        const QVariant now = valueIn(after);
        if (old.isValid() && now.isValid() && old != now) {
            tellDifference(run.report, row, old, now, list);
        } else if (old.isValid() != now.isValid()) {
            run.report.addLine(QStringLiteral("%1: only in the %2 file")
                                   .arg(toText(row.key), old.isValid() ? QStringLiteral("first")
                                                                       : QStringLiteral("second")));
            list.append(
                QJsonObject{{QStringLiteral("key"), toText(row.key)},
                            {QStringLiteral("old"),
                             old.isValid() ? run.report.shownJson(row, old) : QJsonValue()},
                            {QStringLiteral("new"),
                             now.isValid() ? run.report.shownJson(row, now) : QJsonValue()}});
        }
    }
    run.report.addMember(QStringLiteral("differences"), list);
    run.report.setAnswer(list.isEmpty() ? ExitCode::Done : ExitCode::No);
}

/// What undoes what was written; secrets are not repeated.
void tellWayBack(stRun& run, const QList<stDifference>& differences) {
    if (!run.report.hasFailed() || !run.report.hasActed()) {
        return;
    }
    QStringList words;
    for (const stDifference& difference : differences) {
        const stSetting& row = *difference.wanted.setting;
        if (!run.report.mayHaveWritten(row)) {
            continue;
        }
        words.append(row.is(SECRET) ? toText(row.key) + QLatin1String("=@FILE")
                                    : QStringLiteral("'%1=%2'").arg(
                                          toText(row.key), valueText(row, difference.before)
                                                               .replace(QLatin1String("'"),
                                                                        QLatin1String("'\\''"))));
    }
    const QString command = QStringLiteral("nuboctl set ") + words.join(u' ');
    run.report.addMember(QStringLiteral("undo"), command);
    run.console.warn(QStringLiteral("to go back: ") + command);
}

QList<stDifference> differencesOf(stRun& run) {
    QList<stWantedValue> wanted;
    if (const stFailure failure =
            wantedOf(profilesOf(run).entries, serialFor(run), run.number, wanted)) {
        run.report.fail(failure);
        return {};
    }
    return readDifferences(run, wanted);
}

/// Before any camera is opened, with what any serial number would do.
stFailure checkValues(const QList<stProfileEntry>& entries) {
    QList<stWantedValue> wanted;
    return wantedOf(entries, QStringLiteral("S"), 1, wanted);
}

}  // namespace

void runExport(stRun& run) {
    // What a camera tells leads to no other folder.
    const QString serial = serialFor(run).replace(u'/', u'_');
    const QString path = filledIn(run.arguments.values.value(0, STANDARD), serial, run.number);
    QList<stSettingChange> values;
    if (!readKept(run, values)) {
        return;
    }
    if (path == STANDARD && run.arguments.isJson()) {
        for (const stSettingChange& value : values) {
            run.report.addSetting(*value.setting, value.value);
        }
        return;
    }
    const QString profile = profileOf(run, values);
    if (path == STANDARD) {
        run.report.addLine(profile.chopped(1));
        return;
    }
    if (const stFailure failure = writeFile(path, profile, run.arguments.has("secrets"))) {
        run.report.fail(failure);
        return;
    }
    run.report.addMember(QStringLiteral("file"), path);
    run.console.note(QStringLiteral("%1 written").arg(path));
}

stFailure prepareExport(const stArguments& arguments, ClConsole& /*console*/,
                        std::unique_ptr<stVerbPlan>& /*plan*/) {
    const QString path = arguments.values.value(0, STANDARD);
    const bool isShared =
        arguments.has("all") && path != STANDARD && filledIn(path, QStringLiteral("S"), 1) == path;
    return isShared ? stFailure{ExitCode::WrongUse,
                                QStringLiteral("%1 would be the file of every camera: put "
                                               "{serial} or {n} into its name")
                                    .arg(path),
                                {}}
                    : stFailure{};
}

stFailure prepareDiff(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& plan) {
    auto profiles = std::make_unique<stProfilePlan>();
    stFailure failure = readProfile(arguments.values.value(0), console, profiles->entries);
    if (!failure && arguments.values.size() > 1) {
        profiles->others.emplace();
        profiles->needsCamera = false;
        failure = readProfile(arguments.values.value(1), console, *profiles->others);
    }
    if (!failure) {
        failure = checkValues(profiles->entries);
    }
    plan = std::move(profiles);
    return failure;
}

void runDiff(stRun& run) {
    if (profilesOf(run).others) {
        diffFiles(run);
        return;
    }
    QJsonArray list;
    for (const stDifference& difference : differencesOf(run)) {
        tellDifference(run.report, *difference.wanted.setting, difference.before,
                       difference.wanted.value, list);
    }
    run.report.addMember(QStringLiteral("differences"), list);
    run.report.setAnswer(list.isEmpty() ? ExitCode::Done : ExitCode::No);
}

stFailure prepareApply(const stArguments& arguments, ClConsole& console,
                       std::unique_ptr<stVerbPlan>& plan) {
    auto profile = std::make_unique<stProfilePlan>();
    stFailure failure = readProfile(arguments.values.value(0), console, profile->entries);
    if (!failure) {
        failure = select(arguments, profile->entries);
    }
    if (!failure) {
        failure = checkValues(profile->entries);
    }
    plan = std::move(profile);
    return failure;
}

void runApply(stRun& run) {
    const bool keepsGoing = run.arguments.has("keep-going");
    const QList<stDifference> differences = differencesOf(run);
    if (run.report.hasFailed() && !(keepsGoing && run.report.isLinkUp())) {
        return;
    }
    if (run.arguments.has("dry-run")) {
        QJsonArray list;
        for (const stDifference& difference : differences) {
            tellDifference(run.report, *difference.wanted.setting, difference.before,
                           difference.wanted.value, list);
        }
        run.report.addMember(QStringLiteral("differences"), list);
        return;
    }
    for (const stDifference& difference : differences) {
        const stSetting& row = *difference.wanted.setting;
        run.console.warn(QStringLiteral("plan: %1: %2 -> %3")
                             .arg(toText(row.key), run.report.shown(row, difference.before),
                                  run.report.shown(row, difference.wanted.value)));
    }
    writeDifferences(run, differences, keepsGoing);
    tellWayBack(run, differences);
}
