// SPDX-License-Identifier: MIT
#include "cli/CameraChoice.h"
#include "cli/ClSession.h"
#include "cli/Doctor.h"
#include "cli/Interruption.h"
#include "cli/Verbs.h"
#include "settings/CameraClock.h"
#include "settings/SettingTable.h"

#include <QElapsedTimer>
#include <QSysInfo>

namespace {

/// What the camera tells of itself.
class CameraChecks {
public:
    CameraChecks(Checks& checks, ClSession& session) : m_checks(checks), m_session(session) {}

    void checkAll() {
        if (!checkAnswer()) {
            return;
        }
        checkClock();
        checkBattery();
        checkCard();
    }

private:
    QVariant read(const QString& check, const stSetting& row) {
        QVariant value;
        if (const unsigned short result = m_session.settings().read(row, value)) {
            m_checks.add(Finding::Failure, check, resultText(toText(row.key), result),
                         QStringLiteral("plug the camera in again"));
            return {};
        }
        return value;
    }

    bool checkAnswer() {
        QElapsedTimer clock;
        clock.start();
        const QString check = QStringLiteral("answer");
        const QVariant version = read(check, setting("identity.firmware"));
        if (!version.isValid()) {
            return false;
        }
        m_checks.add(Finding::Ok, check,
                     QStringLiteral("the first one after %1 ms").arg(clock.elapsed()));
        m_checks.add(
            Finding::Ok, QStringLiteral("firmware"),
            QStringLiteral("%1, serial number %2").arg(version.toString(), serialOf(m_session)));
        return true;
    }

    void checkClock() {
        constexpr qint64 MOST_S = 60;
        const QString check = QStringLiteral("clock");
        const QVariant clock = read(check, setting("camera.clock"));
        if (!clock.isValid()) {
            return;
        }
        // A clock that was never set may tell no time at all.
        const QDateTime told = clock.toDateTime();
        const qint64 off = qAbs(cameraClockNow().secsTo(told));
        const bool isWrong = !told.isValid() || off > MOST_S;
        m_checks.add(
            isWrong ? Finding::Warning : Finding::Ok, check,
            told.isValid() ? QStringLiteral("%1 s off").arg(off) : QStringLiteral("not set"),
            isWrong ? QStringLiteral("\"nuboctl clock sync\" sets it") : QString());
    }

    void checkBattery() {
        constexpr int LEAST = 20;
        const QString check = QStringLiteral("battery");
        const QVariant charge = read(check, setting("battery.charge"));
        if (!charge.isValid()) {
            return;
        }
        const bool isLow = charge.toInt() < LEAST;
        m_checks.add(isLow ? Finding::Warning : Finding::Ok, check,
                     QStringLiteral("%1 %").arg(charge.toInt()),
                     isLow ? QStringLiteral("charge the camera") : QString());
    }

    void checkCard() {
        const QString check = QStringLiteral("card");
        const QVariant total = read(check, setting("sd.total"));
        const QVariant rest = total.isValid() ? read(check, setting("sd.free")) : QVariant();
        if (!rest.isValid()) {
            return;
        }
        if (total.toLongLong() == 0) {
            m_checks.add(Finding::Warning, check, QStringLiteral("none"),
                         QStringLiteral("put an SD card in"));
        } else if (rest.toLongLong() <= 0) {
            m_checks.add(Finding::Warning, check, QStringLiteral("full"),
                         QStringLiteral("free space, or \"nuboctl sd format\""));
        } else {
            m_checks.add(Finding::Ok, check, QStringLiteral("there, and not full"));
        }
    }

    Checks& m_checks;
    ClSession& m_session;
};

void checkHolder(Checks& checks, const stFailure& failure) {
    const QString check = QStringLiteral("holder");
    if (!failure) {
        checks.add(Finding::Ok, check, QStringLiteral("nobody else has the camera"));
    } else if (failure.exit == ExitCode::InUse) {
        checks.add(Finding::Failure, check,
                   failure.holder.isEmpty()
                       ? QStringLiteral("somebody else has the camera")
                       : QStringLiteral("%1 has the camera").arg(failure.holder),
                   QStringLiteral("close it, or use --wait"));
    } else {
        checks.add(Finding::Failure, check, failure.message,
                   failure.exit == ExitCode::LinkFailed ? QStringLiteral("plug the camera in again")
                                                        : QString());
    }
}

void checkCamera(Checks& checks, const stComputer& computer, const stCamera& camera) {
    checks.setPort(camera.port);
    checks.add(Finding::Ok, QStringLiteral("camera"),
               QStringLiteral("at port %1, %2").arg(camera.port, camera.place()));
    checkDevice(checks, computer, camera);
    stFailure failure;
    const std::unique_ptr<ClSession> session = ClCameraFinder::open(camera, failure);
    checkHolder(checks, failure);
    if (session) {
        CameraChecks(checks, *session).checkAll();
    }
}

QString versions() {
    const libusb_version& libusb = *libusb_get_version();
    return QStringLiteral("nuboctl %1 for %2, libusb %3.%4.%5, Qt %6, %7, %8 %9")
        .arg(QStringLiteral(NUBO_VERSION),
             QString::asprintf("%04x:%04x", NUBO_USB_VENDOR_ID, NUBO_USB_PRODUCT_ID))
        .arg(libusb.major)
        .arg(libusb.minor)
        .arg(libusb.micro)
        .arg(QString::fromLatin1(qVersion()), QSysInfo::prettyProductName(), QSysInfo::kernelType(),
             QSysInfo::kernelVersion());
}

/// The cameras to look at: all, unless one is chosen.
std::vector<stCamera> camerasOf(stRun& run, Checks& checks) {
    std::vector<stCamera> cameras = run.finder.look();
    const QString check = QStringLiteral("camera");
    if (cameras.empty()) {
        const QStringList seen = run.finder.identities();
        checks.add(Finding::Failure, check,
                   seen.isEmpty() ? QStringLiteral("none, nor any other USB device")
                                  : QStringLiteral("none among those seen, which are ") +
                                        seen.join(QLatin1String(", ")),
                   QStringLiteral("switch the camera on, and try another cable and port"));
    } else if (run.arguments.has("camera")) {
        if (const stFailure failure = chooseCameras(run.arguments, run.finder, cameras)) {
            checks.add(Finding::Failure, check, failure.message,
                       QStringLiteral("\"nuboctl list\" shows those that are there"));
            cameras.clear();
        }
    }
    return cameras;
}

}  // namespace

void examine(stRun& run, const stComputer& computer) {
    Checks checks(run.report);
    checks.add(Finding::Ok, QStringLiteral("versions"), versions());
    checkRule(checks, computer);
    const QString usb = QStringLiteral("usb");
    if (const stFailure failure = run.finder.start()) {
        checks.add(Finding::Failure, usb, failure.message,
                   QStringLiteral("look into the journal of the kernel; a container needs "
                                  "/dev/bus/usb"));
    } else {
        checks.add(Finding::Ok, usb, QStringLiteral("can be used"));
        for (const stCamera& camera : camerasOf(run, checks)) {
            checkCamera(checks, computer, camera);
        }
    }
    checks.finish();
    if (Interruption::isRequested()) {
        run.report.fail({ExitCode::Interrupted, QStringLiteral("interrupted"), {}});
    }
}

void runDoctor(stRun& run) {
    examine(run, {});
}
