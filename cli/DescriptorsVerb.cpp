// SPDX-License-Identifier: MIT
#include "cli/CameraChoice.h"
#include "cli/ClConsole.h"
#include "cli/ClReport.h"
#include "cli/Verbs.h"

namespace {

QString hex(unsigned int number, int digits) {
    return QStringLiteral("0x%1").arg(number, digits, 16, QLatin1Char('0'));
}

/// A descriptor as lines for people and as an object for programs.
class Dump {
public:
    explicit Dump(ClReport& report) : m_report(report) {}

    void title(const QString& text) { m_report.addLine(QString(m_depth, u' ') + text); }
    void add(QJsonObject& object, const QString& name, int value, const QString& shown = {}) {
        object.insert(name, value);
        m_report.addLine(QStringLiteral("%1%2 %3")
                             .arg(QString(m_depth + 2, u' '))
                             .arg(name, -18)
                             .arg(shown.isEmpty() ? QString::number(value) : shown));
    }
    void deeper() { m_depth += 2; }
    void back() { m_depth -= 2; }

private:
    ClReport& m_report;
    int m_depth = 0;
};

QJsonObject endpointOf(Dump& dump, const libusb_endpoint_descriptor& endpoint) {
    constexpr int TYPE_MASK = 3;
    QJsonObject object;
    dump.title(QStringLiteral("endpoint"));
    const bool isIn = (endpoint.bEndpointAddress & LIBUSB_ENDPOINT_IN) != 0;
    dump.add(object, QStringLiteral("bEndpointAddress"), endpoint.bEndpointAddress,
             hex(endpoint.bEndpointAddress, 2) +
                 (isIn ? QStringLiteral(" in") : QStringLiteral(" out")));
    const bool isBulk = (endpoint.bmAttributes & TYPE_MASK) == LIBUSB_ENDPOINT_TRANSFER_TYPE_BULK;
    dump.add(
        object, QStringLiteral("bmAttributes"), endpoint.bmAttributes,
        QString::number(endpoint.bmAttributes) + (isBulk ? QStringLiteral(" bulk") : QString()));
    dump.add(object, QStringLiteral("wMaxPacketSize"), endpoint.wMaxPacketSize);
    dump.add(object, QStringLiteral("bInterval"), endpoint.bInterval);
    return object;
}

QJsonObject settingOf(Dump& dump, const libusb_interface_descriptor& setting) {
    QJsonObject object;
    dump.title(QStringLiteral("interface"));
    dump.add(object, QStringLiteral("bInterfaceNumber"), setting.bInterfaceNumber);
    dump.add(object, QStringLiteral("bAlternateSetting"), setting.bAlternateSetting);
    dump.add(object, QStringLiteral("bInterfaceClass"), setting.bInterfaceClass);
    dump.add(object, QStringLiteral("bInterfaceSubClass"), setting.bInterfaceSubClass);
    dump.add(object, QStringLiteral("bInterfaceProtocol"), setting.bInterfaceProtocol);
    QJsonArray endpoints;
    dump.deeper();
    for (const auto& endpoint : std::span(setting.endpoint, setting.bNumEndpoints)) {
        endpoints.append(endpointOf(dump, endpoint));
    }
    dump.back();
    object.insert(QStringLiteral("endpoints"), endpoints);
    return object;
}

QJsonObject configurationOf(Dump& dump, const libusb_config_descriptor& config) {
    QJsonObject object;
    dump.title(QStringLiteral("configuration"));
    dump.add(object, QStringLiteral("bConfigurationValue"), config.bConfigurationValue);
    dump.add(object, QStringLiteral("bNumInterfaces"), config.bNumInterfaces);
    dump.add(object, QStringLiteral("bmAttributes"), config.bmAttributes,
             hex(config.bmAttributes, 2));
    dump.add(object, QStringLiteral("MaxPower"), config.MaxPower);
    QJsonArray interfaces;
    dump.deeper();
    for (const auto& interface : std::span(config.interface, config.bNumInterfaces)) {
        const auto count = static_cast<std::size_t>(interface.num_altsetting);
        for (const auto& setting : std::span(interface.altsetting, count)) {
            interfaces.append(settingOf(dump, setting));
        }
    }
    dump.back();
    object.insert(QStringLiteral("interfaces"), interfaces);
    return object;
}

QJsonObject deviceOf(Dump& dump, libusb_device* camera) {
    QJsonObject object;
    libusb_device_descriptor device{};
    static_cast<void>(libusb_get_device_descriptor(camera, &device));
    dump.add(object, QStringLiteral("bcdUSB"), device.bcdUSB, hex(device.bcdUSB, 4));
    dump.add(object, QStringLiteral("bDeviceClass"), device.bDeviceClass);
    dump.add(object, QStringLiteral("bDeviceSubClass"), device.bDeviceSubClass);
    dump.add(object, QStringLiteral("bDeviceProtocol"), device.bDeviceProtocol);
    dump.add(object, QStringLiteral("bMaxPacketSize0"), device.bMaxPacketSize0);
    dump.add(object, QStringLiteral("idVendor"), device.idVendor, hex(device.idVendor, 4));
    dump.add(object, QStringLiteral("idProduct"), device.idProduct, hex(device.idProduct, 4));
    dump.add(object, QStringLiteral("bcdDevice"), device.bcdDevice, hex(device.bcdDevice, 4));
    QJsonArray configurations;
    dump.deeper();
    for (std::uint8_t i = 0; i < device.bNumConfigurations; ++i) {
        if (const LibusbConfig config = readConfig(camera, i)) {
            configurations.append(configurationOf(dump, *config));
        }
    }
    dump.back();
    object.insert(QStringLiteral("configurations"), configurations);
    return object;
}

}  // namespace

// The system has read the descriptors: no camera is opened, and one in use can be looked at.
void runDescriptors(stRun& run) {
    std::vector<stCamera> cameras;
    if (const stFailure failure = chooseCameras(run.arguments, run.finder, cameras)) {
        run.report.fail(failure);
        return;
    }
    run.report.setIsTold();
    for (const stCamera& camera : cameras) {
        ClReport report({camera.serial, camera.port, camera.bus, camera.number, {}}, false);
        Dump dump(report);
        dump.title(QStringLiteral("camera at %1 (%2)").arg(camera.port, camera.place()));
        report.addMember(QStringLiteral("descriptors"), deviceOf(dump, camera.device));
        if (run.arguments.isJson()) {
            printJson(run.console, report.json());
        } else {
            run.console.print(report.text());
        }
    }
}
