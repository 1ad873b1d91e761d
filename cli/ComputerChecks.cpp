// SPDX-License-Identifier: MIT
#include "cli/ComputerChecks.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <array>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <cerrno>
#include <cstring>

namespace {

/// The folders of rules; one that is named first hides those of the same name behind it.
constexpr std::array RULE_FOLDERS{"/etc/udev/rules.d", "/run/udev/rules.d",
                                  "/usr/local/lib/udev/rules.d", "/usr/lib/udev/rules.d",
                                  "/lib/udev/rules.d"};
constexpr auto RULE_NAME = "/70-nubo-setting-tool.rules";

const QString PLUG_AGAIN =
    QStringLiteral("\"udevadm control --reload\", and plug the camera in again");

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString installedRule(const stComputer& computer) {
    for (const char* const folder : RULE_FOLDERS) {
        QString path = computer.root + QLatin1String(folder) + QLatin1String(RULE_NAME);
        if (QFileInfo::exists(path)) {
            return path;
        }
    }
    return {};
}

/// Whether a line of @p rule gives the user the right to open this program's cameras.
bool isForThisCamera(const QByteArray& rule) {
    constexpr int DIGITS = 4;
    constexpr int HEXADECIMAL = 16;
    const auto match = [](const char* attribute, unsigned int identifier) {
        return QStringLiteral("{%1}==\"%2\"")
            .arg(QLatin1String(attribute))
            .arg(identifier, DIGITS, HEXADECIMAL, QLatin1Char('0'))
            .toLatin1();
    };
    const QByteArray vendor = match("idVendor", NUBO_USB_VENDOR_ID);
    const QByteArray product = match("idProduct", NUBO_USB_PRODUCT_ID);
    return std::ranges::any_of(rule.split('\n'), [&](const QByteArray& line) {
        return !line.trimmed().startsWith('#') && line.contains(vendor) && line.contains(product);
    });
}

/// What udev knows of the device, whose number as a character device follows from its place.
QString recordOf(const stComputer& computer, const stCamera& camera) {
    constexpr int DEVICES_A_BUS = 128;
    return computer.root + QStringLiteral("/run/udev/data/c189:%1")
                               .arg((camera.bus - 1) * DEVICES_A_BUS + camera.number - 1);
}

/// Whether udev has marked the device for the user who sits at the computer.
bool isMarked(const stComputer& computer, const stCamera& camera) {
    const QByteArrayList lines = contentOf(recordOf(computer, camera)).split('\n');
    return lines.contains("G:uaccess") || lines.contains("Q:uaccess");
}

/// The seat at which the user sits, as logind knows it; empty for none.
QString seatOf(const stComputer& computer) {
    const QDir seats(computer.root + QStringLiteral("/run/systemd/seats"));
    const QByteArray active = "ACTIVE_UID=" + QByteArray::number(computer.user);
    for (const QString& seat : seats.entryList(QDir::Files, QDir::Name)) {
        if (contentOf(seats.filePath(seat)).split('\n').contains(active)) {
            return seat;
        }
    }
    return {};
}

/// The node of a camera, and what its permissions make of it for the user.
struct stNode {
    QString path{};
    QString text{};  ///< path, mode and owners
    int error = 0;   ///< why it cannot be opened; 0: it can
    bool isOfGroup = false;
    QString group{};
};

stNode nodeOf(const stComputer& computer, const stCamera& camera) {
    constexpr unsigned int PERMISSIONS = 07777;
    constexpr int OCTAL = 8;
    stNode node;
    node.path =
        computer.root + QString::asprintf("/dev/bus/usb/%03d/%03d", camera.bus, camera.number);
    const QByteArray path = QFile::encodeName(node.path);
    struct stat status {};
    if (::stat(path.constData(), &status) != 0) {
        node.text = node.path;
        node.error = errno;
        return node;
    }
    const QFileInfo info(node.path);
    const auto named = [](const QString& name, unsigned int number) {
        return name.isEmpty() ? QString::number(number) : name;
    };
    node.group = named(info.group(), status.st_gid);
    node.text = QStringLiteral("%1 of %2:%3 with mode %4")
                    .arg(node.path, named(info.owner(), status.st_uid), node.group)
                    .arg(status.st_mode & PERMISSIONS, 4, OCTAL, QLatin1Char('0'));
    node.isOfGroup = (status.st_mode & S_IWGRP) != 0 && computer.groups.contains(status.st_gid);
    // Opening is the proof; permissions alone leave out lists of access and rights of root.
    const int descriptor = ::open(path.constData(), O_RDWR | O_CLOEXEC);
    if (descriptor < 0) {
        node.error = errno;
    } else {
        ::close(descriptor);
    }
    return node;
}

void checkNode(Checks& checks, const stNode& node) {
    const QString check = QStringLiteral("node");
    if (node.error == 0) {
        checks.add(Finding::Ok, check, node.text + QStringLiteral(" may be opened"));
    } else if (node.error == EACCES || node.error == EPERM) {
        checks.add(Finding::Failure, check, node.text + QStringLiteral(" may not be opened"),
                   QStringLiteral("what the checks of rule and seat say"));
    } else {
        checks.add(Finding::Failure, check,
                   QStringLiteral("%1: %2").arg(node.text,
                                                QString::fromLocal8Bit(std::strerror(node.error))),
                   QStringLiteral("plug the camera in again; a container needs /dev/bus/usb"));
    }
}

void checkForce(Checks& checks, const stComputer& computer, const stCamera& camera,
                bool isAccessible) {
    const QString check = QStringLiteral("force");
    if (isMarked(computer, camera)) {
        checks.add(Finding::Ok, check, QStringLiteral("a rule is in force for the camera"));
    } else {
        checks.add(isAccessible ? Finding::Ok : Finding::Failure, check,
                   QFileInfo::exists(recordOf(computer, camera))
                       ? QStringLiteral("no rule is in force for the camera")
                       : QStringLiteral("udev knows nothing of the camera"),
                   isAccessible ? QString() : PLUG_AGAIN);
    }
}

void checkSeat(Checks& checks, const stComputer& computer, const stNode& node) {
    const QString check = QStringLiteral("seat");
    const QString seat = seatOf(computer);
    if (!seat.isEmpty()) {
        checks.add(Finding::Ok, check, QStringLiteral("you sit at ") + seat);
    } else if (node.isOfGroup) {
        checks.add(Finding::Ok, check,
                   QStringLiteral("you are in the group %1 of the node").arg(node.group));
    } else if (computer.user == 0) {
        checks.add(Finding::Ok, check, QStringLiteral("you are root"));
    } else {
        checks.add(node.error == 0 ? Finding::Ok : Finding::Failure, check,
                   QStringLiteral("you sit at no seat, and are not in the group of the node"),
                   node.error == 0
                       ? QString()
                       : QStringLiteral("rules help who sits at the computer; over SSH, a rule "
                                        "must give the node a group of yours"));
    }
}

void checkDriver(Checks& checks, const stComputer& computer, const stCamera& camera) {
    const QString check = QStringLiteral("driver");
    const QFileInfo driver(computer.root +
                           QStringLiteral("/sys/bus/usb/devices/%1:1.0/driver").arg(camera.port));
    const QString name =
        driver.isSymLink() ? QFileInfo(driver.symLinkTarget()).fileName() : QString();
    // usbfs is what a program that has claimed the interface shows as.
    if (name.isEmpty() || name == QLatin1String("usbfs")) {
        checks.add(Finding::Ok, check, QStringLiteral("no driver of the kernel is in the way"));
    } else {
        checks.add(Finding::Failure, check,
                   QStringLiteral("the kernel's driver %1 has the interface").arg(name),
                   QStringLiteral("echo %1:1.0 | sudo tee /sys/bus/usb/drivers/%2/unbind")
                       .arg(camera.port, name));
    }
}

void checkSpeed(Checks& checks, const stComputer& computer, const stCamera& camera) {
    constexpr double HIGH_SPEED = 480;
    const QString check = QStringLiteral("speed");
    // As the kernel writes it: a low speed is 1.5.
    const QByteArray text =
        contentOf(computer.root + QStringLiteral("/sys/bus/usb/devices/%1/speed").arg(camera.port))
            .trimmed();
    bool isNumber = false;
    const double speed = text.toDouble(&isNumber);
    const QString told = QString::fromLatin1(text) + QStringLiteral(" Mbit/s");
    if (!isNumber) {
        checks.add(Finding::Ok, check, QStringLiteral("not known"));
    } else if (speed < HIGH_SPEED) {
        checks.add(Finding::Warning, check, told,
                   QStringLiteral("try another port and cable, without a hub"));
    } else {
        checks.add(Finding::Ok, check, told);
    }
}

}  // namespace

stComputer::stComputer() : user(::geteuid()) {
    const int count = ::getgroups(0, nullptr);
    std::vector<gid_t> numbers(static_cast<std::size_t>(std::max(count, 0)));
    if (::getgroups(count, numbers.data()) == count) {
        groups = QList<unsigned int>(numbers.cbegin(), numbers.cend());
    }
    groups.append(::getegid());
}

void checkRule(Checks& checks, const stComputer& computer) {
    const QString check = QStringLiteral("rule");
    const QString path = installedRule(computer);
    if (path.isEmpty()) {
        // Root needs none.
        checks.add(computer.user == 0 ? Finding::Ok : Finding::Warning, check,
                   QStringLiteral("none is installed"),
                   computer.user == 0
                       ? QString()
                       : QStringLiteral("install 70-nubo-setting-tool.rules, then ") + PLUG_AGAIN);
    } else if (!isForThisCamera(contentOf(path))) {
        checks.add(Finding::Failure, check, path + QStringLiteral(" is for another identity"),
                   QStringLiteral("install the one of this version, then ") + PLUG_AGAIN);
    } else {
        checks.add(Finding::Ok, check, path + QStringLiteral(" is for this identity"));
    }
}

void checkDevice(Checks& checks, const stComputer& computer, const stCamera& camera) {
    const stNode node = nodeOf(computer, camera);
    checkNode(checks, node);
    checkForce(checks, computer, camera, node.error == 0);
    checkSeat(checks, computer, node);
    checkDriver(checks, computer, camera);
    checkSpeed(checks, computer, camera);
}
