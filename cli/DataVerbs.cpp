// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Interruption.h"
#include "cli/Profile.h"
#include "cli/Verbs.h"
#include "cli/WholeFiles.h"
#include "protocol/DataPackets.h"
#include "protocol/NuboCommands.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFileInfo>

#include <cmath>

namespace {

const QString STANDARD = QStringLiteral("-");

struct stDataPlan : stVerbPlan {
    double everyS = 0;  ///< between the starts of two pictures
    double count = 1;   ///< 0: without end

    [[nodiscard]] bool isSeries() const { return count != 1; }
};

stFailure wrongUse(const QString& message) {
    return {ExitCode::WrongUse, message, {}};
}

stFailure checkTarget(const stArguments& arguments) {
    const QString target = arguments.values.value(0);
    if (target == STANDARD && arguments.isJson()) {
        return wrongUse(
            QStringLiteral("--json and - exclude each other: both take standard output"));
    }
    if (target == STANDARD && arguments.has("all")) {
        return wrongUse(QStringLiteral("--all and - exclude each other"));
    }
    if (arguments.has("all") && !target.isEmpty() && !isForEachCamera(target)) {
        return wrongUse(
            QStringLiteral("with --all, {serial} or {n} must stand in the file's name"));
    }
    return {};
}

/// The file of picture @p number of a series, or of the only one when it is 0.
QString fileOf(stRun& run, const QString& suffix, int number) {
    QString name = run.arguments.values.value(0);
    if (name.isEmpty()) {
        const QString now =
            QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMdd-HHmmss"));
        QString camera = cameraName(run);
        camera.replace(u'/', u'_');
        name = QStringLiteral("nubo-%1-%2.%3").arg(camera, now, suffix);
    } else {
        if (name.contains(QLatin1String("{serial}"))) {
            QString camera = cameraName(run);
            camera.replace(u'/', u'_');
            name.replace(QLatin1String("{serial}"), camera);
        }
        name.replace(QLatin1String("{n}"), QString::number(run.number));
    }
    if (number == 0) {
        return name;
    }
    constexpr int DIGITS = 4;
    const QString digits = QStringLiteral("-%1").arg(number, DIGITS, 10, QLatin1Char('0'));
    const qsizetype dot = name.lastIndexOf(u'.');
    const bool hasSuffix = dot > name.lastIndexOf(u'/') + 1;
    return hasSuffix ? name.insert(dot, digits) : name + digits;
}

bool save(stRun& run, const QString& path, const QByteArray& bytes, QJsonArray& files) {
    const auto& plan = static_cast<const stDataPlan&>(*run.plan);
    if (const stFailure failure = writeWhole(path, bytes)) {
        run.report.fail(failure);
        return false;
    }
    const QString line = QStringLiteral("%1: %2 bytes").arg(path).arg(bytes.size());
    // A series may be without end.
    if (plan.isSeries() && !run.arguments.isJson()) {
        return run.console.print(line + u'\n');
    }
    run.report.addLine(line);
    files.append(QJsonObject{{QStringLiteral("path"), QFileInfo(path).absoluteFilePath()},
                             {QStringLiteral("size"), bytes.size()}});
    return true;
}

/// Asks for the data of @p Command. False when there is none.
template <class Command>
bool fetch(stRun& run, const QString& what, QByteArray& bytes) {
    Command command;
    ClNuboCommandDataReceive data;
    run.camera->port().setProgress([&run, &what](qint64 moved) {
        run.console.showProgress(QStringLiteral("%1: %2 KiB").arg(what).arg(moved / 1024));
    });
    const unsigned short result = run.camera->execNuboDataRead(command, data, nullptr);
    run.camera->port().setProgress(nullptr);
    run.console.endProgress();
    if (result != 0) {
        run.report.addError(what, result);
        return false;
    }
    bytes = data.receivedData();
    if (bytes.isEmpty()) {
        run.report.fail({ExitCode::Refused, QStringLiteral("the camera has no %1").arg(what), {}});
    }
    return !bytes.isEmpty();
}

template <class Command>
void fetchAll(stRun& run, const stDataPlan& plan, const QString& what, const QString& suffix) {
    const bool isStream = run.arguments.values.value(0) == STANDARD;
    if (isStream) {
        run.report.setIsTold();
    }
    QJsonArray files;
    int number = 0;
    bool goesOn = true;
    while (goesOn) {
        QElapsedTimer clock;
        clock.start();
        QByteArray bytes;
        ++number;
        goesOn = fetch<Command>(run, what, bytes);
        if (goesOn) {
            goesOn = isStream ? run.console.printBytes(bytes)
                              : save(run, fileOf(run, suffix, plan.isSeries() ? number : 0), bytes,
                                     files);
        }
        if (plan.count > 0 && number >= plan.count) {
            break;
        }
        const auto pauseMs = static_cast<qint64>(plan.everyS * MS_PER_SECOND) - clock.elapsed();
        if (goesOn && !run.console.pause(static_cast<int>(std::max(pauseMs, qint64{0})))) {
            goesOn = false;
            if (Interruption::isRequested()) {
                run.report.fail({ExitCode::Interrupted,
                                 QStringLiteral("interrupted after %1").arg(number),
                                 {}});
            }
        }
    }
    if (!files.isEmpty()) {
        run.report.addMember(QStringLiteral("files"), files);
    }
}

}  // namespace

stFailure preparePicture(const stArguments& arguments, ClConsole& /*console*/,
                         std::unique_ptr<stVerbPlan>& plan) {
    constexpr double SHORTEST_S = 0.001;
    constexpr double LONGEST_S = 86'400;
    constexpr double MOST = 9999;
    auto data = std::make_unique<stDataPlan>();
    if (arguments.has("every")) {
        data->count = 0;
    }
    stFailure failure = checkTarget(arguments);
    if (!failure) {
        failure = readNumber(arguments, "every", SHORTEST_S, LONGEST_S, data->everyS);
    }
    if (!failure) {
        failure = readNumber(arguments, "count", 1, MOST, data->count);
    }
    if (!failure && data->count != std::floor(data->count)) {
        failure = wrongUse(
            QStringLiteral("--count: %1 is not a whole number").arg(arguments.option("count")));
    }
    plan = std::move(data);
    return failure;
}

stFailure prepareAudio(const stArguments& arguments, ClConsole& /*console*/,
                       std::unique_ptr<stVerbPlan>& plan) {
    plan = std::make_unique<stDataPlan>();
    return checkTarget(arguments);
}

void runPicture(stRun& run) {
    fetchAll<ClNuboCommandReqJpeg>(run, static_cast<const stDataPlan&>(*run.plan),
                                   QStringLiteral("picture"), QStringLiteral("jpg"));
}

void runAudio(stRun& run) {
    fetchAll<ClNuboCommandReqAudio>(run, static_cast<const stDataPlan&>(*run.plan),
                                    QStringLiteral("audio"), QStringLiteral("audio"));
}
