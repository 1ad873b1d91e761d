// SPDX-License-Identifier: MIT
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Verbs.h"
#include "settings/SettingSearch.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

namespace {

struct stGetPlan : stVerbPlan {
    QList<const stSetting*> settings;
};

const stGetPlan& planOf(const stRun& run) {
    return static_cast<const stGetPlan&>(*run.plan);
}

QString hexadecimal(unsigned short code) {
    return QString::asprintf("0x%04X", code);
}

QString accessText(const stSetting& row) {
    if (row.is(FACTORY)) {
        return QStringLiteral("read only (written by the factory)");
    }
    return row.isReadOnly() ? QStringLiteral("read only") : QStringLiteral("read and write");
}

void describe(ClReport& report, const stSetting& row) {
    const auto add = [&report](const char* name, const QString& text) {
        report.addLine(QStringLiteral("    %1 %2").arg(QLatin1String(name), -9).arg(text));
    };
    report.addLine(toText(row.key));
    add("what", toText(row.explanation));
    add("kind", kindText(row.kind));
    if (!row.isReadOnly()) {
        add("allowed", rangeText(row));
    }
    if (!row.unit.empty()) {
        add("unit", toText(row.unit));
    }
    QString access = accessText(row);
    access += row.is(SECRET) ? QStringLiteral(", secret") : QString();
    access += row.isKept() ? QString() : QStringLiteral(", in no profile");
    add("access", access);
    add("commands", row.isReadOnly() ? hexadecimal(getCode(row))
                                     : hexadecimal(getCode(row)) + QStringLiteral(" reads, ") +
                                           hexadecimal(setCode(row)) + QStringLiteral(" writes"));
}

QJsonObject description(const stSetting& row) {
    QJsonArray choices;
    for (const stSettingChoice& choice : row.range.choices) {
        choices.append(toText(choice.name));
    }
    QJsonObject object{{QStringLiteral("key"), toText(row.key)},
                       {QStringLiteral("explanation"), toText(row.explanation)},
                       {QStringLiteral("kind"), kindText(row.kind)},
                       {QStringLiteral("writable"), !row.isReadOnly()},
                       {QStringLiteral("secret"), row.is(SECRET)},
                       {QStringLiteral("profile"), row.isKept()},
                       {QStringLiteral("unit"), toText(row.unit)},
                       {QStringLiteral("get"), hexadecimal(getCode(row))}};
    if (!row.isReadOnly()) {
        object.insert(QStringLiteral("allowed"), rangeText(row));
        object.insert(QStringLiteral("set"), hexadecimal(setCode(row)));
    }
    if (!choices.isEmpty()) {
        object.insert(QStringLiteral("choices"), choices);
    }
    return object;
}

}  // namespace

stFailure prepareGet(const stArguments& arguments, ClConsole& /*console*/,
                     std::unique_ptr<stVerbPlan>& plan) {
    auto wanted = std::make_unique<stGetPlan>();
    const QStringList patterns =
        arguments.values.isEmpty() ? QStringList{QStringLiteral("*")} : arguments.values;
    for (const QString& pattern : patterns) {
        const QList<const stSetting*> found = matchingSettings(pattern);
        if (found.isEmpty()) {
            return {ExitCode::WrongUse, noSuchSetting(pattern), {}};
        }
        for (const stSetting* const row : found) {
            if (!wanted->settings.contains(row)) {
                wanted->settings.append(row);
            }
        }
    }
    plan = std::move(wanted);
    return {};
}

void runGet(stRun& run) {
    for (const stSetting* const row : planOf(run).settings) {
        QVariant value;
        const unsigned short result = run.camera->settings().read(*row, value);
        if (result == 0) {
            run.report.addSetting(*row, value);
        } else {
            run.report.addError(toText(row->key), result);
        }
        if (!run.report.isLinkUp()) {
            return;
        }
    }
}

void runDescribe(stRun& run) {
    QJsonArray descriptions;
    for (const stSetting* const row : planOf(run).settings) {
        describe(run.report, *row);
        descriptions.append(description(*row));
    }
    run.report.addMember(QStringLiteral("descriptions"), descriptions);
}
