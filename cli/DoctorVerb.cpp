// SPDX-License-Identifier: MIT
#include "cli/CameraChoice.h"
#include "cli/ClReport.h"
#include "cli/ClSession.h"
#include "cli/Verbs.h"
#include "settings/SettingTable.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>

#include <array>

#include <unistd.h>

namespace {

enum class Finding { Ok, Warning, Failure };

/// Tells each check as it is made.
class Checks {
public:
    explicit Checks(ClReport& report) : m_report(report) {}

    void add(Finding finding, const QString& check, const QString& what,
             const QString& remedy = {}) {
        constexpr std::array NAMES{"ok", "warning", "failure"};
        const auto name = QLatin1String(NAMES[static_cast<std::size_t>(finding)]);
        const QString line = QStringLiteral("%1  %2  %3").arg(name, -7).arg(check, -10).arg(what);
        m_report.addLine(remedy.isEmpty() ? line : line + QStringLiteral("; ") + remedy);
        m_told.append(QJsonObject{
            {QStringLiteral("check"), check},
            {QStringLiteral("result"), name},
            {QStringLiteral("message"), what},
            {QStringLiteral("remedy"), remedy.isEmpty() ? QJsonValue() : QJsonValue(remedy)}});
        if (finding != Finding::Ok) {
            m_report.setAnswer(ExitCode::No);
        }
    }
    void finish() { m_report.addMember(QStringLiteral("checks"), m_told); }

private:
    ClReport& m_report;
    QJsonArray m_told;
};

/// The rule that lets the user who sits at the computer open the camera.
QString installedRule() {
    for (const char* const folder :
         {"/etc/udev/rules.d", "/run/udev/rules.d", "/usr/local/lib/udev/rules.d",
          "/usr/lib/udev/rules.d", "/lib/udev/rules.d"}) {
        const QString path = QLatin1String(folder) + QStringLiteral("/70-nubo-setting-tool.rules");
        if (QFileInfo::exists(path)) {
            return path;
        }
    }
    return {};
}

void checkRule(Checks& checks, bool isAccessible) {
    const QString path = installedRule();
    if (path.isEmpty()) {
        checks.add(isAccessible ? Finding::Ok : Finding::Failure, QStringLiteral("rule"),
                   QStringLiteral("no udev rule is installed"),
                   isAccessible ? QString()
                                : QStringLiteral("install 70-nubo-setting-tool.rules, and plug the "
                                                 "camera in again"));
        return;
    }
    constexpr int DIGITS = 4;
    constexpr int HEXADECIMAL = 16;
    const QString vendor =
        QStringLiteral("%1").arg(NUBO_USB_VENDOR_ID, DIGITS, HEXADECIMAL, QLatin1Char('0'));
    QFile rule(path);
    const bool isSame = rule.open(QIODevice::ReadOnly) &&
                        QString::fromLatin1(rule.readAll()).contains(vendor, Qt::CaseInsensitive);
    if (!isSame) {
        checks.add(Finding::Failure, QStringLiteral("rule"),
                   QStringLiteral("%1 is for another identity").arg(path),
                   QStringLiteral("install the one of this version"));
    } else if (!isAccessible) {
        checks.add(
            Finding::Failure, QStringLiteral("rule"),
            QStringLiteral("%1 is not in force").arg(path),
            QStringLiteral("\"udevadm control --reload\", and plug the camera in again; over "
                           "SSH no rule helps, since only who sits at the computer counts"));
    } else {
        checks.add(Finding::Ok, QStringLiteral("rule"), path);
    }
}

void checkNode(Checks& checks, const stCamera& camera) {
    const QString node = QString::asprintf("/dev/bus/usb/%03d/%03d", camera.bus, camera.number);
    const QFileInfo info(node);
    const bool isAccessible = ::access(node.toLocal8Bit().constData(), R_OK | W_OK) == 0;
    const QString owner =
        QStringLiteral("%1 of %2:%3")
            .arg(node, info.owner().isEmpty() ? QStringLiteral("?") : info.owner(),
                 info.group().isEmpty() ? QStringLiteral("?") : info.group());
    checks.add(isAccessible ? Finding::Ok : Finding::Failure, QStringLiteral("node"),
               isAccessible ? owner + QStringLiteral(" may be opened")
                            : owner + QStringLiteral(" may not be opened"));
    checkRule(checks, isAccessible);
}

void checkDriver(Checks& checks, const stCamera& camera) {
    const QFileInfo driver(QStringLiteral("/sys/bus/usb/devices/%1:1.0/driver").arg(camera.port));
    if (driver.isSymLink()) {
        const QString name = QFileInfo(driver.symLinkTarget()).fileName();
        const bool isOurs = name == QLatin1String("usbfs");
        checks.add(isOurs ? Finding::Ok : Finding::Warning, QStringLiteral("driver"),
                   QStringLiteral("%1 is bound to the interface").arg(name),
                   isOurs ? QString() : QStringLiteral("unbind it if the camera cannot be opened"));
    } else {
        checks.add(Finding::Ok, QStringLiteral("driver"), QStringLiteral("none in the way"));
    }
}

void checkSpeed(Checks& checks, const stCamera& camera) {
    const int speed = libusb_get_device_speed(camera.device);
    if (speed == LIBUSB_SPEED_LOW || speed == LIBUSB_SPEED_FULL) {
        checks.add(Finding::Warning, QStringLiteral("speed"), QStringLiteral("12 Mbit/s or less"),
                   QStringLiteral("plug the camera into another port, without a hub"));
    } else {
        checks.add(Finding::Ok, QStringLiteral("speed"),
                   speed == LIBUSB_SPEED_UNKNOWN ? QStringLiteral("not known")
                                                 : QStringLiteral("480 Mbit/s or more"));
    }
}

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
            m_checks.add(Finding::Failure, check, resultText(toText(row.key), result));
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
        m_checks.add(Finding::Ok, check, QStringLiteral("after %1 ms").arg(clock.elapsed()));
        m_checks.add(
            Finding::Ok, QStringLiteral("version"),
            QStringLiteral("nuboctl %1, firmware %2, serial number %3")
                .arg(QStringLiteral(NUBO_VERSION), version.toString(), serialOf(m_session)));
        return true;
    }

    void checkClock() {
        constexpr qint64 MOST_S = 60;
        const QString check = QStringLiteral("clock");
        const QVariant clock = read(check, setting("camera.clock"));
        if (!clock.isValid()) {
            return;
        }
        const qint64 off = qAbs(QDateTime::currentDateTime().secsTo(clock.toDateTime()));
        m_checks.add(off > MOST_S ? Finding::Warning : Finding::Ok, check,
                     QStringLiteral("%1 s off").arg(off),
                     off > MOST_S ? QStringLiteral("\"nuboctl clock sync\" sets it") : QString());
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

void checkCamera(Checks& checks, const stCamera& camera) {
    checks.add(Finding::Ok, QStringLiteral("camera"),
               QStringLiteral("at port %1, %2").arg(camera.port, camera.place()));
    checkNode(checks, camera);
    checkDriver(checks, camera);
    checkSpeed(checks, camera);
    stFailure failure;
    const std::unique_ptr<ClSession> session = ClCameraFinder::open(camera, failure);
    if (!session) {
        checks.add(Finding::Failure, QStringLiteral("open"), failure.message);
        return;
    }
    checks.add(Finding::Ok, QStringLiteral("open"), QStringLiteral("nobody else has the camera"));
    CameraChecks(checks, *session).checkAll();
}

}  // namespace

void runDoctor(stRun& run) {
    Checks checks(run.report);
    checks.add(Finding::Ok, QStringLiteral("usb"), QStringLiteral("can be used"));
    const std::vector<stCamera> cameras = run.finder.look();
    if (cameras.empty()) {
        const QStringList seen = run.finder.identities();
        checks.add(Finding::Failure, QStringLiteral("camera"),
                   seen.isEmpty()
                       ? QStringLiteral("no USB device at all is seen")
                       : QStringLiteral("none; seen are ") + seen.join(QLatin1String(", ")),
                   QStringLiteral("switch the camera on, and try another cable and port"));
    }
    for (const stCamera& camera : cameras) {
        checkCamera(checks, camera);
    }
    checks.finish();
}
