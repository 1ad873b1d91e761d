// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Interruption.h"
#include "cli/ReturnWait.h"
#include "cli/Verbs.h"
#include "cli/WholeFiles.h"
#include "protocol/DataPackets.h"
#include "protocol/NuboCommands.h"
#include "protocol/ResultCodes.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QCryptographicHash>

#include <array>

namespace {

constexpr std::array<std::string_view, 1> ACTIONS{"update"};
constexpr int LEAST_CHARGE = 50;         // percent
constexpr int UPDATE_TIMEOUT_MS = 3000;  // the camera checks the image before it answers
constexpr qint64 LARGEST_IMAGE = qint64{256} * 1024 * 1024;

struct stFirmwarePlan : stVerbPlan {
    QString path;
    QByteArray image;
    QString checksum;  ///< SHA-256
    double patienceS = 180;
};

stFailure readImage(const QString& path, stFirmwarePlan& plan) {
    if (const stFailure failure =
            readWhole(path, QStringLiteral("a firmware image"), LARGEST_IMAGE, plan.image)) {
        return failure;
    }
    plan.path = path;
    if (plan.image.isEmpty()) {
        return {ExitCode::WrongUse, QStringLiteral("%1 is empty").arg(path), {}};
    }
    plan.checksum = QString::fromLatin1(
        QCryptographicHash::hash(plan.image, QCryptographicHash::Sha256).toHex());
    return {};
}

bool read(stRun& run, const stSetting& row, QVariant& value) {
    const unsigned short result = run.camera->settings().read(row, value);
    if (result != 0) {
        run.report.addError(toText(row.key), result);
    }
    return result == 0;
}

/// An update that ends half-way, because the battery is empty or the camera is busy, may leave a
/// camera that does not start.
bool isReady(stRun& run) {
    QVariant charge;
    QVariant recording;
    if (!read(run, setting("battery.charge"), charge) ||
        !read(run, setting("recording.state"), recording)) {
        return false;
    }
    if (charge.toInt() < LEAST_CHARGE) {
        run.report.fail({ExitCode::No,
                         QStringLiteral("the battery is at %1 %, and an update needs %2 %")
                             .arg(charge.toInt())
                             .arg(LEAST_CHARGE),
                         {}});
    } else if (valueText(setting("recording.state"), recording) != QLatin1String("stopped")) {
        run.report.fail({ExitCode::No,
                         QStringLiteral("a recording runs: end it with \"nuboctl record stop\""),
                         {}});
    }
    return !run.report.hasFailed();
}

void explainRefusal(ClConsole& console) {
    if (Interruption::Refusal::takeRefused()) {
        console.error(
            QStringLiteral("the update goes on: a camera that is left half-way may not start any "
                           "more; Ctrl-C once more ends nuboctl after the step under way"));
    }
}

bool sendImage(stRun& run, const QByteArray& image) {
    constexpr qint64 HUNDRED = 100;
    ClNuboCommandExecFwUpdateData command(static_cast<unsigned int>(image.size()));
    ClNuboCommandDataSend data(command.id(), image);
    run.camera->port().setProgress([&](qint64 moved) {
        const qint64 percent = std::min(HUNDRED, moved * HUNDRED / image.size());
        run.console.showProgress(QStringLiteral("[%1] %2 %")
                                     .arg(QString(static_cast<int>(percent / 4), u'#'), -25)
                                     .arg(percent));
        explainRefusal(run.console);
    });
    const unsigned short result = run.camera->execNuboDataWrite(command, data, nullptr);
    run.camera->port().setProgress(nullptr);
    run.console.endProgress();
    explainRefusal(run.console);
    if (result != 0) {
        run.report.addError(QStringLiteral("firmware image"), result);
        run.report.addLine(QStringLiteral("nothing was updated"));
    }
    return result == 0;
}

/// Whether the camera has begun to update itself.
bool startUpdate(stRun& run) {
    ClNuboCommandExecFwUpdat command(true);
    const unsigned short result = run.camera->execNuboCommand(command, nullptr, UPDATE_TIMEOUT_MS);
    explainRefusal(run.console);
    // A camera that restarts at once may take its answer along.
    if (result == 0 || result == USB_NO_DEVICE) {
        run.report.setHasActed();
        return true;
    }
    if (isTransportError(result)) {
        run.report.setHasActed();
        run.report.addLine(
            QStringLiteral("the camera may be updating itself: do not switch it off"));
    } else {
        run.report.addLine(QStringLiteral("nothing was updated"));
    }
    run.report.addError(QStringLiteral("firmware update"), result);
    return false;
}

void update(stRun& run, const stFirmwarePlan& plan, const QString& before, QJsonObject& told) {
    const Interruption::Refusal refusal;
    if (!sendImage(run, plan.image) || !startUpdate(run)) {
        return;
    }
    warn(run, QStringLiteral("the camera updates itself: do not unplug it"));
    const int patienceMs = static_cast<int>(plan.patienceS * MS_PER_SECOND);
    stCameraIdentity after;
    const stFailure failure = waitForReturn(run.report.camera(), {patienceMs, patienceMs}, after,
                                            [&run] { explainRefusal(run.console); });
    if (failure) {
        run.report.fail(failure);
        return;
    }
    if (after.device == run.report.camera().device) {
        run.report.fail({ExitCode::LinkFailed,
                         QStringLiteral("the camera has taken the image, and has not restarted "
                                        "within %1 s")
                             .arg(plan.patienceS),
                         {}});
        return;
    }
    told.insert(QStringLiteral("after"), after.firmware);
    run.report.addLine(QStringLiteral("updated: firmware %1 -> %2").arg(before, after.firmware));
}

}  // namespace

stFailure prepareFirmware(const stArguments& arguments, ClConsole& console,
                          std::unique_ptr<stVerbPlan>& plan) {
    constexpr double LONGEST_S = 86'400;
    auto firmware = std::make_unique<stFirmwarePlan>();
    if (const stFailure failure = checkAction(arguments, ACTIONS)) {
        return failure;
    }
    if (arguments.values.size() == 1) {
        return {ExitCode::WrongUse, QStringLiteral("firmware update needs a FILE"), {}};
    }
    if (const stFailure failure =
            readNumber(arguments, "wait-back", 1, LONGEST_S, firmware->patienceS)) {
        return failure;
    }
    stFailure failure;
    if (!arguments.values.isEmpty()) {
        failure = readImage(arguments.values[1], *firmware);
        if (!failure && !arguments.has("dry-run")) {
            failure = checkAgreement(arguments, console);
        }
    }
    plan = std::move(firmware);
    return failure;
}

void runFirmware(stRun& run) {
    const auto& plan = static_cast<const stFirmwarePlan&>(*run.plan);
    const stSetting& row = setting("identity.firmware");
    QVariant version;
    if (!read(run, row, version)) {
        return;
    }
    const QString before = version.toString();
    if (plan.image.isEmpty()) {
        run.report.addReading(row, version, before);
        return;
    }
    run.report.addLine(
        QStringLiteral("image    %1, %2 bytes").arg(plan.path).arg(plan.image.size()));
    run.report.addLine(QStringLiteral("SHA-256  ") + plan.checksum);
    run.report.addLine(QStringLiteral("before   firmware ") + before);
    QJsonObject told{{QStringLiteral("image"), plan.path},
                     {QStringLiteral("size"), plan.image.size()},
                     {QStringLiteral("sha256"), plan.checksum},
                     {QStringLiteral("before"), before},
                     {QStringLiteral("after"), QJsonValue()}};
    if (isReady(run)) {
        if (run.arguments.has("dry-run")) {
            run.report.addLine(
                QStringLiteral("the camera is ready for the update; nothing was sent"));
        } else if (agreesTo(run, QStringLiteral("Update the firmware of camera %1 to the image of "
                                                "SHA-256 ") +
                                     plan.checksum + u'?')) {
            update(run, plan, before, told);
        }
    }
    run.report.addMember(QStringLiteral("firmware"), told);
}
