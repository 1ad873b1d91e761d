// SPDX-License-Identifier: MIT
#include "simulator/Testbed.h"

#include "simulator/Latin1.h"

#include <dlfcn.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace nubo::simulator {

namespace {

constexpr int USB_DEVICE_MAJOR = 189;
/// A socket path has 108 bytes; this leaves room for what the testbed appends to the folder.
constexpr std::size_t LONGEST_TEMPORARY_FOLDER = 40;

struct GErrorDeleter {
    void operator()(GError* error) const { g_error_free(error); }
};
struct GFreeDeleter {
    void operator()(gpointer memory) const { g_free(memory); }
};

/// Reports a failed call of the testbed on the standard error.
bool checked(gboolean done, GError* rawError) {
    const std::unique_ptr<GError, GErrorDeleter> error(rawError);
    if (done) {
        return true;
    }
    std::fprintf(stderr, "virtual USB bus: %s\n", error ? error->message : "refused");
    return false;
}

std::string nodeName(const BusAddress& address) {
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "bus/usb/001/%03d", address.number);
    return name.data();
}

std::string systemPath(const BusAddress& address) {
    return "/devices/usb1/1-" + std::to_string(address.port);
}

template <class Bytes>
std::string hexadecimal(const Bytes& bytes) {
    std::string text;
    for (const auto byte : bytes) {
        std::array<char, 3> digits{};
        std::snprintf(digits.data(), digits.size(), "%02X", static_cast<std::uint8_t>(byte));
        text += digits.data();
    }
    return text;
}

/// The kernel's way to write such a text into sysfs: UTF-8 and a line end.
std::string attributeText(std::string_view latin1) {
    return utf8FromLatin1(latin1) + "\n";
}

std::string deviceText(const BusAddress& address, const SystemEntry& entry) {
    const std::string number = std::to_string(address.number);
    const std::string hex = hexadecimal(entry.descriptors);
    std::string text;
    text += "P: " + systemPath(address) + "\n";
    text += "N: " + nodeName(address) + "=" + hex + "\n";
    text += "E: SUBSYSTEM=usb\nE: DEVTYPE=usb_device\nE: BUSNUM=001\n";
    text += "E: DEVNUM=" + nodeName(address).substr(std::strlen("bus/usb/001/")) + "\n";
    text += "E: DEVNAME=/dev/" + nodeName(address) + "\n";
    text += "A: busnum=1\\n\nA: devnum=" + number + "\\n\n";
    text += "A: speed=480\\n\nA: bConfigurationValue=1\\n\n";
    text += "A: dev=" + std::to_string(USB_DEVICE_MAJOR) + ":" +
            std::to_string(address.number - 1) + "\\n\n";
    if (!entry.serialNumber.empty()) {
        text += "H: serial=" + hexadecimal(attributeText(entry.serialNumber)) + "\n";
    }
    text += "H: descriptors=" + hex + "\n\n";
    return text;
}

GObjectPtr<UMockdevTestbed> newTestbed() {
    const char* const folder = std::getenv("TMPDIR");
    if (folder == nullptr || std::strlen(folder) <= LONGEST_TEMPORARY_FOLDER) {
        return GObjectPtr<UMockdevTestbed>(umockdev_testbed_new());
    }
    const std::string kept = folder;
    setenv("TMPDIR", "/tmp", 1);
    GObjectPtr<UMockdevTestbed> testbed(umockdev_testbed_new());
    setenv("TMPDIR", kept.c_str(), 1);
    return testbed;
}

}  // namespace

Testbed::Testbed() : m_testbed(newTestbed()) {}

bool Testbed::isPreloaded() {
    const auto close = [](void* library) { dlclose(library); };
    const std::unique_ptr<void, decltype(close)> library(
        dlopen("libumockdev-preload.so.0", RTLD_LAZY | RTLD_NOLOAD), close);
    return library != nullptr;
}

bool Testbed::add(const BusAddress& address, const SystemEntry& entry, UMockdevIoctlBase* handler) {
    const std::string node = "/dev/" + nodeName(address);
    GError* error = nullptr;
    const gboolean attached =
        umockdev_testbed_attach_ioctl(m_testbed.get(), node.c_str(), handler, &error);
    if (!checked(attached, error)) {
        return false;
    }
    const gboolean added = umockdev_testbed_add_from_string(
        m_testbed.get(), deviceText(address, entry).c_str(), &error);
    if (checked(added, error)) {
        return true;
    }
    umockdev_testbed_detach_ioctl(m_testbed.get(), node.c_str(), nullptr);
    return false;
}

void Testbed::remove(const BusAddress& address) {
    const std::string path = "/sys" + systemPath(address);
    umockdev_testbed_uevent(m_testbed.get(), path.c_str(), "remove");
    umockdev_testbed_remove_device(m_testbed.get(), path.c_str());
    GError* error = nullptr;
    const std::string node = "/dev/" + nodeName(address);
    checked(umockdev_testbed_detach_ioctl(m_testbed.get(), node.c_str(), &error), error);
}

std::filesystem::path Testbed::nodePath(const BusAddress& address) const {
    const std::unique_ptr<char, GFreeDeleter> root(umockdev_testbed_get_root_dir(m_testbed.get()));
    return std::filesystem::path(root.get()) / "dev" / nodeName(address);
}

}  // namespace nubo::simulator
