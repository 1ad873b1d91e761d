// SPDX-License-Identifier: MIT
#include "cli/ReturnWait.h"

#include "cli/Actions.h"
#include "cli/ClCameraFinder.h"
#include "cli/ClSession.h"
#include "cli/Interruption.h"
#include "settings/SettingTable.h"

#include <QDeadlineTimer>

#include <algorithm>

namespace {

constexpr int LOOK_MS = 100;

/// A camera that is just starting may be there before it can be opened, or before it answers.
bool answers(const stCamera& camera, stCameraIdentity& after, stFailure& obstacle) {
    const std::unique_ptr<ClSession> session = ClCameraFinder::open(camera, obstacle);
    if (!session) {
        return false;
    }
    QVariant firmware;
    QVariant serial;
    if (session->settings().read(setting("identity.firmware"), firmware) != 0 ||
        session->settings().read(setting("identity.serial"), serial) != 0) {
        obstacle = {
            ExitCode::LinkFailed, QStringLiteral("the camera is back, and does not answer"), {}};
        return false;
    }
    after = {serial.toString(), camera.port, camera.bus, camera.number, firmware.toString()};
    return true;
}

}  // namespace

stFailure waitForReturn(const stCameraIdentity& before, const stReturnPatience& patience,
                        stCameraIdentity& after, const std::function<void()>& betweenLooks) {
    ClCameraFinder finder;
    if (const stFailure failure = finder.start()) {
        return failure;
    }
    const QDeadlineTimer leaving(patience.leavingMs);
    const QDeadlineTimer returning(patience.returningMs);
    stFailure obstacle{ExitCode::LinkFailed,
                       QStringLiteral("the camera has not come back within %1 s")
                           .arg(patience.returningMs / MS_PER_SECOND),
                       {}};
    bool isGone = false;
    while (!returning.hasExpired()) {
        const std::vector<stCamera> cameras = finder.look();
        const auto found = std::ranges::find(cameras, before.port, &stCamera::port);
        const bool isThere = found != cameras.end();
        isGone = isGone || !isThere || found->number != before.device;
        if (isThere && isGone && answers(*found, after, obstacle)) {
            return {};
        }
        if (!isGone && leaving.hasExpired()) {
            break;
        }
        if (betweenLooks) {
            betweenLooks();
        }
        if (!Interruption::sleep(LOOK_MS)) {
            return {
                ExitCode::Interrupted, QStringLiteral("interrupted while the camera is away"), {}};
        }
    }
    if (!isGone) {
        after = before;
        return {};
    }
    return obstacle;
}
