// SPDX-License-Identifier: MIT
#include "cli/SettingWriter.h"

#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QDateTime>

#include <algorithm>

namespace {

/// How far a clock may have gone on between writing and reading back.
constexpr qint64 CLOCK_SLACK_S = 60;

bool isEqual(const stSetting& setting, const QVariant& wanted, const QVariant& told) {
    if (setting.kind != SettingKind::Clock) {
        return wanted == told;
    }
    const qint64 ahead = wanted.toDateTime().secsTo(told.toDateTime());
    return told.toDateTime().isValid() && ahead >= 0 && ahead <= CLOCK_SLACK_S;
}

QVariant valueToWrite(const stWantedValue& wanted) {
    return wanted.isNow ? QVariant(QDateTime::currentDateTime()) : wanted.value;
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
    return {difference.wanted.setting, difference.before, difference.wanted.value, false, false};
}

void readBack(stRun& run, stChangeReport change) {
    const stSetting& setting = *change.setting;
    QVariant told;
    change.isWritten = true;
    const unsigned short result = run.camera->settings().read(setting, told);
    change.isVerified = result == 0 && isEqual(setting, change.after, told);
    run.report.addChange(change);
    if (result != 0) {
        run.report.addError(toText(setting.key), result);
    } else if (!change.isVerified) {
        run.report.fail({ExitCode::No,
                         QStringLiteral("%1: written as %2, read back as %3")
                             .arg(toText(setting.key), run.report.shown(setting, change.after),
                                  run.report.shown(setting, told)),
                         {}});
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
    if (result == 0) {
        std::ranges::for_each(changes,
                              [&run](const stChangeReport& change) { readBack(run, change); });
        return;
    }
    for (const stChangeReport& change : changes) {
        run.report.addChange(change);
        run.report.addError(toText(change.setting->key), result);
    }
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
