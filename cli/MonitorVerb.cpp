// SPDX-License-Identifier: MIT
#include "cli/Actions.h"
#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Interruption.h"
#include "cli/Verbs.h"
#include "settings/SettingTable.h"
#include "settings/SettingValue.h"

#include <QDateTime>
#include <QElapsedTimer>

#include <algorithm>

namespace {

constexpr int LOOK_MS = 250;

struct stMonitorPlan : stVerbPlan {
    double everyS = 2;  ///< between two readings of the values
};

/// What is known of a camera on the bus.
struct stWatched {
    stCameraIdentity identity;
    QList<QVariant> values{};  ///< in the order of the table; invalid where unknown
    bool isReady = false;
    QString obstacle{};  ///< why it cannot be read, as it was told
};

bool isWatched(const stSetting& row) {
    return row.kind != SettingKind::Clock && !row.is(FACTORY) && !row.is(SECRET);
}

class Monitor {
public:
    explicit Monitor(stRun& run) : m_run(run) {}

    void look(bool readsValues) {
        const std::vector<stCamera> cameras = m_run.finder.look();
        dropThoseGone(cameras);
        for (const stCamera& camera : cameras) {
            stWatched& watched = find(camera);
            if (readsValues || !watched.isReady) {
                read(camera, watched);
            }
        }
    }

private:
    static bool isSame(const stWatched& watched, const stCamera& camera) {
        return watched.identity.port == camera.port && watched.identity.device == camera.number;
    }

    void dropThoseGone(const std::vector<stCamera>& cameras) {
        std::erase_if(m_watched, [&](const stWatched& watched) {
            const bool isGone = std::ranges::none_of(
                cameras, [&](const stCamera& camera) { return isSame(watched, camera); });
            if (isGone) {
                tell(watched, QStringLiteral("gone"));
            }
            return isGone;
        });
    }

    stWatched& find(const stCamera& camera) {
        const auto found = std::ranges::find_if(
            m_watched, [&](const stWatched& watched) { return isSame(watched, camera); });
        if (found != m_watched.end()) {
            return *found;
        }
        m_watched.push_back({{{}, camera.port, camera.bus, camera.number, {}}});
        tell(m_watched.back(), QStringLiteral("plugged"));
        return m_watched.back();
    }

    /// Holds the camera only while it reads: other programs get their turn.
    void read(const stCamera& camera, stWatched& watched) {
        stFailure failure;
        const std::unique_ptr<ClSession> session = ClCameraFinder::open(camera, failure);
        if (!session) {
            // One that is leaving the bus will be told as gone.
            if (failure.exit != ExitCode::LinkFailed && watched.obstacle != failure.message) {
                watched.obstacle = failure.message;
                tell(watched, QStringLiteral("unavailable"),
                     {{QStringLiteral("message"), failure.message}}, failure.message);
            }
            return;
        }
        watched.obstacle.clear();
        if (!watched.isReady && !makeReady(*session, watched)) {
            return;
        }
        readValues(*session, watched);
    }

    bool makeReady(ClSession& session, stWatched& watched) {
        QVariant serial;
        QVariant firmware;
        const bool answers = session.settings().read(setting("identity.serial"), serial) == 0 &&
                             session.settings().read(setting("identity.firmware"), firmware) == 0;
        if (answers) {
            watched.identity.serial = serial.toString();
            watched.identity.firmware = firmware.toString();
            watched.isReady = true;
            tell(watched, QStringLiteral("ready"));
        }
        return answers;
    }

    void readValues(ClSession& session, stWatched& watched) {
        watched.values.resize(static_cast<qsizetype>(settings().size()));
        for (std::size_t i = 0; i < settings().size(); ++i) {
            const stSetting& row = settings()[i];
            QVariant value;
            if (!isWatched(row) || session.settings().read(row, value) != 0) {
                continue;
            }
            QVariant& known = watched.values[static_cast<qsizetype>(i)];
            if (known.isValid() && known != value) {
                tell(watched, QStringLiteral("changed"),
                     {{QStringLiteral("key"), toText(row.key)},
                      {QStringLiteral("old"), valueJson(row, known)},
                      {QStringLiteral("new"), valueJson(row, value)}},
                     QStringLiteral("%1: %2 -> %3")
                         .arg(toText(row.key), valueText(row, known), valueText(row, value)));
            }
            known = value;
        }
    }

    void tell(const stWatched& watched, const QString& event, QJsonObject object = {},
              const QString& more = {}) {
        const QDateTime now = QDateTime::currentDateTime();
        if (m_run.arguments.isJson()) {
            object.insert(QStringLiteral("schema"), QString::fromLatin1(JSON_SCHEMA));
            object.insert(QStringLiteral("time"), now.toString(Qt::ISODateWithMs));
            object.insert(QStringLiteral("event"), event);
            object.insert(QStringLiteral("camera"), cameraJson(watched.identity));
            printJson(m_run.console, object);
            return;
        }
        const QString& serial = watched.identity.serial;
        const QString line = QStringLiteral("%1  %2  %3  %4  %5")
                                 .arg(now.toString(QStringLiteral("HH:mm:ss")))
                                 .arg(watched.identity.port, -6)
                                 .arg(serial.isEmpty() ? QStringLiteral("-") : serial, -10)
                                 .arg(event, more);
        m_run.console.print(line.trimmed() + u'\n');
    }

    stRun& m_run;
    std::vector<stWatched> m_watched;
};

}  // namespace

stFailure prepareMonitor(const stArguments& arguments, ClConsole& /*console*/,
                         std::unique_ptr<stVerbPlan>& plan) {
    constexpr double SHORTEST_S = 0.1;
    constexpr double LONGEST_S = 86'400;
    if (arguments.has("camera")) {
        return {ExitCode::WrongUse, QStringLiteral("monitor watches all cameras"), {}};
    }
    auto monitor = std::make_unique<stMonitorPlan>();
    const stFailure failure =
        readNumber(arguments, "every", SHORTEST_S, LONGEST_S, monitor->everyS);
    plan = std::move(monitor);
    return failure;
}

void runMonitor(stRun& run) {
    const double everyS = static_cast<const stMonitorPlan&>(*run.plan).everyS;
    const auto everyMs = static_cast<qint64>(everyS * MS_PER_SECOND);
    run.report.setIsTold();
    Monitor monitor(run);
    QElapsedTimer sinceReading;
    do {
        const bool readsValues = !sinceReading.isValid() || sinceReading.elapsed() >= everyMs;
        if (readsValues) {
            sinceReading.start();
        }
        monitor.look(readsValues);
    } while (run.console.pause(static_cast<int>(std::min<qint64>(LOOK_MS, everyMs))));
    if (Interruption::isRequested()) {
        run.report.fail({ExitCode::Interrupted, QStringLiteral("interrupted"), {}});
    }
}
