// SPDX-License-Identifier: MIT
#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Verbs.h"

namespace {

struct stRow {
    stCamera camera;
    QString serial{};
    stFailure obstacle{};

    [[nodiscard]] QString state() const {
        switch (obstacle.exit) {
            case ExitCode::Done:
                return QStringLiteral("free");
            case ExitCode::InUse:
                return QStringLiteral("in use");
            case ExitCode::AccessDenied:
                return QStringLiteral("access denied");
            default:
                return QStringLiteral("failed");
        }
    }
};

QString rowText(const stRow& row) {
    QString state = row.state();
    if (row.obstacle.exit == ExitCode::InUse) {
        state += QStringLiteral(" by ") + (row.obstacle.holder.isEmpty()
                                               ? QStringLiteral("another program")
                                               : row.obstacle.holder);
    }
    return QStringLiteral("%1  %2  %3  %4")
        .arg(row.camera.port, -6)
        .arg(row.camera.place(), -6)
        .arg(row.serial.isEmpty() ? QStringLiteral("-") : row.serial, -16)
        .arg(state);
}

QJsonObject rowJson(const stRow& row) {
    const stCamera& camera = row.camera;
    return {{QStringLiteral("schema"), QString::fromLatin1(JSON_SCHEMA)},
            {QStringLiteral("camera"),
             cameraJson({row.serial, camera.port, camera.bus, camera.number, {}})},
            {QStringLiteral("state"), row.state()},
            {QStringLiteral("holder"),
             row.obstacle.holder.isEmpty() ? QJsonValue() : QJsonValue(row.obstacle.holder)}};
}

}  // namespace

void runList(stRun& run) {
    const std::vector<stCamera> cameras = run.finder.look();
    run.report.setIsTold();
    for (const stCamera& camera : cameras) {
        stRow row{camera, camera.serial};
        if (const auto session = ClCameraFinder::open(camera, row.obstacle);
            session && row.serial.isEmpty()) {
            row.serial = serialOf(*session);
        }
        if (run.arguments.isJson()) {
            printJson(run.console, rowJson(row));
        } else {
            run.console.print(rowText(row) + u'\n');
        }
    }
    if (cameras.empty()) {
        run.report.fail({ExitCode::NoCamera, QStringLiteral("no camera is plugged in"), {}});
    }
}
