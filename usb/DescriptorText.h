// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <libusb.h>

/// The dump of descriptors as text, for diagnostics. The labels are fixed: tools compare them. A
/// negative index gives the header without a number. Thread-safe.
namespace DescriptorText {

[[nodiscard]] QString ofDevice(const libusb_device_descriptor& d);
[[nodiscard]] QString ofConfig(const libusb_config_descriptor& d, int index);
[[nodiscard]] QString ofInterface(const libusb_interface_descriptor& d, int index);
[[nodiscard]] QString ofEndpoint(const libusb_endpoint_descriptor& d, int index);

/// All descriptors of @p device: of its configurations, and of the first interface of each with its
/// settings and their endpoints. Empty when none can be read.
[[nodiscard]] QString ofAll(libusb_device* device);

}  // namespace DescriptorText
