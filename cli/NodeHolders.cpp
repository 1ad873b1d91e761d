// SPDX-License-Identifier: MIT
#include "cli/NodeHolders.h"

#include <QStringList>

#include <charconv>
#include <filesystem>
#include <optional>
#include <string>

#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

std::optional<int> processOf(const fs::path& folder) {
    const std::string name = folder.filename().string();
    int number = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), number);
    const bool isProcess = error == std::errc() && end == name.data() + name.size();
    return isProcess ? std::optional(number) : std::nullopt;
}

/// Which file it is, whatever path led to it.
struct stFileIdentity {
    dev_t device = 0;
    ino_t number = 0;

    bool operator==(const stFileIdentity&) const = default;
};

std::optional<stFileIdentity> identityOf(const fs::path& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return std::nullopt;
    }
    return stFileIdentity{status.st_dev, status.st_ino};
}

bool hasOpen(const fs::path& process, const stFileIdentity& node) {
    std::error_code error;
    for (fs::directory_iterator file(process / "fd", error), end; !error && file != end;
         file.increment(error)) {
        if (identityOf(file->path()) == node) {
            return true;
        }
    }
    return false;
}

QString programOf(const fs::path& process) {
    std::error_code error;
    const fs::path program = fs::read_symlink(process / "exe", error);
    return error ? QStringLiteral("another program")
                 : QString::fromStdString(program.filename().string());
}

}  // namespace

QString nodeHolders(int bus, int device) {
    const auto node =
        identityOf(QString::asprintf("/dev/bus/usb/%03d/%03d", bus, device).toStdString());
    QStringList holders;
    std::error_code error;
    for (fs::directory_iterator process("/proc", error), end; node && !error && process != end;
         process.increment(error)) {
        const std::optional<int> number = processOf(process->path());
        if (number && *number != ::getpid() && hasOpen(process->path(), *node)) {
            holders.append(
                QStringLiteral("%1 (pid %2)").arg(programOf(process->path())).arg(*number));
        }
    }
    return holders.join(QLatin1String(", "));
}
