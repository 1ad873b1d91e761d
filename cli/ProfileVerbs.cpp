// SPDX-License-Identifier: MIT
#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Profile.h"
#include "cli/ProfileText.h"
#include "cli/SettingWriter.h"
#include "cli/Verbs.h"
#include "cli/WholeFiles.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <algorithm>

namespace {

const QString STANDARD = QStringLiteral("-");

struct stProfilePlan : stVerbPlan {
    stProfile profile;
    std::optional<stProfile> other;  ///< a second file
};

const stProfilePlan& planOf(const stRun& run) {
    return static_cast<const stProfilePlan&>(*run.plan);
}

/// What a profile of the camera holds: values that it can be set to. False when something could not
/// be read.
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
        if (!parseValue(row, valueText(row, value)).isValid()) {
            warn(run, QStringLiteral("%1 is left out: the camera's is not %2")
                          .arg(toText(row.key), rangeText(row)));
            continue;
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
    QJsonArray list;
    for (const stSetting& row : settings()) {
        const auto entryIn = [&row](const stProfile& profile) {
            const auto found = std::ranges::find(profile.entries, &row, &stProfileEntry::setting);
            return found == profile.entries.cend() ? nullptr : &*found;
        };
        const stProfileEntry* const old = entryIn(planOf(run).profile);
        const stProfileEntry* const now = entryIn(*planOf(run).other);
        if (old == now || (old != nullptr && now != nullptr && isSame(*old, *now))) {
            continue;
        }
        const QString key = toText(row.key);
        if (old != nullptr && now != nullptr) {
            run.report.addLine(
                QStringLiteral("%1: %2 -> %3")
                    .arg(key, entryText(run.report, *old), entryText(run.report, *now)));
        } else {
            run.report.addLine(
                QStringLiteral("%1: only in the %2 file")
                    .arg(key, old != nullptr ? QStringLiteral("first") : QStringLiteral("second")));
        }
        list.append(QJsonObject{
            {QStringLiteral("key"), key},
            {QStringLiteral("old"), old == nullptr ? QJsonValue() : entryJson(run.report, *old)},
            {QStringLiteral("new"), now == nullptr ? QJsonValue() : entryJson(run.report, *now)}});
    }
    run.report.addMember(QStringLiteral("differences"), list);
    run.report.setAnswer(list.isEmpty() ? ExitCode::Done : ExitCode::No);
}

/// @p text as one word of a shell, whatever is in it.
QString shellWord(QString text) {
    return u'\'' + text.replace(u'\'', QLatin1String("'\\''")) + u'\'';
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
        const QString key = toText(row.key);
        words.append(row.is(SECRET) ? key + QLatin1String("=@FILE")
                                    : shellWord(key + u'=' + valueText(row, difference.before)));
    }
    QString camera = run.arguments.option("camera");
    if (run.arguments.has("all")) {
        camera = run.report.camera().port;
    }
    const QString choice =
        camera.isEmpty() ? QString() : QStringLiteral("-c %1 ").arg(shellWord(camera));
    const QString command = QStringLiteral("nuboctl %1set ").arg(choice) + words.join(u' ');
    run.report.addMember(QStringLiteral("undo"), command);
    warn(run, QStringLiteral("to go back: ") + command);
}

QList<stDifference> differencesOf(stRun& run) {
    QList<stWantedValue> wanted;
    if (const stFailure failure =
            wantedOf(planOf(run).profile, {serialFor(run), run.number}, wanted)) {
        run.report.fail(failure);
        return {};
    }
    return readDifferences(run, wanted);
}

}  // namespace

void runExport(stRun& run) {
    // What a camera tells leads to no other folder.
    const QString serial = serialFor(run).replace(u'/', u'_');
    const QString path = filledIn(run.arguments.values.value(0, STANDARD), {serial, run.number});
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
    const auto readers = run.arguments.has("secrets") ? FileReaders::OwnerAlone : FileReaders::All;
    if (const stFailure failure = writeWhole(path, profile.toUtf8(), readers)) {
        run.report.fail(failure);
        return;
    }
    run.report.addMember(QStringLiteral("file"), path);
    run.console.note(QStringLiteral("%1 written").arg(path));
}

stFailure prepareExport(const stArguments& arguments, ClConsole& /*console*/,
                        std::unique_ptr<stVerbPlan>& /*plan*/) {
    const QString path = arguments.values.value(0, STANDARD);
    const bool isShared = arguments.has("all") && path != STANDARD && !isForEachCamera(path);
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
    stFailure failure = readProfile(arguments.values.value(0), console, profiles->profile);
    if (!failure && arguments.values.size() > 1) {
        profiles->needsCamera = false;
        failure = readProfile(arguments.values.value(1), console, profiles->other.emplace());
    }
    plan = std::move(profiles);
    return failure;
}

void runDiff(stRun& run) {
    if (planOf(run).other) {
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
    auto profiles = std::make_unique<stProfilePlan>();
    stFailure failure = readProfile(arguments.values.value(0), console, profiles->profile);
    if (!failure) {
        failure = select(arguments, profiles->profile.entries);
    }
    plan = std::move(profiles);
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
        warn(run, QStringLiteral("plan: %1: %2 -> %3")
                      .arg(toText(row.key), run.report.shown(row, difference.before),
                           run.report.shown(row, difference.wanted.value)));
    }
    writeDifferences(run, differences, keepsGoing);
    tellWayBack(run, differences);
}
