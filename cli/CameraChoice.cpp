// SPDX-License-Identifier: MIT
#include "cli/CameraChoice.h"

#include "cli/ClSession.h"
#include "cli/Interruption.h"
#include "settings/SettingTable.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace {

constexpr int RETRY_MS = 100;

/// Until when --wait waits; no time at all without it.
QDeadlineTimer patienceOf(const stArguments& arguments) {
    if (!arguments.has("wait")) {
        return QDeadlineTimer(0);
    }
    constexpr double MS_PER_SECOND = 1000;
    const double seconds = arguments.option("wait").toDouble();
    return seconds < 0 ? QDeadlineTimer(QDeadlineTimer::Forever)
                       : QDeadlineTimer(static_cast<qint64>(seconds * MS_PER_SECOND));
}

/// Tries until it does not fail, for as long as --wait allows. A device that is just being plugged
/// in may be there before its permissions are.
template <class Attempt>
stFailure persist(const stArguments& arguments, Attempt attempt) {
    const QDeadlineTimer patience = patienceOf(arguments);
    while (true) {
        const stFailure failure = attempt();
        if (!failure || failure.exit == ExitCode::WrongUse || patience.hasExpired()) {
            return failure;
        }
        if (!Interruption::sleep(RETRY_MS)) {
            return {ExitCode::Interrupted, QStringLiteral("interrupted while waiting"), {}};
        }
    }
}

/// What the camera itself tells, if it can be asked.
QString toldSerial(const stCamera& camera) {
    stFailure failure;
    const std::unique_ptr<ClSession> session = ClCameraFinder::open(camera, failure);
    return session ? serialOf(*session) : QString();
}

QString listed(const std::vector<stCamera>& cameras) {
    QStringList places;
    for (const stCamera& camera : cameras) {
        const QString serial = camera.serial.isEmpty() ? toldSerial(camera) : camera.serial;
        places.append(serial.isEmpty() ? camera.port
                                       : QStringLiteral("%1 (%2)").arg(camera.port, serial));
    }
    return places.join(QLatin1String(", "));
}

/// The camera of a serial number. One that cannot be asked may be it: then its failure is told.
stFailure chooseBySerial(const QString& serial, std::vector<stCamera>& cameras) {
    stFailure obstacle;
    for (const stCamera& camera : cameras) {
        stFailure failure;
        const std::unique_ptr<ClSession> session = ClCameraFinder::open(camera, failure);
        if (session && serialOf(*session) == serial) {
            cameras = {camera};
            return {};
        }
        if (failure && !obstacle) {
            obstacle = failure;
        }
    }
    const QString message = QStringLiteral("no camera \"%1\"").arg(serial);
    if (obstacle) {
        return {obstacle.exit, message + QStringLiteral(" among those free; ") + obstacle.message,
                obstacle.holder};
    }
    return {ExitCode::NoCamera, message, {}};
}

stFailure chooseByName(const QString& name, std::vector<stCamera>& cameras) {
    const auto found = std::ranges::find_if(cameras, [&name](const stCamera& camera) {
        return camera.port == name || camera.place() == name || camera.serial == name;
    });
    if (found == cameras.end()) {
        return chooseBySerial(name, cameras);
    }
    cameras = {stCamera(*found)};
    return {};
}

/// Whether there is a camera at the port of @p camera, which is that one then.
bool lookAgain(ClCameraFinder& finder, stCamera& camera) {
    const std::vector<stCamera> cameras = finder.look();
    const auto found = std::ranges::find(cameras, camera.port, &stCamera::port);
    if (found == cameras.end()) {
        return false;
    }
    camera = *found;
    return true;
}

stFailure chooseOnce(const stArguments& arguments, ClCameraFinder& finder,
                     std::vector<stCamera>& cameras) {
    cameras = finder.look();
    if (cameras.empty()) {
        return {ExitCode::NoCamera, QStringLiteral("no camera is plugged in"), {}};
    }
    if (arguments.has("camera")) {
        return chooseByName(arguments.option("camera"), cameras);
    }
    return {};
}

}  // namespace

QString serialOf(ClSession& camera) {
    QVariant serial;
    const unsigned short result = camera.settings().read(setting("identity.serial"), serial);
    return result == 0 ? serial.toString() : QString();
}

stFailure chooseCameras(const stArguments& arguments, ClCameraFinder& finder,
                        std::vector<stCamera>& cameras) {
    const stFailure failure =
        persist(arguments, [&] { return chooseOnce(arguments, finder, cameras); });
    if (!failure && cameras.size() > 1 && !arguments.has("all")) {
        return {ExitCode::NoCamera,
                QStringLiteral("%1 cameras, choose one by --camera or all by --all: %2")
                    .arg(cameras.size())
                    .arg(listed(cameras)),
                {}};
    }
    return failure;
}

std::unique_ptr<ClSession> openCamera(const stArguments& arguments, ClCameraFinder& finder,
                                      stCamera& camera, stFailure& failure) {
    std::unique_ptr<ClSession> session;
    bool isLost = false;
    failure = persist(arguments, [&] {
        stFailure opening;
        if (isLost && !lookAgain(finder, camera)) {
            return stFailure{
                ExitCode::LinkFailed, QStringLiteral("camera %1 has gone").arg(camera.port), {}};
        }
        session = ClCameraFinder::open(camera, opening);
        isLost = opening.exit == ExitCode::LinkFailed && !arguments.has("all");
        return opening;
    });
    return session;
}
