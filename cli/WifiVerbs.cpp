// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Secrets.h"
#include "cli/SettingWriter.h"
#include "cli/Verbs.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<std::string_view, 4> ACTIONS{"scan", "join", "on", "off"};

struct stWifiPlan : stVerbPlan {
    QList<stWantedValue> wanted;
};

stFailure want(const stSetting& row, const QString& text, QList<stWantedValue>& wanted) {
    const stParsedValue parsed = parseValue(row, text);
    if (!parsed.isValid()) {
        return {ExitCode::WrongUse, parsed.error, {}};
    }
    wanted.append({&row, parsed.value});
    return {};
}

/// ADDRESS/LENGTH,GATEWAY[,DNS[,DNS]]: what the camera has in place of DHCP.
stFailure wantAddresses(const QString& text, QList<stWantedValue>& wanted) {
    constexpr int LEAST_PARTS = 2;
    const QStringList parts = text.split(u',');
    const qsizetype slash = parts.first().indexOf(u'/');
    constexpr std::array ROWS{
        &setting("wifi.infrastructure.gateway"),
        &setting("wifi.infrastructure.dns1"),
        &setting("wifi.infrastructure.dns2"),
    };
    if (slash < 0 || parts.size() < LEAST_PARTS || parts.size() > std::ssize(ROWS) + 1) {
        return {ExitCode::WrongUse,
                QStringLiteral("--static: %1 is not ADDRESS/LENGTH,GATEWAY[,DNS[,DNS]]").arg(text),
                {}};
    }
    stFailure failure = want(setting("wifi.infrastructure.dhcp"), QStringLiteral("off"), wanted);
    const auto add = [&](const stSetting& row, const QString& value) {
        if (!failure) {
            failure = want(row, value, wanted);
        }
    };
    add(setting("wifi.infrastructure.address"), parts.first().left(slash));
    add(setting("wifi.infrastructure.netmask"), parts.first().mid(slash));
    for (qsizetype i = 1; i < parts.size(); ++i) {
        add(*ROWS[static_cast<std::size_t>(i - 1)], parts[i]);
    }
    return failure;
}

stFailure wantKey(const QString& path, ClConsole& console, QList<stWantedValue>& wanted) {
    QString key;
    if (const stFailure failure = readSecret(path, console, key)) {
        return failure;
    }
    return want(setting("wifi.infrastructure.key"), key, wanted);
}

stFailure prepareJoin(const stArguments& arguments, ClConsole& console,
                      QList<stWantedValue>& wanted) {
    if (arguments.has("static")) {
        if (const stFailure failure = wantAddresses(arguments.option("static"), wanted)) {
            return failure;
        }
    }
    if (const stFailure failure =
            want(setting("wifi.infrastructure.ssid"), arguments.values[1], wanted)) {
        return failure;
    }
    if (arguments.has("key-file")) {
        if (const stFailure failure = wantKey(arguments.option("key-file"), console, wanted)) {
            return failure;
        }
    }
    if (const stFailure failure =
            want(setting("wifi.mode"), QStringLiteral("infrastructure"), wanted)) {
        return failure;
    }
    return want(setting("wifi.enabled"), QStringLiteral("on"), wanted);
}

QString encryptionName(unsigned int number) {
    return valueText(setting("wifi.encryption"), QVariant(qint64{number}));
}

void scan(stRun& run) {
    QList<stAccesspointInfo> points;
    if (const unsigned short result = run.camera->execNuboGetAccesspointList(nullptr, &points)) {
        run.report.addError(QStringLiteral("wifi scan"), result);
        return;
    }
    // On the wire the signal is a signed number.
    const auto signalOf = [](const stAccesspointInfo& point) {
        return static_cast<qint32>(point.signal);
    };
    std::ranges::stable_sort(points, std::ranges::greater(), signalOf);
    QJsonArray array;
    for (const stAccesspointInfo& point : std::as_const(points)) {
        const QString encryption = encryptionName(point.encryption);
        constexpr int ENCRYPTION_WIDTH = 6;
        constexpr int SIGNAL_WIDTH = 4;
        run.report.addLine(
            QStringLiteral("%1  %2  %3")
                .arg(signalOf(point), SIGNAL_WIDTH)
                .arg(encryption, -ENCRYPTION_WIDTH)
                .arg(point.ssid.isEmpty() ? QStringLiteral("(hidden)") : point.ssid));
        array.append(QJsonObject{{QStringLiteral("ssid"), point.ssid},
                                 {QStringLiteral("encryption"), encryption},
                                 {QStringLiteral("signal"), signalOf(point)}});
    }
    run.report.addMember(QStringLiteral("accessPoints"), array);
}

}  // namespace

stFailure prepareWifi(const stArguments& arguments, ClConsole& console,
                      std::unique_ptr<stVerbPlan>& plan) {
    if (const stFailure failure = checkAction(arguments, ACTIONS)) {
        return failure;
    }
    const QString& action = arguments.values.first();
    const bool joins = action == QLatin1String("join");
    if (arguments.values.size() != (joins ? 2 : 1)) {
        return {ExitCode::WrongUse,
                joins ? QStringLiteral("wifi join needs one SSID")
                      : QStringLiteral("wifi %1 takes no more words").arg(action),
                {}};
    }
    if (!joins && (arguments.has("key-file") || arguments.has("static"))) {
        return {
            ExitCode::WrongUse, QStringLiteral("--key-file and --static belong to wifi join"), {}};
    }
    auto wifi = std::make_unique<stWifiPlan>();
    stFailure failure;
    if (joins) {
        failure = prepareJoin(arguments, console, wifi->wanted);
    } else if (action != QLatin1String("scan")) {
        failure = want(setting("wifi.enabled"), action, wifi->wanted);
    }
    plan = std::move(wifi);
    return failure;
}

void runWifi(stRun& run) {
    const QList<stWantedValue>& wanted = static_cast<const stWifiPlan&>(*run.plan).wanted;
    if (wanted.isEmpty()) {
        scan(run);
        return;
    }
    const QList<stDifference> differences = readDifferences(run, wanted);
    if (!run.report.hasFailed()) {
        writeDifferences(run, differences, false);
    }
}
