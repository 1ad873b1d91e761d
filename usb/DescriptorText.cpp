// SPDX-License-Identifier: MIT
#include "usb/DescriptorText.h"

#include "usb/LibusbOwners.h"

#include <span>

namespace {

QString header(const char* kind, int index) {
    return index >= 0 ? QString::asprintf("----------%s:%d-----------\n", kind, index)
                      : QString::asprintf("----------%s----------\n", kind);
}

QString extraLine(const unsigned char* bytes, int count) {
    if (count <= 0) {
        return {};
    }
    QString line = QStringLiteral("Extra:");
    for (const unsigned char byte : std::span(bytes, static_cast<std::size_t>(count))) {
        line += QString::asprintf("%02x ", byte);
    }
    return line + u'\n';
}

}  // namespace

QString DescriptorText::ofDevice(const libusb_device_descriptor& d) {
    return QStringLiteral("----------Descriptor----------\n") +
           QString::asprintf("UsbVersion:%d.%d\n", d.bcdUSB >> 8 & 0xF, d.bcdUSB & 0xFF) +
           QString::asprintf("DeviceClass:0x%x SubClass:0x%x Protocol:0x%x\n", d.bDeviceClass,
                             d.bDeviceSubClass, d.bDeviceProtocol) +
           QString::asprintf("Max packet size of Endpoint 0:%d\n", d.bMaxPacketSize0) +
           QString::asprintf("VendorId:0x%x ProductId:0x%x\n", d.idVendor, d.idProduct) +
           QString::asprintf("Device release number:%d\n", d.bcdDevice) +
           QString::asprintf("Manufacturer:%d\n", d.iManufacturer) +
           QString::asprintf("Product:%d\n", d.iProduct) +
           QString::asprintf("Serial Number:%d\n", d.iSerialNumber) +
           QString::asprintf("Configurations count:%d\n", d.bNumConfigurations);
}

QString DescriptorText::ofConfig(const libusb_config_descriptor& d, int index) {
    return header("Config", index) + QString::asprintf("TotalLength:%d\n", d.wTotalLength) +
           QString::asprintf("Interface Count:%d\n", d.bNumInterfaces) +
           QString::asprintf("Configuration value:%d, Configuration:%d, Attribute:%d\n",
                             d.bConfigurationValue, d.iConfiguration, d.bmAttributes) +
           QString::asprintf("MaxPower:%d\n", d.MaxPower);
}

QString DescriptorText::ofInterface(const libusb_interface_descriptor& d, int index) {
    return header("Interface", index) + QString::asprintf("Number:%d\n", d.bInterfaceNumber) +
           QString::asprintf("AlternateSetting:%d\n", d.bAlternateSetting) +
           QString::asprintf("Endpoint count:%d\n", d.bNumEndpoints) +
           QString::asprintf("Interface Class:%d SubClass:%d Protocol:%d\n", d.bInterfaceClass,
                             d.bInterfaceSubClass, d.bInterfaceProtocol) +
           QString::asprintf("Interface:%d\n", d.iInterface) + extraLine(d.extra, d.extra_length);
}

QString DescriptorText::ofEndpoint(const libusb_endpoint_descriptor& d, int index) {
    const bool isIn = (d.bEndpointAddress & LIBUSB_ENDPOINT_IN) != 0;
    return header("Endpoint", index) +
           QString::asprintf("Address:%x number:%d%s\n", d.bEndpointAddress, d.bEndpointAddress & 3,
                             isIn ? " in" : " out") +
           QString::asprintf("Attributes transfer:%d iso sync:%d iso usage:%d\n",
                             d.bmAttributes & 3, d.bmAttributes >> 2 & 3, d.bmAttributes >> 4 & 3) +
           QString::asprintf("Max packet size:%d\n", d.wMaxPacketSize) +
           QString::asprintf("Interal:%d\n", d.bInterval) +
           QString::asprintf("(Audio only) Refresh:%d Synch address:%d\n", d.bRefresh,
                             d.bSynchAddress) +
           extraLine(d.extra, d.extra_length);
}

QString DescriptorText::ofAll(libusb_device* device) {
    libusb_device_descriptor descriptor{};
    if (libusb_get_device_descriptor(device, &descriptor) != LIBUSB_SUCCESS) {
        return {};
    }
    QString text = ofDevice(descriptor) + u'\n';
    for (std::uint8_t index = 0; index < descriptor.bNumConfigurations; ++index) {
        const LibusbConfig config = readConfig(device, index);
        if (!config) {
            continue;
        }
        text += ofConfig(*config, index) + u'\n';
        if (config->bNumInterfaces == 0) {
            continue;
        }
        const libusb_interface& first = config->interface[0];
        for (int j = 0; j < first.num_altsetting; ++j) {
            const libusb_interface_descriptor& setting = first.altsetting[j];
            text += ofInterface(setting, j) + u'\n';
            for (int k = 0; k < setting.bNumEndpoints; ++k) {
                text += ofEndpoint(setting.endpoint[k], k) + u'\n';
            }
        }
    }
    return text;
}
