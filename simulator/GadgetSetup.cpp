// SPDX-License-Identifier: MIT
#include "simulator/GadgetSetup.h"

#include "simulator/Latin1.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>
#include <vector>

namespace nubo::simulator {

namespace {

namespace fs = std::filesystem;

constexpr const char* LANGUAGE = "strings/0x409";
constexpr const char* CONFIGURATION = "configs/c.1";
constexpr const char* MANUFACTURER = "NuBo";
constexpr const char* PRODUCT = "Simulated camera";
constexpr ::mode_t FOLDER_MODE = 0755;
constexpr ::mode_t LOCK_MODE = 0600;

std::string failureAt(const fs::path& path, int error) {
    if (error == EACCES || error == EPERM) {
        return "a gadget needs root's rights: start the simulator as root, or with sudo";
    }
    return path.string() + ": " + std::strerror(error);
}

/// Makes a folder, if it is not there yet; errno, or 0.
int makeFolder(const fs::path& path) {
    return ::mkdir(path.c_str(), FOLDER_MODE) == 0 || errno == EEXIST ? 0 : errno;
}

/// Writes an attribute of sysfs or configfs in one piece; errno, or 0.
int writeAttribute(const fs::path& path, std::string_view text) {
    const FileDescriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC));
    const bool written = file && ::write(file.number(), text.data(), text.size()) ==
                                     static_cast<::ssize_t>(text.size());
    return written ? 0 : errno;
}

bool isConfigfs(const fs::path& folder) {
    constexpr decltype(statfs::f_type) CONFIGFS_MAGIC = 0x62656570;
    struct statfs information {};
    return ::statfs(folder.c_str(), &information) == 0 && information.f_type == CONFIGFS_MAGIC;
}

std::string firstLine(const fs::path& path) {
    std::ifstream file(path);
    std::string line;
    std::getline(file, line);
    return line;
}

std::vector<std::string> namesIn(const fs::path& folder) {
    std::error_code ignored;
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, ignored)) {
        names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::string joined(const std::vector<std::string>& names) {
    std::string text;
    for (const std::string& name : names) {
        text += (text.empty() ? "" : ", ") + name;
    }
    return text;
}

std::string hexadecimal(unsigned number) {
    std::array<char, 8> digits{};
    std::snprintf(digits.data(), digits.size(), "0x%04x", number);
    return digits.data();
}

}  // namespace

GadgetSetup::~GadgetSetup() {
    if (m_lock) {
        removeGadget();
    }
}

fs::path GadgetSetup::gadget() const {
    return m_places.configfs / "usb_gadget" / ("nubo." + m_controller);
}

fs::path GadgetSetup::function() const {
    return gadget() / "functions" / ("ffs.nubo." + m_controller);
}

std::string GadgetSetup::create(const std::string& controller) {
    if (const int error = makeFolder(m_places.run); error != 0) {
        return failureAt(m_places.run, error);
    }
    if (!fs::exists(m_places.configfs / "usb_gadget")) {
        if (!isConfigfs(m_places.configfs)) {
            return "the file system configfs is not there: modprobe configfs, then mount -t "
                   "configfs configfs " +
                   m_places.configfs.string();
        }
        return "the kernel module libcomposite is not loaded: modprobe libcomposite";
    }
    std::string failure = chooseController(controller);
    if (failure.empty()) {
        removeGadget();
        failure = makeGadget();
    }
    return failure.empty() ? mountFunction() : failure;
}

std::string GadgetSetup::chooseController(const std::string& wanted) {
    const std::vector<std::string> names = namesIn(m_places.controllers);
    if (names.empty()) {
        return "this computer has no USB device controller: switch the device mode of its port on "
               "(without such a port: modprobe dummy_hcd)";
    }
    if (!wanted.empty()) {
        return std::ranges::find(names, wanted) != names.end()
                   ? lockController(wanted)
                   : "no controller \"" + wanted + "\" (--udc): there is " + joined(names);
    }
    std::string failure;
    for (const std::string& name : names) {
        failure = lockController(name);
        if (failure.empty()) {
            break;
        }
    }
    return failure;
}

std::string GadgetSetup::lockController(const std::string& controller) {
    const fs::path path = m_places.run / (controller + ".lock");
    FileDescriptor lock(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, LOCK_MODE));
    if (!lock) {
        return failureAt(path, errno);
    }
    if (::flock(lock.number(), LOCK_EX | LOCK_NB) != 0) {
        return "the controller " + controller +
               " is in use by another nubo-camera-simulator: end that, or choose one with --udc";
    }
    const std::string user = firstLine(m_places.controllers / controller / "function");
    if (!user.empty()) {
        return "the controller " + controller + " is in use by the gadget " + user +
               ": take that away, or choose one with --udc";
    }
    m_lock = std::move(lock);
    m_controller = controller;
    return {};
}

std::string GadgetSetup::makeGadget() {
    for (const fs::path& folder :
         {gadget(), gadget() / LANGUAGE, gadget() / CONFIGURATION, function()}) {
        const int error = makeFolder(folder);
        if (error != 0 && folder == function()) {
            return "the kernel module usb_f_fs cannot be loaded: modprobe usb_f_fs tells why";
        }
        if (error != 0) {
            return failureAt(folder, error);
        }
    }
    const fs::path link = gadget() / CONFIGURATION / function().filename();
    if (::symlink(function().c_str(), link.c_str()) != 0) {
        return failureAt(link, errno);
    }
    return {};
}

std::string GadgetSetup::mountFunction() {
    if (const int error = makeFolder(endpoints()); error != 0) {
        return failureAt(endpoints(), error);
    }
    const std::string instance = "nubo." + m_controller;
    if (::mount(instance.c_str(), endpoints().c_str(), "functionfs", MS_NODEV | MS_NOEXEC,
                nullptr) != 0) {
        return failureAt(endpoints(), errno);
    }
    return {};
}

/// Takes away whatever there is of it, in the order in which the kernel allows it.
void GadgetSetup::removeGadget() {
    unbind();
    ::unlink((gadget() / CONFIGURATION / function().filename()).c_str());
    ::umount2(endpoints().c_str(), MNT_DETACH);
    for (const fs::path& folder :
         {endpoints(), function(), gadget() / CONFIGURATION, gadget() / LANGUAGE, gadget()}) {
        ::rmdir(folder.c_str());
    }
}

std::string GadgetSetup::describe(const DeviceDescription& description,
                                  std::string_view serialNumber) {
    constexpr const char* USB_2 = "0x0200";
    constexpr const char* BUS_POWERED = "0x80";
    constexpr const char* MILLIAMPERES = "500";
    const std::array attributes = {
        std::pair{fs::path("idVendor"), hexadecimal(description.vendorId)},
        std::pair{fs::path("idProduct"), hexadecimal(description.productId)},
        std::pair{fs::path("bcdDevice"), hexadecimal(description.release)},
        std::pair{fs::path("bcdUSB"), std::string(USB_2)},
        std::pair{fs::path(LANGUAGE) / "manufacturer", std::string(MANUFACTURER)},
        std::pair{fs::path(LANGUAGE) / "product", std::string(PRODUCT)},
        std::pair{fs::path(LANGUAGE) / "serialnumber", utf8FromLatin1(serialNumber)},
        std::pair{fs::path(CONFIGURATION) / "bmAttributes", std::string(BUS_POWERED)},
        std::pair{fs::path(CONFIGURATION) / "MaxPower", std::string(MILLIAMPERES)},
    };
    for (const auto& [name, value] : attributes) {
        if (const int error = writeAttribute(gadget() / name, value + "\n"); error != 0) {
            return failureAt(gadget() / name, error);
        }
    }
    // A faster controller comes down to what the camera is. Kernels before 5.10 lack the attribute.
    writeAttribute(gadget() / "max_speed", "high-speed\n");
    return {};
}

std::string GadgetSetup::bind() {
    const int error = writeAttribute(gadget() / "UDC", m_controller + "\n");
    if (error == EBUSY) {
        return "the controller " + m_controller + " is in use by another gadget";
    }
    return error == 0 ? "" : failureAt(m_controller, error);
}

void GadgetSetup::unbind() {
    writeAttribute(gadget() / "UDC", "\n");
}

}  // namespace nubo::simulator
