// SPDX-License-Identifier: MIT
#pragma once

#include "simulator/GadgetPort.h"
#include "tests/simulator/UsbHost.h"
#include "tests/support/ShortUsbTimes.h"
#include "tests/usb/ManagerBench.h"
#include "tests/usb/UserInterface.h"
#include "usb/ClUsbController.h"
#include "usb/ClUsbManager.h"

#include <QTest>

#include <algorithm>
#include <memory>
#include <optional>

/// The emulated machine on a loaded computer is far slower than what PATIENCE_MS is for.
inline constexpr int KERNEL_PATIENCE_MS = 120'000;

/// A simulated camera at this computer's own device port.
struct GadgetBench {
    /// An empty text, or why there is none.
    [[nodiscard]] std::string open() { return port.open({}); }

    std::shared_ptr<SteadyCamera> camera = std::make_shared<SteadyCamera>();
    nubo::simulator::GadgetPort port{camera, nubo::simulator::DeviceOptions{}};
};

/// What libusb sees of that camera now.
struct KernelHost {
    /// Waits until the camera is on the bus, and opens it with @p controller.
    [[nodiscard]] bool find() {
        return QTest::qWaitFor(
            [this] {
                devices = LibusbDeviceList(context.get());
                const auto found = std::ranges::find_if(devices.devices(), isCamera);
                device = found == devices.devices().end() ? nullptr : *found;
                return device != nullptr;
            },
            KERNEL_PATIENCE_MS);
    }

    static bool isCamera(libusb_device* candidate) {
        libusb_device_descriptor descriptor{};
        return libusb_get_device_descriptor(candidate, &descriptor) == LIBUSB_SUCCESS &&
               descriptor.idVendor == NUBO_USB_VENDOR_ID &&
               descriptor.idProduct == NUBO_USB_PRODUCT_ID;
    }

    LibusbContext context = nubo::simulator::newLibusbContext();
    LibusbDeviceList devices;
    libusb_device* device = nullptr;
};
