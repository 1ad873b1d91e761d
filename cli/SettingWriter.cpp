// SPDX-License-Identifier: MIT
#include "cli/SettingWriter.h"

#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "protocol/ResultCodes.h"
#include "settings/CameraClock.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <algorithm>

namespace {

/// How far a clock may have gone on between writing and reading back.
constexpr qint64 CLOCK_SLACK_S = 60;

bool isEqual(const stSetting& setting, const QVariant& wanted, const QVariant& told) {
    if (setting.kind != SettingKind::Clock) {
        return wanted == told;
    }
    const QDateTime clock = told.toDateTime();
    const qint64 ahead = wanted.toDateTime().secsTo(clock);
    return clock.isValid() && ahead >= 0 && ahead <= CLOCK_SLACK_S;
}

QVariant valueToWrite(const stWantedValue& wanted) {
    return wanted.isNow ? QVariant(cameraClockNow()) : wanted.value;
}

/// Those from @p first on that travel with it.
QList<stDifference> sharingExchange(const QList<stDifference>& differences, qsizetype first) {
    QList<stDifference> group;
    const QUuid request = differences[first].wanted.setting->exchange.request;
    for (qsizetype i = first; i < differences.size(); ++i) {
        if (differences[i].wanted.setting->exchange.request != request) {
            break;
        }
        group.append(differences[i]);
    }
    return group;
}

stChangeReport changeOf(const stDifference& difference) {
    return {difference.wanted.setting, difference.before, difference.wanted.value, Written::No,
            false};
}

void failReadingBack(stRun& run, const stChangeReport& change, const QVariant& told) {
    const stSetting& setting = *change.setting;
    run.report.fail({ExitCode::No,
                     QStringLiteral("%1: written as %2, read back as %3")
                         .arg(toText(setting.key), run.report.shown(setting, change.after),
                              run.report.shown(setting, told)),
                     {}});
}

void readBack(stRun& run, stChangeReport change) {
    const stSetting& setting = *change.setting;
    QVariant told;
    change.written = Written::Yes;
    const unsigned short result = run.camera->settings().read(setting, told);
    change.isVerified = result == 0 && isEqual(setting, change.after, told);
    run.report.addChange(change);
    if (result != 0) {
        run.report.addError(toText(setting.key), result);
    } else if (!change.isVerified) {
        failReadingBack(run, change, told);
    }
}

/// What became of a value whose write failed, when the camera tells it as @p told. A lost answer
/// says nothing of it, and even a camera that refuses may have done it.
void judge(stChangeReport& change, const QVariant& told) {
    const stSetting& setting = *change.setting;
    change.isVerified = isEqual(setting, change.after, told);
    change.written =
        !change.isVerified && isEqual(setting, change.before, told) ? Written::No : Written::Yes;
}

/// Asks the camera, once, after the write of @p changes failed with @p failure.
void lookAfter(stRun& run, QList<stChangeReport> changes, unsigned short failure) {
    unsigned short reading = failure == NOT_BEGUN ? NOT_BEGUN : USB_ERROR_SUCCESS;
    for (stChangeReport& change : changes) {
        QVariant told;
        if (reading == USB_ERROR_SUCCESS) {
            reading = run.camera->settings().read(*change.setting, told);
        }
        if (reading == USB_ERROR_SUCCESS) {
            judge(change, told);
        } else if (failure != NOT_BEGUN) {
            change.written = Written::Unknown;
        }
        run.report.addChange(change);
        run.report.addError(toText(change.setting->key), failure);
        if (change.written == Written::Yes && !change.isVerified) {
            failReadingBack(run, change, told);
        }
    }
}

/// Values that travel together: one command, then each is read back.
void writeGroup(stRun& run, const QList<stDifference>& group) {
    QList<stSettingChange> values;
    QList<stChangeReport> changes;
    for (const stDifference& difference : group) {
        const QVariant value = valueToWrite(difference.wanted);
        values.append({difference.wanted.setting, value});
        changes.append(changeOf(difference));
        changes.last().after = value;
    }
    const unsigned short result =
        run.camera->settings().write({values.constData(), static_cast<std::size_t>(values.size())});
    if (result != USB_ERROR_SUCCESS) {
        lookAfter(run, changes, result);
        return;
    }
    std::ranges::for_each(changes, [&run](const stChangeReport& change) { readBack(run, change); });
}

}  // namespace

QList<stDifference> readDifferences(stRun& run, const QList<stWantedValue>& wanted) {
    QList<stWantedValue> ordered = wanted;
    // All rows are of one table: its order is that of their addresses.
    std::ranges::stable_sort(ordered, std::less<>(), &stWantedValue::setting);
    QList<stDifference> differences;
    for (const stWantedValue& value : ordered) {
        QVariant told;
        const unsigned short result = run.camera->settings().read(*value.setting, told);
        if (result != 0) {
            run.report.addError(toText(value.setting->key), result);
            if (!run.report.isLinkUp()) {
                return {};
            }
        } else if (value.isNow || value.setting->kind == SettingKind::Clock ||
                   told != value.value) {
            differences.append({value, told});
        } else {
            run.console.note(
                QStringLiteral("%1 is %2 already")
                    .arg(toText(value.setting->key), run.report.shown(*value.setting, told)));
        }
    }
    return differences;
}

void writeDifferences(stRun& run, const QList<stDifference>& differences, bool keepsGoing) {
    run.report.addMember(QStringLiteral("changes"), QJsonArray());  // even when nothing differs
    for (qsizetype i = 0; i < differences.size();) {
        const bool goesOn = !run.report.hasFailed() || (keepsGoing && run.report.isLinkUp());
        const QList<stDifference> group = sharingExchange(differences, i);
        if (goesOn) {
            writeGroup(run, group);
        } else {
            for (const stDifference& difference : group) {
                run.report.addChange(changeOf(difference));
            }
        }
        i += group.size();
    }
}
